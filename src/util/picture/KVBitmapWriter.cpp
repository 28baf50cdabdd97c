#include "util/picture/KVBitmapWriter.h"

#include "util/KVHiddenOutput.h"

#include <QByteArray>
#include <QtEndian>

#include <atomic>
#include <cmath>

using vips::VImage;

namespace {

constexpr qint64 headersSize = 14 + 40;

template <class Number>
void append(QByteArray &bytes, Number number) {
    const Number stored = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&stored), sizeof stored);
}

/// Rows are stored from the bottom to the top, each filled up to a multiple of four bytes.
struct Bitmap {
    Bitmap(const VImage &picture, KVHiddenOutput &file)
        : width(picture.width())
        , height(picture.height())
        , output(file) {}

    const int width;
    const int height;
    const qint64 bytesPerRow = (qint64{width} * 3 + 3) / 4 * 4;
    KVHiddenOutput &output;

    QByteArray headers(double pixelsPerMillimeter) const {
        const auto pixelsPerMeter = static_cast<qint32>(std::lround(pixelsPerMillimeter * 1000));
        const auto pixelBytes = static_cast<quint32>(bytesPerRow * height);
        QByteArray bytes("BM");
        append(bytes, static_cast<quint32>(headersSize) + pixelBytes);
        append(bytes, quint32{0});
        append(bytes, static_cast<quint32>(headersSize));
        append(bytes, quint32{40});
        append(bytes, qint32{width});
        append(bytes, qint32{height});
        append(bytes, quint16{1});  // planes
        append(bytes, quint16{24}); // bits for a pixel
        append(bytes, quint32{0});  // not compressed
        append(bytes, pixelBytes);
        append(bytes, pixelsPerMeter);
        append(bytes, pixelsPerMeter);
        append(bytes, quint64{0}); // no palette
        return bytes;
    }

    bool writeRows(VipsRegion *region, const VipsRect &rows) const {
        QByteArray stored(bytesPerRow * rows.height, '\0');
        for (int y = 0; y < rows.height; y++) {
            const VipsPel *from = VIPS_REGION_ADDR(region, 0, rows.top + y);
            char *to = stored.data() + bytesPerRow * (rows.height - 1 - y);
            for (int x = 0; x < width; x++, from += 3, to += 3) {
                to[0] = static_cast<char>(from[2]);
                to[1] = static_cast<char>(from[1]);
                to[2] = static_cast<char>(from[0]);
            }
        }
        const qint64 rowsBelow = height - rows.top - rows.height;
        return output.writeAt(headersSize + rowsBelow * bytesPerRow, stored.constData(), stored.size());
    }
};

/// Called by the library, one strip after the other.
int writeStrip(VipsRegion *region, VipsRect *strip, void *client) {
    if (static_cast<const Bitmap *>(client)->writeRows(region, *strip)) return 0;
    vips_error("bitmap", "%s", "The bitmap cannot be written.");
    return -1;
}

} // namespace

void KVBitmapWriter::write(const VImage &picture, KVHiddenOutput &output) {
    const VImage colours = picture.colourspace(VIPS_INTERPRETATION_sRGB);
    Bitmap bitmap(colours, output);
    const QByteArray headers = bitmap.headers(colours.xres());
    if (!output.writeAt(0, headers.constData(), headers.size()) ||
        vips_sink_disc(colours.get_image(), writeStrip, &bitmap) != 0)
        throw vips::VError();
}
