#pragma once

#include <QString>

#include <vips/vips8>

/// What PNG files say beside their pixels and the image library does not look for.
namespace KVPNGFile {

/// The picture with the EXIF data of its file, which may be behind the pixels or in a text. Returns `picture`
/// if that has EXIF data already or the file has none.
vips::VImage withMetadataOf(const QString &path, const vips::VImage &picture);

/// The picture with its values changed from the gamma value that its file states (gAMA) to that of ordinary
/// pictures. Returns `picture` if the file states none, or an ordinary one, or has a colour profile.
vips::VImage withOrdinaryGamma(const QString &path, const vips::VImage &picture);

} // namespace KVPNGFile
