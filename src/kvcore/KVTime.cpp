#include "kvcore/KVTime.h"

#include "kvcore/KVLocalizationCenter.h"

#include <cmath>

namespace {

const QString noTime = QStringLiteral("--");

bool isTime(double seconds) {
    constexpr double longest = 1e15; // beyond this a double has no whole seconds
    return seconds >= 0 && seconds < longest;
}

} // namespace

QString KVTime::localizedTimeString(double seconds) {
    if (!isTime(seconds)) return noTime;

    const qint64 all = std::llround(seconds);
    const qint64 hours = all / 3600;
    const qint64 minutes = all / 60 % 60;
    if (hours > 0) return KVLocalizationCenter::localized("%ld h %ld min", {hours, minutes});
    if (minutes > 0) return KVLocalizationCenter::localized("%ld min %ld sec", {minutes, all % 60});
    return KVLocalizationCenter::localized("%ld sec", {all});
}

QString KVTime::clockText(double seconds) {
    if (!isTime(seconds)) return noTime;
    const auto all = static_cast<qint64>(seconds);
    const auto twoDigits = [](qint64 number) { return QString::number(number).rightJustified(2, u'0'); };
    const qint64 hours = all / 3600;
    const QString minutes = hours > 0 ? twoDigits(all / 60 % 60) : QString::number(all / 60);
    return (hours > 0 ? QString::number(hours) + u':' : QString()) + minutes + u':' + twoDigits(all % 60);
}
