#pragma once

#include "presets/picture/KVImageFileType.h"
#include "presets/picture/KVPicturePreset.h"

class KVHiddenOutput;
class KVPictureSource;

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
    KVResult<void> _encode(const KVPictureSource &source, const QString &target, KVHiddenOutput &output,
                           const std::stop_token &stop) const;
    /// Throws the library's errors.
    void _write(const KVPictureSource &source, KVHiddenOutput &output, const std::stop_token &stop) const;
};
