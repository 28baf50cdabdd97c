#pragma once

#include <QtGlobal>

/// What the size option needs of a preset whose output size can be limited. Sizes are pixels.
class KVSizeRestrictedPreset {
  public:
    virtual ~KVSizeRestrictedPreset() = default;

    virtual bool hasSizeConstrains() const = 0;
    virtual void setHasSizeConstrains(bool hasSizeConstrains) = 0;
    virtual qint64 maxWidth() const = 0;
    virtual void setMaxWidth(qint64 maxWidth) = 0;
    virtual qint64 maxHeight() const = 0;
    virtual void setMaxHeight(qint64 maxHeight) = 0;
    virtual bool allowsScalingUp() const = 0;
    virtual void setAllowsScalingUp(bool allowsScalingUp) = 0;
};
