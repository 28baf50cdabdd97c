#pragma once

#include "video_info/tracks/KVAudioTrack.h"

#include <QList>

#include <optional>

/// Which of several audio tracks the user chose in one file, in a form that other files can follow.
class KVAudioTrackChoice {
  public:
    /// The user skipped the file.
    static KVAudioTrackChoice skip() { return {}; }
    /// The track at `index` of `tracks`.
    KVAudioTrackChoice(const QList<KVAudioTrack> &tracks, qsizetype index);

    bool isSkip() const { return !_position; }

    /// The index of the track that fits the choice: the one of the same language, at the same position if
    /// there are several of that language. If this file or the chosen track names no language, the position
    /// decides. Empty if no track fits, and after a skip.
    std::optional<qsizetype> indexIn(const QList<KVAudioTrack> &tracks) const;

    /// The language that the track names ("eng"); empty if it names none.
    static QString languageOf(const KVAudioTrack &track);

  private:
    KVAudioTrackChoice() = default;

    QString _language;
    std::optional<qsizetype> _position;
};
