#pragma once

#include <QUrl>

#include <memory>
#include <optional>

class KVPreset;

/// What a conversion needs of the queue that owns it.
class KVConversionHost {
  public:
    virtual ~KVConversionHost() = default;
    /// Fixed output folder; absent when output goes next to the source.
    virtual std::optional<QUrl> outputDirectoryURL() const = 0;
    virtual std::shared_ptr<KVPreset> selectedPreset() const = 0;
};
