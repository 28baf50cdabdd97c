#pragma once

#include "presets/picture/KVPictureFormat.h"
#include "util/KVSizeFitting.h"

#include <vips/vips8>

class KVPictureSource;

/// Makes of a picture what a kind of file can hold: scaled, upright, in colours and depth that it knows.
namespace KVPictureRendering {

/// A picture of this size, to be computed while it is written. Throws the library's errors. Holds the whole
/// picture at once (a large one on disc) only if it has to be turned.
vips::VImage render(const KVPictureSource &source, const KVSize &uprightSize, const KVPictureFormat &format);

} // namespace KVPictureRendering
