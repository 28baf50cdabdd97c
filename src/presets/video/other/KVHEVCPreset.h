#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

/// The container decides the extension, the file type and the subtitles.
class KVHEVCPreset
    : public KVPresetWithFields<KVHEVCPreset, KVTabulatedVideoPreset<KVVideoPresetTable::hevc>> {
  public:
    KVHEVCFormat::ContainerFormat containerFormat = KVHEVCFormat::ContainerFormat::mov;

    bool canCopyVideoTrack(const KVVideoFile &file) const override;
    QString defaultSubtitleFormat() const override;
    std::optional<QString> fileType() const override;
    std::optional<QString> pathExtension() const override;
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
    static const KVPresetFields<KVHEVCPreset> &fields();

  protected:
    KVOptionList _additionalOptions() override;
};
