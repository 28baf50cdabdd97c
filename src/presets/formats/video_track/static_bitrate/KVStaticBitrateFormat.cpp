#include "presets/formats/video_track/static_bitrate/KVStaticBitrateFormat.h"

KVBitrateRange KVStaticBitrateFormat::bitrateRange(KVTrackQualitySetting quality) const {
    return _row.bitrate.at(quality, bitrate, "bitrateRangeForQuality");
}

KVBitrateRange KVStaticBitrateFormat::maxBitrateRange(KVTrackQualitySetting quality) const {
    if (!_row.maxBitrate) return KVVideoFormat::maxBitrateRange(quality);
    return _row.maxBitrate->at(quality, maxBitrate, "maxBitrateRangeForQuality");
}

bool KVStaticBitrateFormat::canCopyVideoTrackOfFormat(const QString &format) const {
    const QLatin1String sourceFormat(_row.sourceFormat);
    return _row.match == KVVideoCodecRow::Match::equals ? format == sourceFormat
                                                        : format.startsWith(sourceFormat);
}

QString KVStaticBitrateFormat::codec() const {
    return QLatin1String(_row.codec);
}
