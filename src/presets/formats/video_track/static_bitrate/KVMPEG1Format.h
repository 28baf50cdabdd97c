#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// MPEG-1, which takes nothing but the rates of a television standard.
class KVMPEG1Format : public KVStaticBitrateFormat {
  public:
    KVMPEG1Format()
        : KVStaticBitrateFormat(KVVideoCodecTable::mpeg1) {}

    std::optional<QString> framerateText(const KVVideoFile &file,
                                         KVTrackQualitySetting quality) const override;
};
