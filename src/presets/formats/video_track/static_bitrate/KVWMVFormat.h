#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// Windows Media Video 8.
class KVWMVFormat : public KVStaticBitrateFormat {
  public:
    KVWMVFormat()
        : KVStaticBitrateFormat(KVVideoCodecTable::wmv) {}
};
