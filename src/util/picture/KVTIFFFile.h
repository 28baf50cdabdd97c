#pragma once

#include <QString>

#include <vips/vips8>

/// Reads the TIFF files that the image library takes for RGB or refuses: those that hold luma and chroma, of
/// which chroma may have fewer pixels.
namespace KVTIFFFile {

/// False for every other TIFF, for one that is packed as JPEG, which the library understands, and for what is
/// none.
bool holdsLumaAndChroma(const QString &path);

/// The first page in RGB, strip by strip. Throws where its header contradicts itself.
vips::VImage image(const QString &path);

} // namespace KVTIFFFile
