#include "presets/formats/KVTrackFormat.h"

#include "kvcore/KVFatalError.h"

QStringList KVTrackFormat::arguments(const std::shared_ptr<KVMediaFile> &, KVTrackQualitySetting) const {
    KVFatalError("arguments(for:withQuality:)");
}

QString KVTrackFormat::codec() const {
    KVFatalError("codec");
}

std::vector<std::shared_ptr<KVOptionRoot>> KVTrackFormat::options(const std::shared_ptr<KVPreset> &) const {
    KVFatalError("options(for:)");
}

void KVCopyTrackFatalError() {
    KVFatalError("ERROR: KVCopyTrack branch");
}
