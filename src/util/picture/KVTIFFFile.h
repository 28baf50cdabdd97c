#pragma once

#include <QString>

#include <vips/vips8>

/// Reads the TIFF files that the image library takes for RGB or refuses: those that hold luma and chroma, of
/// which chroma may have fewer pixels, and those of KVTIFFPlanes.
namespace KVTIFFFile {

/// False for every other TIFF, for luma and chroma packed as JPEG, which the library understands, and for
/// other files.
bool canOnlyBeReadHere(const QString &path);

/// True if the pixels are packed as JPEG in the way of TIFF 6.0, for which each writer had a form of its own.
/// The code that decodes it is not safe with damaged files.
bool isOldStyleJPEG(const QString &path);

/// True for floating point numbers of 32 bits and more, whose range each writer chooses.
bool holdsDeepFloats(const QString &path);

/// The first page, strip by strip or one row of tiles after the other. Throws if its header contradicts
/// itself.
vips::VImage image(const QString &path);

/// Without smaller copies of pages and masks. 1 for what is no TIFF. Reads the headers only.
int numberOfPages(const QString &path);

} // namespace KVTIFFFile
