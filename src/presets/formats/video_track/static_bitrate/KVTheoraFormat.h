#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// Theora.
class KVTheoraFormat : public KVStaticBitrateFormat {
  public:
    KVTheoraFormat()
        : KVStaticBitrateFormat(KVVideoCodecTable::theora) {}
};
