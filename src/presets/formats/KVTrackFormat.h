#pragma once

#include "presets/formats/KVTrackQualitySetting.h"

#include <QStringList>

#include <memory>
#include <vector>

class KVMediaFile;
class KVOptionRoot;
class KVPreset;

/// Makes the converter's arguments for one track and describes the settings of it that a person may change.
/// An object is made for one argument list or one settings view, filled in by its preset and dropped.
class KVTrackFormat {
  public:
    KVTrackFormat() = default;
    virtual ~KVTrackFormat() = default;
    KVTrackFormat(const KVTrackFormat &) = delete;
    KVTrackFormat &operator=(const KVTrackFormat &) = delete;

    virtual QStringList arguments(const std::shared_ptr<KVMediaFile> &file,
                                  KVTrackQualitySetting quality) const;
    /// The encoder's name.
    virtual QString codec() const;
    /// The options edit `preset` and keep it alive.
    virtual std::vector<std::shared_ptr<KVOptionRoot>> options(const std::shared_ptr<KVPreset> &preset) const;
};

/// A class of formats as a value, so that a preset can answer which one it uses:
/// `KVTrackFormatClass<KVAudioFormat>::of<KVMP3Format>()`.
template <class Format>
struct KVTrackFormatClass {
    /// A new instance with its field defaults.
    std::unique_ptr<Format> (*make)();

    template <class Leaf>
    static constexpr KVTrackFormatClass of() {
        return {[]() -> std::unique_ptr<Format> { return std::make_unique<Leaf>(); }};
    }
};

/// A quality out of which nothing can be computed, since the track is copied: a programming error.
[[noreturn]] void KVCopyTrackFatalError();
