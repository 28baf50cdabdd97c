#pragma once

#include <QString>

#include <vips/vips8>

struct KVPhotoshopHeader;

/// Reads the merged picture of Photoshop documents row by row.
namespace KVPhotoshopFile {

/// False for the rarer kinds: Lab and multichannel colours, 32 bits for a channel, compressed with zip.
bool canRead(const KVPhotoshopHeader &header);

/// The picture of the document with this header.
vips::VImage image(const QString &path, const KVPhotoshopHeader &header);

} // namespace KVPhotoshopFile
