#include "util/KVByteCount.h"

#include "kvcore/KVLocalizationCenter.h"

#include <array>
#include <cmath>

namespace {

struct Unit {
    const char *text;
    int decimals;
};

constexpr std::array units{Unit{"%@ KB", 0}, Unit{"%@ MB", 1}, Unit{"%@ GB", 2},
                           Unit{"%@ TB", 2}, Unit{"%@ PB", 2}, Unit{"%@ EB", 2}};

double rounded(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

} // namespace

QString KVByteCountText(qint64 bytes) {
    if (bytes == 0) return KVLocalizationCenter::localized("Zero KB");
    if (bytes == 1) return KVLocalizationCenter::localized("1 byte");
    if (bytes < 1000) return KVLocalizationCenter::localized("%i bytes", {bytes});

    double value = static_cast<double>(bytes) / 1000;
    auto unit = units.begin();
    for (; rounded(value, unit->decimals) >= 1000; ++unit)
        value /= 1000;
    const QString number =
        QString::number(rounded(value, unit->decimals), 'g', QLocale::FloatingPointShortest);
    return KVLocalizationCenter::localized(unit->text, {number});
}
