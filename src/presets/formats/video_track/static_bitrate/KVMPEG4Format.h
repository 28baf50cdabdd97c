#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// MPEG-4 Visual: DivX, Xvid and older devices.
class KVMPEG4Format : public KVStaticBitrateFormat {
  public:
    KVMPEG4Format()
        : KVStaticBitrateFormat(KVVideoCodecTable::mpeg4) {}

    QStringList furtherArguments;    ///< Of the device, behind all others.
    std::optional<QString> videoTag; ///< The codec's four characters in an AVI file.

    QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const override;
};
