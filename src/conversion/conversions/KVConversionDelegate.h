#pragma once

#include <memory>

class KVConversion;

/// Told about one conversion. The first two come on the thread that made the change (the main thread in
/// practice), the others on the main thread.
class KVConversionDelegate {
  public:
    virtual ~KVConversionDelegate() = default;
    virtual void conversionDidChangePreset(const std::shared_ptr<KVConversion> &) {}
    virtual void conversionDidUpdateFiles(const std::shared_ptr<KVConversion> &) {}
    virtual void conversionDidFinishExecuting(const std::shared_ptr<KVConversion> &) {}
    virtual void conversionWillStartExecuting(const std::shared_ptr<KVConversion> &) {}
    virtual void conversionDidPause(const std::shared_ptr<KVConversion> &) {}
    virtual void conversionDidResume(const std::shared_ptr<KVConversion> &) {}
    /// `progress` is of the whole conversion, usually from 0 to 1; nothing clamps it.
    virtual void conversionDidReachProgress(const std::shared_ptr<KVConversion> &, double progress) {
        (void)progress;
    }
};
