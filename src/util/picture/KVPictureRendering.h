#pragma once

#include "util/KVSizeFitting.h"
#include "util/picture/KVPictureFormat.h"

#include <vips/vips8>

#include <stop_token>

class KVPictureSource;

/// Makes of a picture what a kind of file can hold: scaled, upright, in colours and depth that it knows.
namespace KVPictureRendering {

/// A picture of this size, to be computed while it is written. Throws the library's errors, also where `stop`
/// is requested. Holds the whole picture at once (a large one on disc) only if it has to be turned.
vips::VImage render(const KVPictureSource &source, const KVSize &uprightSize, const KVPictureFormat &format,
                    const std::stop_token &stop);

} // namespace KVPictureRendering
