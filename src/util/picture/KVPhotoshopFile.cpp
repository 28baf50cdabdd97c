#include "util/picture/KVPhotoshopFile.h"

#include "kvcore/KVFileDescriptor.h"
#include "util/picture/KVPhotoshopHeader.h"
#include "util/picture/KVRowReader.h"

#include <QtEndian>

#include <algorithm>
#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using vips::VImage;

namespace {

constexpr double millimetresPerInch = 25.4;

/// Counts of bytes that follow and of repetitions of one byte. False if a row is too short.
bool unpackRow(const QByteArray &packed, QByteArray &row, qint64 size) {
    row.clear();
    for (qsizetype at = 0; row.size() < size && at + 1 < packed.size();) {
        const auto byte = static_cast<uchar>(packed[at++]);
        const int count = byte < 128 ? byte : byte - 256;
        if (count >= 0) {
            row.append(packed.mid(at, std::min<qint64>(count + 1, size - row.size())));
            at += count + 1;
        } else if (count > -128) {
            row.append(std::min<qint64>(1 - count, size - row.size()), packed[at++]);
        }
    }
    return row.size() == size;
}

class DocumentRows : public KVRowReader {
  public:
    DocumentRows(const QString &path, KVPhotoshopHeader header)
        : _header(std::move(header))
        , _file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC)) {}

    Layout layout() const {
        Layout layout;
        layout.width = _header.width;
        layout.height = _header.height;
        layout.bands = _colours() + (_hasAlpha() ? 1 : 0);
        layout.has16Bits = _header.depth == 16;
        layout.interpretation =
            _colours() == 4   ? VIPS_INTERPRETATION_CMYK
            : _colours() == 3 ? (layout.has16Bits ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB)
                              : (layout.has16Bits ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_B_W);
        if (_header.pixelsPerInch > 0)
            layout.horizontalResolution = layout.verticalResolution =
                _header.pixelsPerInch / millimetresPerInch;
        return layout;
    }

    bool read(VipsRegion *region) override {
        const VipsRect &part = region->valid;
        const int stored = _isIndexed() ? 1 : _colours() + (_hasAlpha() ? 1 : 0);
        std::vector<QByteArray> rows(static_cast<std::size_t>(stored));
        for (int y = part.top; y < part.top + part.height; y++) {
            for (int channel = 0; channel < stored; channel++)
                if (!_read(channel, y, rows[std::size_t(channel)])) return false;
            VipsPel *to = VIPS_REGION_ADDR(region, part.left, y);
            if (_isIndexed())
                _decodeIndexes(rows.front(), part, to);
            else if (_header.depth == 16)
                _decode<quint16>(rows, part, reinterpret_cast<quint16 *>(to));
            else
                _decode<quint8>(rows, part, to);
        }
        return true;
    }

  private:
    bool _isIndexed() const { return _header.mode == KVPhotoshopHeader::indexed; }
    int _colours() const {
        return _header.mode == KVPhotoshopHeader::cmyk ? 4
               : _header.mode == KVPhotoshopHeader::rgb || _header.mode == KVPhotoshopHeader::lab ||
                       _isIndexed()
                   ? 3
                   : 1;
    }
    bool _hasAlpha() const {
        return _isIndexed() ? _header.transparentIndex >= 0 : _header.holdsTransparency;
    }

    /// One row of a channel as it is stored when it is not packed.
    bool _read(int channel, int y, QByteArray &row) const {
        const qint64 index = qint64{channel} * _header.height + y, size = _header.bytesPerRow();
        if (_header.packing == KVPhotoshopHeader::raw)
            return _readBytes(_header.pixelOffset + index * size, size, row);
        const qint64 start = _header.packedOffsets[std::size_t(index)];
        QByteArray packed;
        return _readBytes(start, _header.packedOffsets[std::size_t(index) + 1] - start, packed) &&
               unpackRow(packed, row, size);
    }

    bool _readBytes(qint64 offset, qint64 size, QByteArray &bytes) const {
        bytes.resize(size);
        return ::pread(_file.get(), bytes.data(), static_cast<std::size_t>(size), offset) == size;
    }

    template <class Number>
    Number _value(const QByteArray &row, int x) const {
        const auto *bytes = reinterpret_cast<const uchar *>(row.constData());
        if constexpr (sizeof(Number) == 2) return qFromBigEndian<quint16>(bytes + qsizetype{2} * x);
        if (_header.depth == 8) return bytes[x];
        return (bytes[x / 8] >> (7 - x % 8) & 1) != 0 ? 0 : 255; // 1 is black
    }

    template <class Number>
    void _decode(const std::vector<QByteArray> &rows, const VipsRect &part, Number *to) const {
        constexpr Number full = std::numeric_limits<Number>::max();
        const auto colours = static_cast<std::size_t>(_colours());
        for (int x = part.left; x < part.left + part.width; x++) {
            const Number alpha = _hasAlpha() ? _value<Number>(rows[colours], x) : full;
            for (std::size_t channel = 0; channel < colours; channel++) {
                Number value = _value<Number>(rows[channel], x);
                if (_header.isBlendedWithWhite) value = _unblended(value, alpha, full);
                *to++ = colours == 4 ? full - value : value; // inks are stored as what they leave over
            }
            if (_hasAlpha()) *to++ = alpha;
        }
    }

    template <class Number>
    static Number _unblended(Number value, Number alpha, Number full) {
        if (alpha == 0 || alpha == full) return value;
        const qint64 colour = full - (qint64{full} - value) * full / alpha;
        return static_cast<Number>(std::max<qint64>(colour, 0));
    }

    void _decodeIndexes(const QByteArray &row, const VipsRect &part, VipsPel *to) const {
        for (int x = part.left; x < part.left + part.width; x++) {
            const int index = static_cast<uchar>(row[x]);
            for (int colour = 0; colour < 3; colour++)
                *to++ = static_cast<VipsPel>(_header.palette[colour * 256 + index]);
            if (_hasAlpha()) *to++ = index == _header.transparentIndex ? 0 : 255;
        }
    }

    const KVPhotoshopHeader _header;
    const KVFileDescriptor _file;
};

/// Colours that are stored as lightness and two differences, of which the middle is 0.
VImage coloursOfLab(const VImage &stored) {
    const bool has16Bits = stored.format() == VIPS_FORMAT_USHORT;
    const double full = has16Bits ? 65535 : 255, step = has16Bits ? 256 : 1;
    const auto interpretation = has16Bits ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB;
    VImage colours = stored.extract_band(0, VImage::option()->set("n", 3))
                         .linear({100 / full, 1 / step, 1 / step}, {0, -128, -128})
                         .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_LAB))
                         .colourspace(interpretation);
    if (stored.bands() == 3) return colours;
    return colours.bandjoin(stored.extract_band(3))
        .copy(VImage::option()->set("interpretation", interpretation));
}

void setBlock(const VImage &image, const char *field, const QByteArray &block) {
    if (block.isEmpty()) return;
    vips_image_set_blob_copy(image.get_image(), field, block.constData(),
                             static_cast<std::size_t>(block.size()));
}

} // namespace

bool KVPhotoshopFile::canRead(const KVPhotoshopHeader &header) {
    if (header.packing > KVPhotoshopHeader::runLength) return false;
    switch (header.mode) {
    case KVPhotoshopHeader::bitmap:
        return header.depth == 1;
    case KVPhotoshopHeader::indexed:
        return header.depth == 8;
    case KVPhotoshopHeader::grey:
    case KVPhotoshopHeader::rgb:
    case KVPhotoshopHeader::cmyk:
    case KVPhotoshopHeader::duotone:
    case KVPhotoshopHeader::lab:
        return header.depth == 8 || header.depth == 16;
    default:
        return false;
    }
}

VImage KVPhotoshopFile::image(const QString &path, const KVPhotoshopHeader &header) {
    auto rows = std::make_unique<DocumentRows>(path, header);
    const auto layout = rows->layout();
    VImage image = KVRowReader::picture(layout, std::move(rows));
    const bool isLab = header.mode == KVPhotoshopHeader::lab;
    if (isLab) image = coloursOfLab(image);
    if (!header.exif.isEmpty())
        setBlock(image, VIPS_META_EXIF_NAME, "Exif" + QByteArray(2, '\0') + header.exif);
    if (!isLab) setBlock(image, VIPS_META_ICC_NAME, header.profile);
    setBlock(image, VIPS_META_XMP_NAME, header.xmp);
    return image;
}
