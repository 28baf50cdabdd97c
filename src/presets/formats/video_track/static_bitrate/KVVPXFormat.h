#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// VP8.
class KVVPXFormat : public KVStaticBitrateFormat {
  public:
    KVVPXFormat()
        : KVStaticBitrateFormat(KVVideoCodecTable::vpx) {}

    QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const override;
};
