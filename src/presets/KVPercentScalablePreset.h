#pragma once

#include <QtGlobal>

/// What the percentage option needs of a preset whose output can be scaled.
class KVPercentScalablePreset {
  public:
    virtual ~KVPercentScalablePreset() = default;

    virtual qint64 scalingPercentage() const = 0;
    virtual void setScalingPercentage(qint64 scalingPercentage) = 0;
};
