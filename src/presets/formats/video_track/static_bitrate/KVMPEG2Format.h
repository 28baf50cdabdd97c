#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// MPEG-2. Its rate is the name of a television standard, at every quality.
class KVMPEG2Format : public KVStaticBitrateFormat {
  public:
    KVMPEG2Format()
        : KVStaticBitrateFormat(KVVideoCodecTable::mpeg2) {}

    bool isDVDTarget = false; ///< Keeps to all that a DVD player asks for.

    QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const override;
    std::optional<QString> framerateText(const KVVideoFile &file,
                                         KVTrackQualitySetting quality) const override;
    /// By the format's own rate; where that names no standard, by the preference.
    bool isNTSC() const;
};
