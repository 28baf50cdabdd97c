#pragma once

#include <QUrl>

#include <atomic>
#include <optional>

class KVConsole;

/// Says, as long as it lives, which subtitles a video is converted without.
class KVLostSubtitles {
  public:
    /// `chosen` are those of the command line: the others are only offered by their place beside a video.
    KVLostSubtitles(KVConsole &console, const std::optional<QUrl> &chosen);
    ~KVLostSubtitles();
    KVLostSubtitles(const KVLostSubtitles &) = delete;
    KVLostSubtitles &operator=(const KVLostSubtitles &) = delete;

    /// True if what was asked for is missing.
    bool haveChosen() const { return _haveChosen; }

  private:
    std::atomic<bool> _haveChosen = false;
};
