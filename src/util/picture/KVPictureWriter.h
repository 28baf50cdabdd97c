#pragma once

#include "util/picture/KVImageFileType.h"
#include "util/picture/KVPictureFormat.h"

#include <QVariantMap>

#include <vips/vips8>

class KVHiddenOutput;

/// Encodes pictures, computing them row by row.
namespace KVPictureWriter {

const KVPictureFormat &format(KVImageFileType type);

/// `picture` is within what the format holds. Throws the library's errors; whether it was the output that
/// failed, the output knows.
void write(const vips::VImage &picture, KVImageFileType type, const QVariantMap &properties,
           KVHiddenOutput &output);

} // namespace KVPictureWriter
