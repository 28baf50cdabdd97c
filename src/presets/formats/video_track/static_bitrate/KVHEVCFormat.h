#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// HEVC (H.265).
class KVHEVCFormat : public KVStaticBitrateFormat {
  public:
    KVHEVCFormat()
        : KVStaticBitrateFormat(KVVideoCodecTable::hevc) {}

    /// The file that the track goes into. The raw values are persisted.
    enum class ContainerFormat { mov = 0, mkv = 1, mp4 = 2 };

    static std::optional<ContainerFormat> containerFormatFromRawValue(qint64 rawValue);

    ContainerFormat containerFormat = ContainerFormat::mov;

    QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const override;
};
