#include "video_info/media_file/KVWaveHeader.h"

#include <QFile>
#include <QtEndian>

namespace {

quint32 number(const QByteArray &bytes, qsizetype at) {
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

} // namespace

std::optional<double> KVWaveHeader::statedSeconds(const QString &path) {
    constexpr quint32 smallestOpenLength = 0x7FFF0000; // programs that write to a pipe put such a number
    constexpr int mostChunks = 64;
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return std::nullopt;
    const QByteArray start = file.read(12);
    if (start.size() < 12 || !start.startsWith("RIFF") || start.sliced(8) != "WAVE") return std::nullopt;

    quint32 bytesPerSecond = 0;
    for (int i = 0; i < mostChunks; ++i) {
        const QByteArray head = file.read(8);
        if (head.size() < 8) return std::nullopt;
        const quint32 length = number(head, 4);
        if (head.startsWith("data")) {
            const bool isWhole = file.pos() + qint64{length} <= file.size();
            if (isWhole || length >= smallestOpenLength || bytesPerSecond == 0) return std::nullopt;
            return static_cast<double>(length) / bytesPerSecond;
        }
        const qint64 next = file.pos() + length + length % 2;
        if (head.startsWith("fmt ")) {
            const QByteArray format = file.read(12);
            if (format.size() < 12) return std::nullopt;
            bytesPerSecond = number(format, 8);
        }
        if (!file.seek(next)) return std::nullopt;
    }
    return std::nullopt;
}
