#pragma once

#include "presets/video/variable_bitrate/KVDeviceTable.h"
#include "presets/video/variable_bitrate/KViProductPreset.h"

/// A device that answers by its row and otherwise as `Base`, which may be another device.
template <class Base, const KVDeviceRow &row>
class KVDevicePreset : public Base {
  public:
    QString defaultName() const override { return row.name; }
    qint64 maxHeight() const override { return _limits().height; }
    qint64 maxWidth() const override { return _limits().width; }
    qint64 defaultVideoBitrate() const override { return row.bitrate; }
    qint64 defaultVideoMaxBitrate() const override { return row.maxBitrate; }
    bool deviceSupportsSurroundSound() const override { return row.supportsSurroundSound; }
    double bitrateMultiplier() const override { return row.bitrateMultiplier; }
    KVH264Format::Profile profile() const override { return row.profile; }
    qint64 level() const override { return row.level; }
    qint64 qmax() const override { return _quantizers().maximum; }
    qint64 qmin() const override { return _quantizers().minimum; }

    std::unique_ptr<KVVideoFormat> videoFormat() const override {
        auto format = Base::videoFormat();
        if (auto *h264 = dynamic_cast<KVH264Format *>(format.get())) {
            h264->meMethod = row.motionSearch.method;
            h264->meRange = row.motionSearch.range;
        }
        return format;
    }

  private:
    const KVDeviceRow::Resolution &_limits() const { return this->usesH264() ? row.limits : row.mpeg4Limits; }
    const KVDeviceRow::Quantizers &_quantizers() const {
        return this->usesH264() ? row.quantizers : row.mpeg4Quantizers;
    }
};
