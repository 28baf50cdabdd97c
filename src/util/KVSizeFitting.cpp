#include "util/KVSizeFitting.h"

#include <cmath>

namespace {

/// 525.0000000000001 is 525: far below any real fraction of a pixel, far above the noise of two operations.
constexpr double noise = 1e-6;

} // namespace

KVSize KVSizeFitting::integral(const KVSize &size) {
    return {std::ceil(size.width - noise), std::ceil(size.height - noise)};
}

KVSize KVSizeFitting::fitInto(const KVSize &size, const KVSize &maximum, bool scalesUp) {
    if (!scalesUp && size.width < maximum.width && size.height < maximum.height) return size;
    const bool isWider = size.width / size.height > maximum.width / maximum.height;
    if (isWider) return integral({maximum.width, maximum.width / size.width * size.height});
    return integral({maximum.height / size.height * size.width, maximum.height});
}
