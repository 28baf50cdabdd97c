#pragma once

#include "presets/video/variable_bitrate/KVMP4Preset.h"

/// MP4 for streaming. Since it can stitch, a conversion takes the list of MP4 and writes one file; the
/// segmented list is for a caller that asks for the list of a single file.
class KVHTTPLiveStreamingPreset : public KVMP4Preset {
  public:
    KVH264Format::Profile profile() const override { return KVH264Format::Profile::baseline; }

    QString defaultName() const override;
    QString localizedFormatDescription() const override;
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;

    /// Turns a list that writes one MP4 file into one that writes segments and their index into a folder
    /// beside it, which is created. An empty list is a programming error.
    static QStringList segmentedArguments(QStringList arguments);
};
