#pragma once

#include "presets/picture/KVPicturePreset.h"
#include "util/picture/KVImageFileType.h"

class KVHiddenOutput;
class KVOpenedPicture;

/// Base of the presets that read a picture, scale it and write it as one kind of file.
class KVNSImageBasedPreset : public KVPicturePreset {
  public:
    virtual KVImageFileType imageFileType() const;
    /// What the encoder is told, by the keys of KVImageFileType.h.
    virtual QVariantMap properties() const { return {}; }

    KVResult<QUrl> convertPictureFile(const std::shared_ptr<KVPictureFile> &file, const QUrl &toURL,
                                      const std::stop_token &stop) const override;
    std::shared_ptr<KVSettingsBase> settings() override;

  protected:
    KVNSImageBasedPreset() = default;

  private:
    KVResult<void> _encode(const KVOpenedPicture &picture, const QString &target, KVHiddenOutput &output,
                           const std::stop_token &stop) const;
};
