#pragma once

/// A picture's size in pixels, with fractions while it is being worked out.
struct KVSize {
    double width = 0;
    double height = 0;

    bool operator==(const KVSize &) const = default;
};

namespace KVSizeFitting {

/// Both sides whole, rounded up. A side that is whole but for the noise of the arithmetic stays as it is.
KVSize integral(const KVSize &size);

/// The largest whole size of the same shape within `maximum`. A size that is smaller than the maximum in both
/// sides stays as it is, unless `scalesUp`. All sides are above 0.
KVSize fitInto(const KVSize &size, const KVSize &maximum, bool scalesUp);

} // namespace KVSizeFitting
