#pragma once

#include "util/KVOpenedPicture.h"
#include "util/picture/KVPictureSource.h"

/// A picture that the image library reads and writes.
class KVVipsPicture : public KVOpenedPicture {
  public:
    static KVResult<std::unique_ptr<KVOpenedPicture>> open(const QString &path, const std::stop_token &stop);

    explicit KVVipsPicture(KVPictureSource source)
        : _source(std::move(source)) {}

    KVSize uprightSize() const override { return _source.uprightSize(); }
    int numberOfPages() const override { return _source.numberOfPages(); }
    KVResult<QImage> reducedImage(int longestSide, const std::stop_token &stop) const override;
    std::optional<KVError> objectionTo(const KVSize &size, KVImageFileType type) const override;
    std::optional<QString> write(const KVSize &size, KVImageFileType type, const QVariantMap &properties,
                                 KVHiddenOutput &output, const std::stop_token &stop) const override;

  private:
    KVPictureSource _source;
};
