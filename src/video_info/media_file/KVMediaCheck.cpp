#include "video_info/media_file/KVMediaCheck.h"

#include "kvcore/KVLog.h"
#include "tasks/KVFFmpegDialect.h"
#include "tasks/KVFFmpegTask.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

/// One box of an MP4. Positions are bytes from the beginning of the file.
struct Box {
    QByteArray type;
    qint64 content = 0;
    qint64 end = 0;
};

constexpr std::array boxesOnTheWay{"moov", "trak", "mdia", "minf", "stbl", "stsd"};
constexpr std::array encryptedEntries{"encv", "enca", "enct", "encs", "encu", "drmi", "drms"};

bool isOneOf(const auto &names, const QByteArray &type) {
    return std::ranges::find(names, type, [](const char *name) { return QByteArrayView(name); }) !=
           names.end();
}

/// The box at `position`; empty if there is none before `end`.
std::optional<Box> boxAt(QFile &file, qint64 position, qint64 end) {
    constexpr qint64 headerSize = 8, longHeaderSize = 16;
    if (position + headerSize > end || !file.seek(position)) return std::nullopt;
    const QByteArray header = file.read(longHeaderSize);
    if (header.size() < headerSize) return std::nullopt;
    qint64 size = qFromBigEndian<quint32>(header.constData());
    qint64 content = position + headerSize;
    if (size == 1 && header.size() == longHeaderSize) {
        size = qFromBigEndian<qint64>(header.constData() + headerSize);
        content = position + longHeaderSize;
    } else if (size == 0) {
        size = end - position; // to the end of the file
    }
    if (size < content - position || size > end - position) return std::nullopt;
    return Box{header.mid(4, 4), content, position + size};
}

/// Whether a sample entry among the boxes from `position` to `end`, or inside of them, is an encrypted one.
bool hasEncryptedEntry(QFile &file, qint64 position, qint64 end) {
    while (const auto box = boxAt(file, position, end)) {
        constexpr qint64 stsdHeaderSize = 8; // a version and the number of entries
        if (isOneOf(encryptedEntries, box->type)) return true;
        const qint64 content = box->content + (box->type == "stsd" ? stsdHeaderSize : 0);
        if (isOneOf(boxesOnTheWay, box->type) && hasEncryptedEntry(file, content, box->end)) return true;
        position = box->end;
    }
    return false;
}

/// Whether ffmpeg decodes a second at `offset` without an error.
bool isDecodable(const QUrl &url, double offset, const std::stop_token &stop) {
    const auto task = KVFFmpegTask::create({"-loglevel", "error", "-ss", QString::number(offset, 'f', 2),
                                            "-i", url.toLocalFile(), "-t", "1", "-f", "null", "-"});
    if (!task) return true;
    const QByteArray errors = (*task)->launchAndGetAllOutputData(stop);
    if (!errors.isEmpty()) KVLog("Not decodable: " + KVFFmpegDialect::textFromTool(errors.left(500)));
    return errors.isEmpty();
}

} // namespace

bool KVMediaCheck::hasMediaData(const QUrl &url, const std::stop_token &stop) {
    const auto task = KVFFmpegTask::create({"-loglevel", "quiet", "-i", url.toLocalFile(), "-c", "copy",
                                            "-frames:v", "1", "-frames:a", "1", "-f", "framecrc", "-"});
    if (!task) return true;
    (*task)->setUsesStandardOutput(true);
    const QByteArray output = (*task)->launchAndGetAllOutputData(stop);
    if ((*task)->launchError()) return true;
    // One line for each packet; lines that begin with "#" are the header. Without it the track cannot be
    // copied this way, which says nothing about its data.
    const auto lines = output.split('\n');
    return !output.startsWith('#') || std::ranges::any_of(lines, [](const QByteArray &line) {
        return !line.isEmpty() && !line.startsWith('#');
    });
}

bool KVMediaCheck::hasMP4Header(const QUrl &url) {
    QFile file(url.toLocalFile());
    if (!file.open(QFile::ReadOnly)) return false;
    constexpr int sizeOfHeader = 8; // a size, then the name of the first box
    const QByteArray name = file.read(sizeOfHeader).mid(4);
    static const QList<QByteArray> names{"ftyp", "mdat", "moov", "free", "skip", "wide", "pnot", "styp"};
    return names.contains(name);
}

bool KVMediaCheck::declaresEncryption(const QUrl &url) {
    QFile file(url.toLocalFile());
    return file.open(QIODevice::ReadOnly) && hasEncryptedEntry(file, 0, file.size());
}

bool KVMediaCheck::isEncrypted(const QUrl &url, double seconds, const std::stop_token &stop) {
    constexpr double shortest = 2;
    return !isDecodable(url, 0, stop) || (seconds > shortest && !isDecodable(url, seconds / 2, stop));
}
