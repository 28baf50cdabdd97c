#pragma once

#include <QString>

#include <vips/vips8>

/// Finds EXIF data of PNG files where the image library does not look for it.
namespace KVPNGFile {

/// The picture with the EXIF data of its file, which may be behind the pixels or in a text. Returns `picture`
/// if that has EXIF data already or the file has none.
vips::VImage withMetadataOf(const QString &path, const vips::VImage &picture);

} // namespace KVPNGFile
