#pragma once

#include <QString>

#include <vips/vips8>

class KVHiddenOutput;

/// What the camera wrote beside the pixels (EXIF) of TIFF files, which the image library neither reads nor
/// writes. Between the two it stands in the fields of an image, as the library has it of other files.
namespace KVTIFFMetadata {

/// The picture with what its file tells of it; as it is where that is no TIFF or cannot be understood.
vips::VImage withMetadataOf(const QString &path, const vips::VImage &picture);

/// Adds what `picture` tells to the TIFF that has been written into `output`. What TIFF has no place for is
/// left out. Throws where the file cannot be changed.
void append(const vips::VImage &picture, KVHiddenOutput &output);

} // namespace KVTIFFMetadata
