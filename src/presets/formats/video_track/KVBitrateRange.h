#pragma once

#include "presets/formats/KVTrackQualitySetting.h"

#include <QtGlobal>

/// The bitrates that one quality spans from the smallest picture to the largest, in kilobits per second.
struct KVBitrateRange {
    qint64 location = 0; ///< Rate of the smallest picture.
    qint64 length = 0;   ///< What the largest picture gets on top of it.

    bool operator==(const KVBitrateRange &) const = default;
};

/// The ranges of the qualities that have fixed numbers.
struct KVBitrateRanges {
    KVBitrateRange low;
    KVBitrateRange medium;
    KVBitrateRange high;
    KVBitrateRange keepOriginal;

    /// The row's range, or with `custom` the person's own rate at every size. `copy` has no range and ends
    /// the process with a message that names `operation`.
    KVBitrateRange at(KVTrackQualitySetting quality, qint64 customBitrate, const char *operation) const;
};
