#pragma once

#include <QString>

/// A file's size for the user, in units of a thousand: "Zero KB", "1 byte", "12 bytes", "12 KB", "1.2 MB",
/// "1.25 GB". Kilobytes show no decimals, megabytes one, larger units two; final zeros are left out.
QString KVByteCountText(qint64 bytes);
