#pragma once

#include "presets/video/base/KVSizeRestrictedVideoPreset.h"

/// An animated GIF, by a list of its own.
class KVGIFAnimationPreset : public KVSizeRestrictedVideoPreset {
  public:
    /// Decides sizes; has no codec, and its arguments are never asked for.
    class GIFAnimationFormat : public KVVideoFormat {};

    QString defaultName() const override;
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "gif"; }
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
    KVVideoFormatClass videoFormatClass() const override {
        return KVVideoFormatClass::of<GIFAnimationFormat>();
    }
};
