#pragma once

#include "presets/audio/base/KVAudioPresetRow.h"
#include "presets/formats/audio_track/KVAACFormat.h"
#include "presets/formats/audio_track/KVAIFFFormat.h"
#include "presets/formats/audio_track/KVAppleLosslessFormat.h"
#include "presets/formats/audio_track/KVFLACFormat.h"
#include "presets/formats/audio_track/KVMP2Format.h"
#include "presets/formats/audio_track/KVMP3Format.h"
#include "presets/formats/audio_track/KVVobFormat.h"
#include "presets/formats/audio_track/KVWAVFormat.h"
#include "presets/formats/audio_track/KVWMAFormat.h"

/// One line for each audio preset.
namespace KVAudioPresetTable {

template <class Format>
inline constexpr auto audio = KVAudioFormatClass::of<Format>();

// clang-format off
//                  name              extension file type description            format                        threads
inline constexpr KVAudioPresetRow
    aac          {"AAC",            "aac",  nullptr, "Audio: AAC",            audio<KVAACFormat>,           16},
    m4a          {"M4A",            "m4a",  nullptr, "Audio: M4A (AAC)",      audio<KVAACFormat>,           16},
    mp2          {"MP2",            "mp2",  nullptr, "Audio: MP2",            audio<KVMP2Format>,           8},
    mp3          {"MP3",            "mp3",  nullptr, "Audio: MP3",            audio<KVMP3Format>,           8},
    vorbis       {"Ogg (Audio)",    "ogg",  "ogg",   "Audio: Ogg Vorbis",     audio<KVVobFormat>,           8},
    wma          {"WMA",            "wma",  nullptr, "Audio: WMA",            audio<KVWMAFormat>,           0},
    flac         {"FLAC",           "flac", nullptr, "Audio: FLAC",           audio<KVFLACFormat>,          0},
    wav          {"WAV",            "wav",  nullptr, "Audio: WAV",            audio<KVWAVFormat>,           0},
    aiff         {"AIFF",           "aiff", "aiff",  "Audio: AIFF",           audio<KVAIFFFormat>,          0},
    appleLossless{"Apple Lossless", "m4a",  nullptr, "Audio: Apple Lossless", audio<KVAppleLosslessFormat>, 0};
// clang-format on

} // namespace KVAudioPresetTable
