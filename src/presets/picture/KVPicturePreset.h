#pragma once

#include "kvcore/KVError.h"
#include "presets/KVPercentScalablePreset.h"
#include "presets/KVPreset.h"
#include "presets/KVPresetWithFields.h"
#include "presets/KVSizeRestrictedPreset.h"
#include "util/KVSizeFitting.h"

#include <stop_token>

class KVPictureFile;

/// Base of the presets that convert still pictures within the program. Decides the size of the result.
class KVPicturePreset : public KVPresetWithFields<KVPicturePreset, KVPreset>,
                        public KVSizeRestrictedPreset,
                        public KVPercentScalablePreset {
  public:
    bool hasPercentageScaling = false;

    bool hasSizeConstrains() const override { return _hasSizeConstrains; }
    void setHasSizeConstrains(bool hasSizeConstrains) override { _hasSizeConstrains = hasSizeConstrains; }
    qint64 maxWidth() const override { return _maxWidth; }
    void setMaxWidth(qint64 maxWidth) override { _maxWidth = maxWidth; }
    qint64 maxHeight() const override { return _maxHeight; }
    void setMaxHeight(qint64 maxHeight) override { _maxHeight = maxHeight; }
    bool allowsScalingUp() const override { return _allowsScalingUp; }
    void setAllowsScalingUp(bool allowsScalingUp) override { _allowsScalingUp = allowsScalingUp; }
    qint64 scalingPercentage() const override { return _scalingPercentage; }
    void setScalingPercentage(qint64 percentage) override { _scalingPercentage = percentage; }

    /// Converts the file into a new one in the folder `toURL` and answers that, or why there is none; then
    /// nothing is left behind. Blocks until it is done or, soon, `stop` is requested; any thread.
    virtual KVResult<QUrl> convertPictureFile(const std::shared_ptr<KVPictureFile> &file, const QUrl &toURL,
                                              const std::stop_token &stop) const;

    /// What becomes of a picture of this size: the percentage first, then the limits.
    KVSize scaledSize(const KVSize &size) const;

    static const KVPresetFields<KVPicturePreset> &fields();
    KVMediaFileType presetType() const override { return KVMediaFileType::picture; }

  protected:
    KVPicturePreset() = default;

    /// This preset as the class that edits it.
    template <class Preset>
    std::shared_ptr<Preset> _shared() {
        return std::static_pointer_cast<Preset>(shared_from_this());
    }

  private:
    KVSize _sizeByPercentage(const KVSize &size) const;
    KVSize _sizeWithinLimits(const KVSize &size) const;

    bool _allowsScalingUp = false;
    bool _hasSizeConstrains = false;
    qint64 _maxHeight = 0;         ///< Pixels.
    qint64 _maxWidth = 0;          ///< Pixels.
    qint64 _scalingPercentage = 0; ///< 1 to 1999; anything else leaves the picture as it is.
};
