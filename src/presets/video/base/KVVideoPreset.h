#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/audio/base/KVBitrateAudioPreset.h"
#include "presets/formats/video_track/KVVideoFormat.h"
#include "presets/settings/KVOptionRoot.h"
#include "util/KVSizeFitting.h"

struct KVSubtitleTrack;
class KVVideoFile;

using KVVideoFileList = QList<std::shared_ptr<KVVideoFile>>;

/// Base of every preset that writes a video. It builds the whole argument list; a concrete preset answers the
/// questions that the list asks.
class KVVideoPreset : public KVPresetWithFields<KVVideoPreset, KVBitrateAudioPreset> {
  public:
    qint64 bitrate = 0; ///< Kilobits per second, for custom quality; 0 means the default.
    bool burnSubtitlesIntoVideo = false;
    bool copySubtitles = true; ///< Not persisted.
    bool deinterlaceVideo = false;
    double framerate = 0; ///< Frames per second; 0 means the default.
    bool includeStereoTrack = false;
    qint64 maxBitrate = 0; ///< As `bitrate`.
    KVTrackQualitySetting videoTrackQuality = KVTrackQualitySetting::medium;

    bool allowsScalingUp() const { return _allowsScalingUp; }
    void setAllowsScalingUp(bool allowsScalingUp) { _allowsScalingUp = allowsScalingUp; }
    virtual bool hasSizeConstrains() const { return _hasSizeConstrains; }
    virtual void setHasSizeConstrains(bool hasSizeConstrains) { _hasSizeConstrains = hasSizeConstrains; }

    /// What carries the file's own subtitles; nothing leaves them to the tool.
    virtual QStringList argumentsForSubtitles(const KVVideoFile &file) const;
    virtual bool canCopySubtitleTrack(const KVSubtitleTrack &track) const;
    virtual bool canCopyVideoTrack(const KVVideoFile &file) const;
    virtual qint64 defaultVideoBitrate() const { return 800; }
    virtual qint64 defaultVideoMaxBitrate() const { return 1200; }
    virtual double defaultFramerate() const { return 0; }
    /// The encoder of subtitles; a preset that muxes them has one.
    virtual QString defaultSubtitleFormat() const;
    virtual bool requiresEvenSizeValues() const { return false; }
    /// What states the size of the output; nothing where the track would be copied and that is allowed.
    virtual QStringList sizeArguments(const KVVideoFile &file, bool allowCopying) const;
    /// The size of the output.
    virtual KVSize size(const KVVideoFile &file) const;
    virtual bool supportsSubtitleMuxing() const { return false; }
    /// A new format with this preset's settings.
    virtual std::unique_ptr<KVVideoFormat> videoFormat() const;
    virtual KVVideoFormatClass videoFormatClass() const;

    static const KVPresetFields<KVVideoPreset> &fields();
    KVMediaFileType presetType() const override { return KVMediaFileType::video; }
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return true; }
    QString refusalOfFiles(const KVMediaFileList &files) const override;
    QStringList taskArgumentsForFiles(const KVMediaFileList &files, const QUrl &outputFile) const override;
    std::optional<QString> threadCountArgument() const override;
    QStringList warningsForFiles(const KVMediaFileList &files) const override;

    /// The end of every list: ample queues, the source's chapters and metadata.
    static QStringList closingArguments(const QUrl &outputFile);

  protected:
    KVVideoPreset() = default;

    /// The options that are always shown, behind the copying of subtitles.
    virtual KVOptionList _additionalOptions();
    virtual int _maximumThreadCount() const { return 16; }
    /// Whether a copy of the video track would not be shown upright: the source says that it is rotated, and
    /// the container of the output cannot say so.
    bool _losesRotation(const KVVideoFile &file) const;

  private:
    struct SubtitleArguments;
    struct AudioArguments;

    QStringList _stitchingArguments(const KVVideoFileList &files, const KVVideoFile &reference) const;
    SubtitleArguments _subtitleArguments(const KVVideoFile &file) const;
    QStringList _videoArguments(const KVVideoFileList &files,
                                const std::shared_ptr<KVVideoFile> &reference) const;
    AudioArguments _audioArguments(const std::shared_ptr<KVVideoFile> &file) const;
    bool _addsStereoTrack(const KVVideoFile &file) const;

    bool _allowsScalingUp = false;
    bool _hasSizeConstrains = false;
};
