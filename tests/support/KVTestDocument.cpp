#include "support/KVTestDocument.h"

#include <cstring>

using vips::VImage;

namespace {

QByteArray number(qint64 value, int size) {
    QByteArray bytes;
    for (int i = size - 1; i >= 0; i--)
        bytes += char(value >> 8 * i & 0xFF);
    return bytes;
}

QByteArray section(const QByteArray &content) {
    return number(content.size(), 4) + content;
}

QByteArray padded(QByteArray bytes) {
    return bytes.size() % 2 == 0 ? bytes : bytes + '\0';
}

/// One row of a channel, which is in memory, in the form of the document.
QByteArray rowOf(const VImage &channel, int y, int depth) {
    QByteArray bytes;
    for (qsizetype x = 0, at = qsizetype{y} * channel.width(); x < channel.width(); x++, at++) {
        const auto value = depth == 16 ? static_cast<const quint16 *>(channel.data())[at]
                                       : static_cast<const quint8 *>(channel.data())[at];
        if (depth == 1) {
            if (x % 8 == 0) bytes += '\0';
            if (value < 128) bytes.back() = char(bytes.back() | 0x80 >> x % 8);
        } else if (depth == 32) {
            const float portion = float(value) / 255;
            quint32 bits = 0;
            std::memcpy(&bits, &portion, sizeof bits);
            bytes += number(bits, 4);
        } else {
            bytes += number(value, depth / 8);
        }
    }
    return bytes;
}

/// In runs and literal parts.
QByteArray packed(const QByteArray &row) {
    QByteArray result;
    for (qsizetype at = 0; at < row.size();) {
        qsizetype run = 1;
        while (run < 100 && at + run < row.size() && row[at + run] == row[at])
            run++;
        if (run >= 2)
            result += char(1 - run);
        else
            result += '\0';
        result += row[at];
        at += run;
    }
    return result;
}

} // namespace

QByteArray KVTestDocument::content(const VImage &picture) const {
    QByteArray resources, layers;
    if (!channelNames.isEmpty()) resources = "8BIM" + number(1006, 2) + number(0, 2) + section(channelNames);
    resources = padded(resources);
    if (numberOfLayers != 0) layers = section(number(numberOfLayers, 2)) + number(0, 4);
    if (!blockKey.isEmpty()) layers = number(0, 4) + number(0, 4) + "8BIM" + blockKey + section(block);

    QByteArray counts, rows;
    for (int band = 0; band < picture.bands(); band++) {
        const VImage channel = picture.extract_band(band);
        const VImage stored = (mode == cmyk && band < 4 ? channel.invert() : channel).copy_memory();
        for (int y = 0; y < picture.height(); y++) {
            const QByteArray row = rowOf(stored, y, depth);
            const QByteArray written = isPacked ? packed(row) : row;
            counts += number(written.size(), 2);
            rows += written;
        }
    }
    return "8BPS" + number(1, 2) + QByteArray(6, '\0') + number(picture.bands(), 2) +
           number(picture.height(), 4) + number(picture.width(), 4) + number(depth, 2) + number(mode, 2) +
           section(palette) + section(resources) + section(layers) + number(isPacked ? 1 : 0, 2) +
           (isPacked ? counts : QByteArray()) + rows;
}
