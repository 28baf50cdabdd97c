#include "conversion/conversions/KVFFmpegReport.h"

#include "kvcore/KVText.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

/// Messages about data that cannot be decoded; a row has the wordings of all versions.
struct ProblemKind {
    QByteArrayView wording;
    QByteArrayView newerWording{};
    bool isLostPacket = false;
};
constexpr std::array<ProblemKind, 9> problemKinds{{
    {"Error while decoding stream #", "Error submitting packet to decoder", true},
    {"Decoding error:"},
    {"corrupt decoded frame"},
    {" errors in "}, // "concealing 256 DC, 256 AC, 256 MV errors in P frame"
    {"error while decoding MB"},
    {"corrupt input packet"},
    {"CRC mismatch!"},
    {"Header missing", {}, true},
    {"invalid as first byte of an EBML number"},
}};

constexpr std::array<QByteArrayView, 3> cutWordings{"partial file", "File ended prematurely",
                                                    "filesize and duration do not match"};

bool has(QByteArrayView line, QByteArrayView wording) {
    return !wording.isEmpty() && line.contains(wording);
}

/// "0:1" of "Stream #0:1(eng): Audio: aac" or "Stream #0:1 -> #0:0 (copy)"
QByteArray streamNumber(QByteArrayView line) {
    const QByteArrayView rest = line.sliced(line.indexOf('#') + 1);
    const auto isPart = [](char character) {
        return (character >= '0' && character <= '9') || character == ':';
    };
    QByteArray number(rest.begin(), std::ranges::find_if_not(rest, isPart) - rest.begin());
    while (number.endsWith(':'))
        number.chop(1);
    return number;
}

} // namespace

void KVFFmpegReport::add(const QByteArray &chunk) {
    qsizetype begin = 0;
    for (qsizetype i = 0; i < chunk.size(); ++i) {
        if (chunk[i] != '\n' && chunk[i] != '\r') continue;
        const QByteArrayView line = QByteArrayView(chunk).sliced(begin, i - begin);
        if (_unfinishedLine.isEmpty()) {
            _addLine(line);
        } else {
            _unfinishedLine += line;
            _addLine(std::exchange(_unfinishedLine, {}));
        }
        begin = i + 1;
    }
    _unfinishedLine += QByteArrayView(chunk).sliced(begin);
}

void KVFFmpegReport::_addLine(QByteArrayView line) {
    if (isStatusLine(line)) {
        _statusLine = line.toByteArray();
        return;
    }
    _noteSection(line);
    _noteProblem(line);
    if (line.startsWith("video:") || line.contains("] video:")) _noteSummary(line);
    if (line.startsWith("Output file is empty") || line.contains("] Output file is empty"))
        _isResultEmpty = true;
}

bool KVFFmpegReport::isStatusLine(QByteArrayView line) {
    return line.startsWith("frame=") || line.startsWith("size=");
}

void KVFFmpegReport::_noteSection(QByteArrayView line) {
    if (line.startsWith("Input #")) _section = Section::input;
    if (line.startsWith("Output #")) _section = Section::output;
    if (line.startsWith("Stream mapping:"))
        _section = Section::mapping;
    else if (_section == Section::mapping && !line.startsWith("  "))
        _section = Section::conversion;

    if (line.startsWith("  Stream #")) _noteStream(line);
    const bool isInput = _section == Section::beforeInputs || _section == Section::input;
    if (isInput && (line.startsWith("  Duration: N/A") || line.contains("Estimating duration from bitrate")))
        _isDurationEstimated = true;
}

void KVFFmpegReport::_noteStream(QByteArrayView line) {
    if (_section == Section::input) ++_numberOfStreams;
    if (_section == Section::mapping) _usedStreams.insert(streamNumber(line));
}

void KVFFmpegReport::_noteProblem(QByteArrayView line) {
    static constexpr QByteArrayView repetition = "Last message repeated ";
    int count = 1;
    if (const auto found = line.indexOf(repetition); found >= 0) {
        count = static_cast<int>(
            KVText::integerValue(QString::fromLatin1(line.sliced(found + repetition.size()).toByteArray())));
    } else {
        for (std::size_t i = 0; i < problemKinds.size(); ++i)
            _isInLastMessage.at(i) =
                has(line, problemKinds.at(i).wording) || has(line, problemKinds.at(i).newerWording);
        _isSourceCut =
            _isSourceCut || std::ranges::any_of(cutWordings, [&](auto cut) { return has(line, cut); });
    }
    // While the sources are examined the decoders see the same data that they see again later.
    if (_section == Section::beforeInputs || _section == Section::input) return;
    for (std::size_t i = 0; i < problemKinds.size(); ++i)
        if (_isInLastMessage.at(i)) _problems.at(i) += count;
}

/// "video:0kB audio:188kB subtitle:0kB other streams:0kB global headers:0kB muxing overhead: 0.13%"
void KVFFmpegReport::_noteSummary(QByteArrayView line) {
    static const QRegularExpression sizes(
        QStringLiteral("video:(\\d+)Ki?B audio:(\\d+)Ki?B subtitle:(\\d+)Ki?B other streams:(\\d+)Ki?B"),
        QRegularExpression::CaseInsensitiveOption);
    const QString text = QString::fromLatin1(line.data(), line.size());
    const auto match = sizes.match(text);
    if (!match.hasMatch()) return;
    _written = {match.captured(1).toLongLong(), match.captured(2).toLongLong(),
                match.captured(3).toLongLong(), match.captured(4).toLongLong()};
    const qint64 sum = _written->video + _written->audio + _written->subtitles + _written->other;
    // Less than half a kilobyte is rounded to 0, but its share of the file is known.
    if (sum == 0 && text.contains(QStringLiteral("muxing overhead: unknown"))) _isResultEmpty = true;
}

int KVFFmpegReport::damagedPlaces() const {
    return *std::ranges::max_element(_problems);
}

bool KVFFmpegReport::isOnePacketLost() const {
    int others = 0;
    for (std::size_t i = 0; i < _problems.size(); ++i)
        if (!problemKinds.at(i).isLostPacket) others += _problems.at(i);
    return damagedPlaces() == 1 && others == 0 && !_isSourceCut;
}

bool KVFFmpegReport::leavesStreamsOut() const {
    return _usedStreams.size() < _numberOfStreams;
}

std::optional<double> KVFFmpegReport::position() const {
    return positionInStatusLine(QString::fromLatin1(_statusLine));
}

std::optional<double> KVFFmpegReport::positionInStatusLine(QStringView line) {
    constexpr QStringView marker = u"time=";
    const qsizetype found = line.indexOf(marker);
    if (found < 0) return std::nullopt;
    const qsizetype begin = found + marker.size();
    const qsizetype end = line.indexOf(marker, begin);
    const QStringView time = line.sliced(begin, (end < 0 ? line.size() : end) - begin);
    const auto parts = time.split(u':');
    if (parts.size() < 3) return std::nullopt;
    return KVText::doubleValue(parts[0]) * 3600 + KVText::doubleValue(parts[1]) * 60 +
           KVText::doubleValue(parts[2]);
}
