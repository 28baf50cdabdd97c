#pragma once

#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

/// ProRes.
class KVProResFormat : public KVStaticBitrateFormat {
  public:
    KVProResFormat()
        : KVStaticBitrateFormat(KVVideoCodecTable::proRes) {}

    /// The raw value is the encoder's number of the profile.
    enum class Profile { none = -1, proxy = 0, lt = 1, standard = 2, hq = 3 };

    static std::optional<Profile> profileFromRawValue(qint64 rawValue);

    Profile profile = Profile::none;

    QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const override;
};
