#pragma once

#include "video_info/media_file/KVAudioFile.h"

#include <QSize>
#include <QStringList>

#include <memory>
#include <optional>

/// What the result of a conversion has to be, worked out from the sources and the arguments. A plain value.
struct KVResultPlan {
    /// Seconds; 0 if the sources do not say.
    double seconds = 0;
    /// True if the duration is one that a source states although it holds less.
    bool isSourceCut = false;
    int videoTracks = 0; ///< At least so many.
    int audioTracks = 0;
    int subtitleTracks = 0;
    std::optional<QSize> pictureSize; ///< Pixels; empty if the arguments say none.
    /// The codec of a picture that is copied ("h264"); empty if it is encoded.
    QString copiedPicture;
    /// The sources, in the order of the inputs.
    QStringList inputs;

    /// `arguments` are those of the conversion of `files`; files that are no input do not count.
    static KVResultPlan forFiles(const QList<std::shared_ptr<KVAudioFile>> &files,
                                 const QStringList &arguments);

    bool operator==(const KVResultPlan &) const = default;
};
