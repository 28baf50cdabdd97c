#pragma once

#include <QByteArray>

#include <vips/vips8>

/// Reads Apple icon files: a container of the same icon in several sizes, as PNG, as JPEG 2000 or in its own
/// run-length coding.
namespace KVIconFile {

/// The largest icon of the file. Throws where there is none or the file is damaged.
vips::VImage largestImage(const QByteArray &content);

} // namespace KVIconFile
