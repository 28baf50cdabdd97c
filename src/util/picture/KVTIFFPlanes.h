#pragma once

#include "util/picture/KVRowReader.h"
#include "util/picture/KVTIFFHandle.h"

#include <QString>

#include <memory>
#include <optional>

/// TIFF files whose tiles or strips hold one channel each.
namespace KVTIFFPlanes {

/// True for tiles, which the image library refuses, and for grey with transparency, which it mixes up.
bool needsReader(TIFF *file);

/// Empty for other files, and for colours and depths that are not read here: grey, RGB and CMYK with 8 or 16
/// bits are. Throws if the header contradicts itself.
std::optional<KVRowReader::Layout> layout(TIFF *file);

/// Reads the first page of the file that has this layout.
std::unique_ptr<KVRowReader> reader(const QString &path, const KVRowReader::Layout &layout);

} // namespace KVTIFFPlanes
