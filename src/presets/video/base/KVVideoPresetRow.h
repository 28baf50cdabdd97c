#pragma once

#include "presets/formats/audio_track/KVAudioFormat.h"
#include "presets/formats/video_track/KVVideoFormat.h"

/// The answers of a preset that differs from others by them alone. Bitrates are kilobits per second.
struct KVVideoPresetRow {
    const char *defaultName; ///< Also the key of the text that the user sees.
    const char *pathExtension;
    const char *fileType; ///< For the tool's "-f"; null where the file's extension says it.
    KVVideoFormatClass videoFormatClass;
    KVAudioFormatClass audioFormatClass;
    qint64 videoBitrate;
    qint64 videoMaxBitrate;
    qint64 audioBitrate;
    int threads;                ///< At most; 0 names no number to the encoder.
    const char *subtitleFormat; ///< Null where no subtitles are muxed.
    const char *description;    ///< May name the limits.
    std::optional<KVVideoFormat::Resolution> limits = std::nullopt; ///< Fixed ones.
};
