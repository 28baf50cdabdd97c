#pragma once

#include <QByteArray>

/// What a Photoshop document says about itself.
namespace KVPhotoshopFile {

/// False where the file ends before its merged picture does; readers that are lenient would fill up with
/// grey.
bool isWhole(const QByteArray &content);

} // namespace KVPhotoshopFile
