#pragma once

#include "presets/formats/video_track/KVVideoFormat.h"

/// H.264: a whole encoder profile, since every device needs its own set of parameters. The one format with a
/// variable bitrate.
class KVH264Format : public KVVideoFormat {
  public:
    enum class Profile { baseline, main, high };

    QStringList additionalH264Options; ///< Behind all other arguments.
    double bitrateMultiplier = 1.0;    ///< Scales all bitrates, the custom ones too.
    QString coder = QStringLiteral("0");
    QString flags = QStringLiteral("+loop");
    qint64 groupOfPictureSize = 250;
    bool isHardwareAccelerationEnabled = true;
    qint64 level = 0; ///< 31 means level 3.1.
    QString meMethod = QStringLiteral("umh");
    qint64 meRange = 7;
    qint64 numberOfBFrames = 0;
    Profile profile = Profile::baseline;
    qint64 qmax = 0;
    qint64 qmin = 0;
    qint64 quantizerDifferenceBetweenFrames = 0; ///< Not written where it is 0.
    qint64 references = 1;
    qint64 trellis = 2;

    QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const override;
    KVBitrateRange bitrateRange(KVTrackQualitySetting quality) const override;
    bool canCopyVideoTrackOfFormat(const QString &format) const override;
    QString codec() const override;
    KVBitrateRange maxBitrateRange(KVTrackQualitySetting quality) const override;
    Resolution maximumResolution() const override { return {4096, 2048}; }
    bool usesVariableBitrate() const override { return true; }

    /// "baseline", "main" or "high".
    static QString nameOfProfile(Profile profile);

  private:
    KVBitrateRange _multiplied(const KVBitrateRange &range) const;
};
