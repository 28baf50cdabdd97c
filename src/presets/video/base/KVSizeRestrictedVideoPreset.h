#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/KVSizeRestrictedPreset.h"
#include "presets/video/base/KVVideoPreset.h"

struct KVVideoTrack;

/// Base of the presets that decide the size of the output: by the limits of a person, of a device or of the
/// codec. The size is always even. A preset with fixed limits overrides the getters, and what is stored has
/// no effect.
class KVSizeRestrictedVideoPreset : public KVPresetWithFields<KVSizeRestrictedVideoPreset, KVVideoPreset>,
                                    public KVSizeRestrictedPreset {
  public:
    bool hasSizeConstrains() const override { return KVVideoPreset::hasSizeConstrains(); }
    void setHasSizeConstrains(bool hasSizeConstrains) override {
        KVVideoPreset::setHasSizeConstrains(hasSizeConstrains);
    }
    qint64 maxHeight() const override { return _maxHeight; } ///< Pixels.
    void setMaxHeight(qint64 maxHeight) override { _maxHeight = maxHeight; }
    qint64 maxWidth() const override { return _maxWidth; } ///< Pixels.
    void setMaxWidth(qint64 maxWidth) override { _maxWidth = maxWidth; }
    bool allowsScalingUp() const override { return KVVideoPreset::allowsScalingUp(); }
    void setAllowsScalingUp(bool allowsScalingUp) override {
        KVVideoPreset::setAllowsScalingUp(allowsScalingUp);
    }

    bool canCopyVideoTrack(const KVVideoFile &file) const override;
    static const KVPresetFields<KVSizeRestrictedVideoPreset> &fields();
    QStringList sizeArguments(const KVVideoFile &file, bool allowCopying) const override;
    KVSize size(const KVVideoFile &file) const override;
    std::unique_ptr<KVVideoFormat> videoFormat() const override;

  protected:
    KVSizeRestrictedVideoPreset() = default;

    KVOptionList _additionalOptions() override;
    std::shared_ptr<KVOptionRoot> _sizeOption();

  private:
    bool _exceedsLimits(const KVVideoTrack &track) const;
    /// The limits of the codec and of the preset together; nothing where there are none.
    std::optional<KVVideoFormat::Resolution> _limits() const;

    qint64 _maxHeight = 0;
    qint64 _maxWidth = 0;
};
