#pragma once

#include <QString>

#include <vips/vips8>

/// Reads Windows bitmaps row by row, of any size in little memory: those with 1, 4, 8, 16, 24 or 32 bits for
/// a pixel that are not compressed.
namespace KVBitmapFile {

/// False for a compressed bitmap and for what is none.
bool canRead(const QString &path);

/// Throws where the header contradicts itself or the file is shorter than it says.
vips::VImage image(const QString &path);

} // namespace KVBitmapFile
