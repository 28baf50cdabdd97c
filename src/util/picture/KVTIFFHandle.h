#pragma once

#include <QString>

#include <memory>

#include <tiffio.h>

class KVHiddenOutput;

using KVTIFFHandle = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

/// TIFF files, opened in silence: what the library finds wrong with them is no business of the thread that
/// happens to convert another picture.
namespace KVTIFFHandles {

/// Nothing where the file is no TIFF. It is not mapped: one that shrinks meanwhile would end the program.
KVTIFFHandle toRead(const QString &path);

/// The value of a tag, or its default.
template <class Number>
Number tag(TIFF *file, uint32_t name) {
    Number value = 0;
    TIFFGetFieldDefaulted(file, name, &value);
    return value;
}

/// To change what has been written. `output` outlives the handle.
KVTIFFHandle toChange(KVHiddenOutput &output);

} // namespace KVTIFFHandles
