#pragma once

#include "presets/video/variable_bitrate/KVMP4Preset.h"

/// Matroska: as MP4, but takes nearly every kind of subtitles as it is.
class KVMKVPreset : public KVMP4Preset {
  public:
    bool canCopySubtitleTrack(const KVSubtitleTrack &track) const override;
    QString defaultName() const override { return "MKV"; }
    QString defaultSubtitleFormat() const override { return "ass"; }
    std::optional<QString> fileType() const override { return "matroska"; }
    std::optional<QString> pathExtension() const override { return "mkv"; }
};
