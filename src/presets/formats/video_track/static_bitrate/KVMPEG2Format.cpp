#include "presets/formats/video_track/static_bitrate/KVMPEG2Format.h"

#include "kvcore/KVText.h"
#include "util/KVPreferenceKeys.h"

QStringList KVMPEG2Format::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    QStringList arguments{"-ps", "2000000000"};
    if (isDVDTarget) arguments << "-target" << (isNTSC() ? "ntsc-dvd" : "pal-dvd");
    return arguments;
}

std::optional<QString> KVMPEG2Format::framerateText(const KVVideoFile &, KVTrackQualitySetting) const {
    return isNTSC() ? QStringLiteral("ntsc") : QStringLiteral("pal");
}

bool KVMPEG2Format::isNTSC() const {
    const QString text = framerate == 0 ? QString() : KVText::fixed(framerate, 2);
    if (text == "25.00") return false;
    return text == "29.97" || KVPreferences::shared().boolean(KVPreferenceKeys::UsesNTSCFormat, false);
}
