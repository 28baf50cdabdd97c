#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/settings/KVOptionBase.h"
#include "presets/video/base/KVVideoPreset.h"

/// Changes the container and encodes nothing.
class KVRemuxPreset : public KVPresetWithFields<KVRemuxPreset, KVVideoPreset> {
  public:
    QString format = QStringLiteral("avi"); ///< For the tool's "-f".

    QString defaultName() const override;
    QString defaultSubtitleFormat() const override;
    static const KVPresetFields<KVRemuxPreset> &fields();
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return false; }
    bool supportsSubtitleMuxing() const override;
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
    QStringList warningsForFiles(const KVMediaFileList &files) const override;

  protected:
    /// "File Format:".
    std::shared_ptr<KVOptionBase<KVRemuxPreset>> _formatOption();
    /// What stands behind the codecs: the container, the chosen ones of several tracks and the output.
    QStringList _containerArguments(const KVVideoFile &file, const QUrl &outputFile) const;
};
