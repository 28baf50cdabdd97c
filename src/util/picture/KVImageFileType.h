#pragma once

#include <QString>

/// The kinds of picture files that are written.
enum class KVImageFileType { tiff = 0, bmp = 1, gif = 2, jpeg = 3, png = 4 };

// Keys of the encoder's properties.
inline const QString NSImageCompressionFactor = QStringLiteral("NSImageCompressionFactor"); ///< JPEG: 0 to 1.
inline const QString NSImageInterlaced = QStringLiteral("NSImageInterlaced"); ///< PNG: a boolean.
