#include "cli/KVValueText.h"

#include <cmath>

QVariant KVValueText::parse(const QString &text) {
    if (text == QLatin1String("true")) return true;
    if (text == QLatin1String("false")) return false;
    // White space belongs to a text; Qt would read over it.
    const bool isBare = !text.isEmpty() && text.trimmed() == text;
    bool isNumber = false;
    if (const qint64 whole = text.toLongLong(&isNumber); isBare && isNumber) return whole;
    if (const double real = text.toDouble(&isNumber); isBare && isNumber && std::isfinite(real)) return real;
    return text;
}
