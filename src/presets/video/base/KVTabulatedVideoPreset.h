#pragma once

#include "kvcore/KVLocalizationCenter.h"
#include "presets/video/base/KVSizeRestrictedVideoPreset.h"
#include "presets/video/base/KVVideoPresetRow.h"

/// A preset that answers by its row.
template <const KVVideoPresetRow &row>
class KVTabulatedVideoPreset : public KVSizeRestrictedVideoPreset {
  public:
    KVAudioFormatClass audioFormatClass() const override { return row.audioFormatClass; }
    KVVideoFormatClass videoFormatClass() const override { return row.videoFormatClass; }
    QString defaultName() const override { return KVLocalizationCenter::localized(row.defaultName); }
    std::optional<QString> pathExtension() const override { return QString(row.pathExtension); }
    std::optional<QString> fileType() const override {
        return row.fileType ? std::optional(QString(row.fileType)) : std::nullopt;
    }

    qint64 defaultVideoBitrate() const override { return row.videoBitrate; }
    qint64 defaultVideoMaxBitrate() const override { return row.videoMaxBitrate; }
    qint64 defaultAudioBitrate() const override { return row.audioBitrate; }
    bool supportsMultithreadConversion() const override { return row.threads > 0; }

    bool supportsSubtitleMuxing() const override { return row.subtitleFormat; }
    QString defaultSubtitleFormat() const override {
        return row.subtitleFormat ? QString(row.subtitleFormat) : KVVideoPreset::defaultSubtitleFormat();
    }

    // Fixed limits hold, whatever is stored.
    bool hasSizeConstrains() const override {
        return row.limits || KVSizeRestrictedVideoPreset::hasSizeConstrains();
    }
    qint64 maxHeight() const override {
        return row.limits ? row.limits->height : KVSizeRestrictedVideoPreset::maxHeight();
    }
    qint64 maxWidth() const override {
        return row.limits ? row.limits->width : KVSizeRestrictedVideoPreset::maxWidth();
    }

    QString localizedFormatDescription() const override {
        if (!row.limits) return KVLocalizationCenter::localized(row.description);
        return KVLocalizationCenter::localized(row.description, {row.limits->width, row.limits->height});
    }

  protected:
    KVTabulatedVideoPreset() = default;

    int _maximumThreadCount() const override { return row.threads; }
};
