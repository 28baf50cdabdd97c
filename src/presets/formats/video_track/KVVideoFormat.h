#pragma once

#include "presets/formats/KVTrackFormat.h"
#include "presets/formats/video_track/KVBitrateRange.h"
#include "presets/formats/video_track/KVVideoSizeType.h"
#include "util/KVSizeFitting.h"

#include <limits>
#include <optional>

class KVVideoFile;

/// Base of the video formats: the encoder, the frame rate, a bitrate that follows the size of the picture and
/// the codec's fixed switches. Also decides whether the source's track can be copied instead.
class KVVideoFormat : public KVTrackFormat {
  public:
    struct Resolution {
        qint64 width = 0;
        qint64 height = 0;

        /// Both numbers truncated.
        static Resolution fromSize(const KVSize &size);

        /// What a format answers that has no limit.
        static constexpr Resolution unlimited() {
            return {std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max()};
        }

        bool operator==(const Resolution &) const = default;
    };

    qint64 bitrate = 0;                         ///< The custom bitrate, kilobits per second.
    bool doesNotAllowCustomSize = false;        ///< The device dictates the size.
    double framerate = 0;                       ///< Frames per second; 0 leaves the rate alone.
    qint64 maxBitrate = 0;                      ///< The custom maximum, kilobits per second.
    std::optional<Resolution> targetResolution; ///< The output's size where the preset restricts it.

    /// `file` has to be a video file.
    QStringList arguments(const std::shared_ptr<KVMediaFile> &file,
                          KVTrackQualitySetting quality) const override;
    std::vector<std::shared_ptr<KVOptionRoot>>
    options(const std::shared_ptr<KVPreset> &preset) const override;

    virtual QStringList additionalArguments(const KVVideoFile &file, KVTrackQualitySetting quality) const;
    virtual KVBitrateRange bitrateRange(KVTrackQualitySetting quality) const;
    /// Whether the track that was chosen may pass through unchanged.
    virtual bool canCopyVideoTrack(const KVVideoFile &file, KVTrackQualitySetting quality) const;
    virtual bool canCopyVideoTrackOfFormat(const QString &format) const;
    /// The value of "-r"; nothing keeps the source's rate. A television standard's name is a value too.
    virtual std::optional<QString> framerateText(const KVVideoFile &file,
                                                 KVTrackQualitySetting quality) const;
    virtual KVBitrateRange maxBitrateRange(KVTrackQualitySetting quality) const;
    /// The largest picture that the codec takes.
    virtual Resolution maximumResolution() const { return Resolution::unlimited(); }
    virtual KVVideoSizeType sizeType(const KVVideoFile &file) const;
    virtual bool usesVariableBitrate() const { return false; }

  private:
    static qint64 _bitrateForSizeType(KVVideoSizeType sizeType, const KVBitrateRange &range);
};

using KVVideoFormatClass = KVTrackFormatClass<KVVideoFormat>;
