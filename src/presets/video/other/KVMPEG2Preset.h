#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

/// MPEG-2, in any size; a subclass may keep to the raster of television.
class KVMPEG2Preset : public KVTabulatedVideoPreset<KVVideoPresetTable::mpeg2> {
  public:
    /// False fits the picture into the raster of the standard that the rate or the preference names.
    virtual bool allowsArbitrarySizes() const { return true; }
    /// By the preset's rate; where that names no standard of television, by the preference.
    bool isNTSC() const;

    qint64 maxHeight() const override;
    qint64 maxWidth() const override;
    QStringList sizeArguments(const KVVideoFile &file, bool allowCopying) const override;
    KVSize size(const KVVideoFile &file) const override;

  private:
    /// Lines of the raster.
    qint64 _rasterHeight() const;
};
