#include "presets/formats/video_track/KVBitrateRange.h"

#include "kvcore/KVFatalError.h"

KVBitrateRange KVBitrateRanges::at(KVTrackQualitySetting quality, qint64 customBitrate,
                                   const char *operation) const {
    switch (quality) {
    case KVTrackQualitySetting::low:
        return low;
    case KVTrackQualitySetting::medium:
        return medium;
    case KVTrackQualitySetting::high:
        return high;
    case KVTrackQualitySetting::keepOriginal:
        return keepOriginal;
    case KVTrackQualitySetting::custom:
        return {customBitrate, 0};
    case KVTrackQualitySetting::copy:
        break;
    }
    KVFatalError(QStringLiteral("KVUnknownQualityException: -%1").arg(QLatin1String(operation)));
}
