#pragma once

#include "presets/formats/video_track/KVVideoFormat.h"
#include "presets/formats/video_track/static_bitrate/KVVideoCodecTable.h"

/// A format that is described by its row of the codec table.
class KVStaticBitrateFormat : public KVVideoFormat {
  public:
    KVBitrateRange bitrateRange(KVTrackQualitySetting quality) const override;
    bool canCopyVideoTrackOfFormat(const QString &format) const override;
    QString codec() const override;
    KVBitrateRange maxBitrateRange(KVTrackQualitySetting quality) const override;

  protected:
    explicit KVStaticBitrateFormat(const KVVideoCodecRow &row)
        : _row(row) {}

  private:
    const KVVideoCodecRow &_row;
};
