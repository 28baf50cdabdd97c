#include "presets/formats/video_track/static_bitrate/KVMPEG1Format.h"

#include "util/KVPreferenceKeys.h"

std::optional<QString> KVMPEG1Format::framerateText(const KVVideoFile &file,
                                                    KVTrackQualitySetting quality) const {
    auto text = KVVideoFormat::framerateText(file, quality);
    if (text == QStringLiteral("25.00") || text == QStringLiteral("29.97")) return text;
    const bool usesNTSC = KVPreferences::shared().boolean(KVPreferenceKeys::UsesNTSCFormat, false);
    return usesNTSC ? QStringLiteral("ntsc") : QStringLiteral("pal");
}
