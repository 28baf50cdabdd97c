#include "util/picture/KVBitmapFile.h"

#include "kvcore/KVFileDescriptor.h"
#include "util/picture/KVRowReader.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using vips::VImage;

namespace {

constexpr qint64 fileHeaderSize = 14;
constexpr qint64 coreHeaderSize = 12;     // the oldest form, with 16-bit sides and palette entries of 3 bytes
constexpr qint64 infoHeaderSize = 40;     // longer forms begin with this one; masks follow it
constexpr qint64 profileHeaderSize = 124; // the only form that can hold a colour profile
constexpr quint32 embeddedProfile = 0x4D424544;

enum Compression : quint32 { none = 0, bitFields = 3, alphaBitFields = 6 };

/// Which bits of a pixel hold a channel.
struct Channel {
    quint32 mask = 0;

    uchar of(quint32 pixel) const {
        if (!mask) return 0;
        const int shift = std::countr_zero(mask);
        const quint64 maximum = mask >> shift;
        return static_cast<uchar>(((pixel & mask) >> shift) * quint64{255} / maximum);
    }
};

struct Header {
    int width = 0;
    int height = 0;
    bool isTopDown = false;
    int bitsPerPixel = 0;
    quint32 compression = none;
    qint64 pixelOffset = 0;
    std::array<Channel, 4> channels; // red, green, blue, alpha; for 16 and 32 bits
    QByteArray palette;              // blue, green, red of each colour
    QByteArray profile;
    double pixelsPerMeter = 0;

    bool hasAlpha() const { return channels[3].mask != 0; }
    int bands() const { return hasAlpha() ? 4 : 3; }
    qint64 bytesPerRow() const { return (qint64{width} * bitsPerPixel + 31) / 32 * 4; }
};

/// What stands at an offset; absent beyond the end.
class Bytes {
  public:
    explicit Bytes(const QByteArray &bytes)
        : _bytes(bytes.begin(), bytes.end()) {}

    template <class Number>
    Number at(qint64 offset) const {
        if (offset + qint64(sizeof(Number)) > qint64(_bytes.size()))
            throw std::runtime_error("The bitmap ends too early.");
        return qFromLittleEndian<Number>(_bytes.data() + offset);
    }

  private:
    const std::vector<char> _bytes;
};

void readMasks(Header &header, const Bytes &bytes, qint64 headerSize) {
    if (header.compression == none) {
        const bool isShort = header.bitsPerPixel == 16;
        header.channels = isShort ? std::array<Channel, 4>{{{0x7C00}, {0x03E0}, {0x001F}, {0}}}
                                  : std::array<Channel, 4>{{{0xFF0000}, {0xFF00}, {0xFF}, {0}}};
        return;
    }
    const qint64 masks = fileHeaderSize + infoHeaderSize;
    const bool hasAlphaMask = headerSize >= infoHeaderSize + 16 || header.compression == alphaBitFields;
    for (std::size_t i = 0; i < (hasAlphaMask ? 4 : 3); i++)
        header.channels[i].mask = bytes.at<quint32>(masks + 4 * qint64(i));
}

void readPalette(Header &header, const Bytes &bytes, qint64 headerSize) {
    if (header.bitsPerPixel > 8) return;
    const bool isCore = headerSize == coreHeaderSize;
    const qint64 entrySize = isCore ? 3 : 4;
    const qint64 possible = qint64{1} << header.bitsPerPixel;
    const qint64 used = isCore ? possible : bytes.at<quint32>(fileHeaderSize + 32);
    const qint64 count = used > 0 && used < possible ? used : possible;
    header.palette.fill('\0', qint64{3} * 256); // indexes beyond the palette are black
    for (qint64 entry = 0; entry < count; entry++)
        for (qint64 i = 0; i < 3; i++)
            header.palette[3 * entry + i] =
                bytes.at<char>(fileHeaderSize + headerSize + entry * entrySize + i);
}

void readProfile(Header &header, const Bytes &bytes, qint64 headerSize, QFile &file) {
    if (headerSize < profileHeaderSize || bytes.at<quint32>(fileHeaderSize + 56) != embeddedProfile) return;
    const qint64 offset = fileHeaderSize + bytes.at<quint32>(fileHeaderSize + 112);
    const qint64 size = bytes.at<quint32>(fileHeaderSize + 116);
    if (offset + size <= file.size() && file.seek(offset)) header.profile = file.read(size);
}

void check(const Header &header, qint64 fileSize) {
    constexpr std::array knownDepths{1, 4, 8, 16, 24, 32};
    if (std::ranges::find(knownDepths, header.bitsPerPixel) == knownDepths.end() || header.width < 1 ||
        header.height < 1 || header.width > VIPS_MAX_COORD || header.height > VIPS_MAX_COORD)
        throw std::runtime_error("The header of the bitmap is damaged.");
    if (header.pixelOffset + header.bytesPerRow() * header.height > fileSize)
        throw std::runtime_error("The bitmap ends too early.");
}

/// Nothing for a compressed bitmap.
std::optional<Header> readHeader(QFile &file) {
    const Bytes bytes(file.peek(fileHeaderSize + profileHeaderSize + qint64{4} * 256));
    const qint64 headerSize = bytes.at<quint32>(fileHeaderSize);
    Header header;
    header.pixelOffset = bytes.at<quint32>(10);
    if (headerSize == coreHeaderSize) {
        header.width = bytes.at<quint16>(fileHeaderSize + 4);
        header.height = bytes.at<quint16>(fileHeaderSize + 6);
        header.bitsPerPixel = bytes.at<quint16>(fileHeaderSize + 10);
    } else {
        if (headerSize < infoHeaderSize) throw std::runtime_error("The header of the bitmap is damaged.");
        const qint64 height = bytes.at<qint32>(fileHeaderSize + 8);
        header.width = bytes.at<qint32>(fileHeaderSize + 4);
        header.height = int(std::min<qint64>(std::abs(height), VIPS_MAX_COORD + 1));
        header.isTopDown = height < 0;
        header.bitsPerPixel = bytes.at<quint16>(fileHeaderSize + 14);
        header.compression = bytes.at<quint32>(fileHeaderSize + 16);
        header.pixelsPerMeter = bytes.at<qint32>(fileHeaderSize + 24);
    }
    if (header.compression != none && header.compression != bitFields && header.compression != alphaBitFields)
        return std::nullopt;
    check(header, file.size());
    readMasks(header, bytes, headerSize);
    readPalette(header, bytes, headerSize);
    readProfile(header, bytes, headerSize, file);
    return header;
}

/// The open file behind an image, for as long as the image lives.
class BitmapRows : public KVRowReader {
  public:
    BitmapRows(const QString &path, Header header)
        : _header(std::move(header))
        , _file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC)) {}

    bool read(VipsRegion *region) override {
        const VipsRect &part = region->valid;
        QByteArray stored;
        for (int y = part.top; y < part.top + part.height; y++) {
            if (!_read(y, stored)) return false;
            _decode(stored, part.left, part.width,
                    reinterpret_cast<uchar *>(VIPS_REGION_ADDR(region, part.left, y)));
        }
        return true;
    }

  private:
    /// One row as it is stored; counted from the top.
    bool _read(int row, QByteArray &stored) const {
        const int index = _header.isTopDown ? row : _header.height - 1 - row;
        const qint64 size = _header.bytesPerRow();
        stored.resize(size);
        return ::pread(_file.get(), stored.data(), static_cast<std::size_t>(size),
                       _header.pixelOffset + index * size) == size;
    }

    void _decode(const QByteArray &stored, int left, int width, uchar *to) const {
        const auto *row = reinterpret_cast<const uchar *>(stored.constData());
        for (int x = left; x < left + width; x++, to += _header.bands())
            _decodePixel(row, x, to);
    }

    void _decodePixel(const uchar *row, qint64 x, uchar *to) const {
        const int bits = _header.bitsPerPixel;
        if (bits <= 8) {
            const qint64 place = x * bits;
            const qint64 index = row[place / 8] >> (8 - bits - place % 8) & ((1 << bits) - 1);
            _copyReversed(reinterpret_cast<const uchar *>(_header.palette.constData()) + 3 * index, to);
        } else if (bits == 24) {
            _copyReversed(row + 3 * x, to);
        } else {
            const quint32 pixel = bits == 16 ? qFromLittleEndian<quint16>(row + 2 * x)
                                             : qFromLittleEndian<quint32>(row + 4 * x);
            for (int band = 0; band < _header.bands(); band++)
                to[band] = _header.channels[static_cast<std::size_t>(band)].of(pixel);
        }
    }

    static void _copyReversed(const uchar *from, uchar *to) {
        to[0] = from[2];
        to[1] = from[1];
        to[2] = from[0];
    }

    const Header _header;
    const KVFileDescriptor _file;
};

} // namespace

bool KVBitmapFile::canRead(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && readHeader(file).has_value();
}

VImage KVBitmapFile::image(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error(file.errorString().toStdString());
    const auto header = readHeader(file);
    if (!header) throw std::runtime_error("The bitmap is compressed.");
    KVRowReader::Layout layout;
    layout.width = header->width;
    layout.height = header->height;
    layout.bands = header->bands();
    layout.horizontalResolution = layout.verticalResolution = header->pixelsPerMeter / 1000;
    VImage image = KVRowReader::picture(layout, std::make_unique<BitmapRows>(path, *header));
    if (!header->profile.isEmpty())
        vips_image_set_blob_copy(image.get_image(), VIPS_META_ICC_NAME, header->profile.constData(),
                                 static_cast<std::size_t>(header->profile.size()));
    return image;
}
