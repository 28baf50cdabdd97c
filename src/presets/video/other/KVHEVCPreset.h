#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

/// The container decides the extension, the file type and the subtitles.
class KVHEVCPreset : public KVTabulatedVideoPreset<KVVideoPresetTable::hevc> {
  public:
    KVHEVCFormat::ContainerFormat containerFormat = KVHEVCFormat::ContainerFormat::mov;

    bool canCopyVideoTrack(const KVVideoFile &file) const override;
    QString defaultSubtitleFormat() const override;
    std::optional<QString> fileType() const override;
    std::optional<QString> pathExtension() const override;
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
    QVariantMap dictionaryRepresentation() const override;
    void loadFromDictionary(const QVariantMap &dictionary) override;

  protected:
    KVOptionList _additionalOptions() override;
};
