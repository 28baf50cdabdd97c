#pragma once

#include "presets/video/variable_bitrate/KVMP4Preset.h"

/// Base of the device presets: the size is the device's, and no one can change it.
class KViProductPreset : public KVMP4Preset {
  public:
    virtual bool deviceSupportsSurroundSound() const { return false; }

    KVH264Format::Profile profile() const override { return KVH264Format::Profile::baseline; }
    qint64 level() const override { return 13; }

    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    qint64 defaultVideoBitrate() const override { return 560; }
    qint64 defaultVideoMaxBitrate() const override { return 700; }
    std::optional<QString> fileType() const override { return "ipod"; }
    bool hasSizeConstrains() const override { return true; }
    void setHasSizeConstrains(bool) override {}
    QString localizedFormatDescription() const override;
    /// Those of every preset, the device's limits and the codec.
    QStringList tags() const override;
    std::unique_ptr<KVVideoFormat> videoFormat() const override;

  protected:
    KViProductPreset() = default;
};
