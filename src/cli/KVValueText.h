#pragma once

#include <QString>
#include <QVariant>

/// Values as the user types them.
namespace KVValueText {

/// "true" and "false", a whole number, a real number, else the text itself.
QVariant parse(const QString &text);

} // namespace KVValueText
