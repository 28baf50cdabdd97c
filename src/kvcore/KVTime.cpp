#include "kvcore/KVTime.h"

#include "kvcore/KVLocalizationCenter.h"

#include <cmath>

QString KVTime::localizedTimeString(double seconds) {
    constexpr double longest = 1e15; // beyond this no whole second can be told
    if (!(seconds >= 0 && seconds < longest)) return QStringLiteral("--");

    const qint64 all = std::llround(seconds);
    const qint64 hours = all / 3600;
    const qint64 minutes = all / 60 % 60;
    if (hours > 0) return KVLocalizationCenter::localized("%ld h %ld min", {hours, minutes});
    if (minutes > 0) return KVLocalizationCenter::localized("%ld min %ld sec", {minutes, all % 60});
    return KVLocalizationCenter::localized("%ld sec", {all});
}
