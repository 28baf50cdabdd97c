#pragma once

#include "presets/KVPreset.h"

/// The names that the output of a conversion may get, in the order in which they are tried: the proposed one,
/// then with the preset's name and a counter ("clip.mp4", "clip.MP4.00.mp4", "clip.MP4.01.mp4" and so on,
/// without a limit). Touches no file.
///
/// A name that the file system would refuse as too long loses the end of its first part, so that a source
/// with a very long name can still be converted beside itself.
class KVOutputNames {
  public:
    /// Where the preset writes these files, which are not empty. Nothing where there is no destination.
    static std::optional<KVOutputNames>
    forFiles(const KVMediaFileList &files, const std::optional<QUrl> &destination, const KVPreset &preset);

    /// The same for a new folder and the last path component of `output`.
    KVOutputNames inFolder(const QUrl &folder, const QUrl &output) const;

    /// 0 is the proposed name.
    QUrl candidate(int attempt) const;

  private:
    KVOutputNames(const QUrl &proposed, const QString &extension, const QString &presetName)
        : _proposed(proposed)
        , _extension(extension)
        , _presetName(presetName) {}

    QUrl _proposed;
    QString _extension; ///< Behind the counter; may be empty.
    QString _presetName;
};
