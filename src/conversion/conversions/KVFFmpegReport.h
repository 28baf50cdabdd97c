#pragma once

#include <QByteArray>
#include <QSet>
#include <QStringView>

#include <array>
#include <cstddef>
#include <optional>

/// What the messages of a running `ffmpeg` say about the source and the result. The messages are added as
/// they come; they may be cut anywhere and need not be valid text. Used by one thread.
class KVFFmpegReport {
  public:
    /// Kilobytes that were written, rounded.
    struct Written {
        qint64 video = 0;
        qint64 audio = 0;
        qint64 subtitles = 0;
        qint64 other = 0;
    };

    void add(const QByteArray &chunk);

    /// The number of places at which the source could not be decoded. One damaged place can cause several
    /// kinds of messages, so the most frequent kind gives the number.
    int damagedPlaces() const;
    /// True if all that went wrong is that a single packet could not be decoded. In sound that means little:
    /// tags and padding at the end of a file are often taken for a packet.
    bool isOnePacketLost() const;
    /// True if a source ends before its own header says.
    bool isSourceCut() const { return _isSourceCut; }
    /// True if the duration of a source is unknown or only estimated from its size.
    bool isDurationEstimated() const { return _isDurationEstimated; }
    /// True if not all streams of the sources are used.
    bool leavesStreamsOut() const;
    /// True if not a single packet was written.
    bool isResultEmpty() const { return _isResultEmpty; }
    /// What was written; empty if `ffmpeg` did not report it.
    const std::optional<Written> &written() const { return _written; }
    /// The position in the result, in seconds, that was reported last.
    std::optional<double> position() const;

    /// The position in seconds in a status line; empty if there is none.
    static std::optional<double> positionInStatusLine(QStringView line);
    static bool isStatusLine(QByteArrayView line);

  private:
    enum class Section { beforeInputs, input, output, mapping, conversion };
    static constexpr std::size_t numberOfKinds = 9;

    void _addLine(QByteArrayView line);
    void _noteSection(QByteArrayView line);
    void _noteStream(QByteArrayView line);
    void _noteProblem(QByteArrayView line);
    void _noteSummary(QByteArrayView line);

    Section _section = Section::beforeInputs;
    QByteArray _unfinishedLine;
    QByteArray _statusLine; ///< The last one.
    std::array<int, numberOfKinds> _problems{};
    std::array<bool, numberOfKinds> _isInLastMessage{};
    QSet<QByteArray> _usedStreams; ///< "0:1"
    qsizetype _numberOfStreams = 0;
    bool _isSourceCut = false;
    bool _isDurationEstimated = false;
    bool _isResultEmpty = false;
    std::optional<Written> _written;
};
