#pragma once

#include <QString>

#include <vips/vips8>

#include <stop_token>

/// Reads large progressive JPEG files in little memory: those tell the whole picture coarsely first and in
/// finer and finer scans later, so that a reader holds all of it, two bytes for each value, until the last.
namespace KVJPEGFile {

/// For an image that the library has read from a JPEG file.
bool needsMuchMemory(const vips::VImage &image);

/// The same file without loss as one that is read row by row; it lives on disc, without a name, as long as
/// somebody reads it. Throws where the file is damaged or ends too early, and where `stop` is requested.
vips::VSource rowByRow(const QString &path, const std::stop_token &stop);

} // namespace KVJPEGFile
