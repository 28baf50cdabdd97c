#pragma once

#include "presets/formats/audio_track/KVAudioFormat.h"

/// The answers of an audio preset that differs from others by them alone.
struct KVAudioPresetRow {
    const char *defaultName; ///< Also the key of the text that the user sees.
    const char *pathExtension;
    const char *fileType; ///< Null where the file's extension says it.
    const char *description;
    KVAudioFormatClass audioFormatClass;
    int threads; ///< At most; 0 names no number to the encoder.
};
