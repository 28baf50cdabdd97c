#pragma once

#include "kvcore/KVError.h"

#include <QJsonObject>
#include <QString>

class KVMediaFile;

/// Media files as `kalvoractl probe --json` tells them.
namespace KVMediaFileJSON {
QJsonObject ofFile(const KVMediaFile &file);
QJsonObject ofRefusal(const QString &path, const KVError &error);
} // namespace KVMediaFileJSON
