#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// The MP3 track of the containers that play at 44100 Hz alone: the person's channels, and no bitrate of the
/// preset's, so that custom quality takes the format's default.
std::unique_ptr<KVAudioFormat> KVForcedRateMP3(KVAudioChannelsType channels);
