#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// Flash video (Sorenson Spark).
class KVFLVFormat : public KVStaticBitrateFormat {
  public:
    KVFLVFormat()
        : KVStaticBitrateFormat(KVVideoCodecTable::flv) {}

    QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const override;
};
