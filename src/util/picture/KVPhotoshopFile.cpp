#include "util/picture/KVPhotoshopFile.h"

#include <optional>

namespace {

enum PackingOfRows : quint16 { raw = 0, runLength = 1 };

/// Reads numbers one after the other; absent from the end of the file on.
class Reader {
  public:
    explicit Reader(const QByteArray &content)
        : _content(content) {}

    std::optional<quint64> number(int bytes) {
        if (remaining() < bytes) return std::nullopt;
        quint64 value = 0;
        for (int i = 0; i < bytes; i++)
            value = value << 8 | static_cast<uchar>(_content[_at++]);
        return value;
    }

    /// A section that begins with its length.
    bool skipSection(int bytesOfLength) {
        const auto length = number(bytesOfLength);
        return length && skip(*length);
    }

    bool skip(quint64 bytes) {
        if (bytes > quint64(remaining())) return false;
        _at += qsizetype(bytes);
        return true;
    }

    qsizetype remaining() const { return _content.size() - _at; }

  private:
    const QByteArray _content;
    qsizetype _at = 0;
};

} // namespace

bool KVPhotoshopFile::isWhole(const QByteArray &content) {
    Reader reader(content);
    if (!reader.skip(4)) return false;
    const bool isLargeForm = reader.number(2) == 2; // with wider lengths
    if (!reader.skip(6)) return false;
    const auto channels = reader.number(2), height = reader.number(4), width = reader.number(4);
    const auto depth = reader.number(2);
    if (!depth || !reader.skip(2)) return false;
    const bool hasSections =
        reader.skipSection(4) && reader.skipSection(4) && reader.skipSection(isLargeForm ? 8 : 4);
    const auto compression = hasSections ? reader.number(2) : std::nullopt;
    if (!compression) return false;

    const quint64 rows = *channels * *height;
    if (*compression == raw) return reader.skip(rows * ((*width * *depth + 7) / 8));
    if (*compression != runLength) return reader.remaining() > 0;
    quint64 packed = 0;
    for (quint64 row = 0; row < rows; row++) {
        const auto length = reader.number(isLargeForm ? 4 : 2);
        if (!length) return false;
        packed += *length;
    }
    return reader.skip(packed);
}
