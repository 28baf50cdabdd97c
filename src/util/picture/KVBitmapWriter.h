#pragma once

#include <vips/vips8>

class KVHiddenOutput;

/// Writes Windows bitmaps with 24 bits for a pixel: the form that every program reads.
namespace KVBitmapWriter {

/// `picture` is grey or sRGB with 8 bits and opaque. Throws the library's errors.
void write(const vips::VImage &picture, KVHiddenOutput &output);

} // namespace KVBitmapWriter
