#pragma once

#include "presets/video/base/KVVideoPreset.h"

/// Moves the index of an MP4 file to its front, so that it plays while it is being loaded.
class KVWebOptimization : public KVVideoPreset {
  public:
    QString defaultName() const override;
    QString localizedFormatDescription() const override;
    std::shared_ptr<KVSettingsBase> settings() override { return nullptr; }
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
    std::optional<QUrl> outputURLForFiles(const KVMediaFileList &files,
                                          const std::optional<QUrl> &destination) const override;
    /// Tells the user, and answers nothing, where the file is no MP4.
    std::optional<KVPresetTask>
    taskForConversionOfFiles(const KVMediaFileList &files,
                             const std::optional<QUrl> &destination) const override;
};
