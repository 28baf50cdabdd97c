#pragma once

#include <QByteArray>
#include <QFile>

#include <vector>

/// What a Photoshop document says about its merged picture.
struct KVPhotoshopHeader {
    enum Mode {
        bitmap = 0,
        grey = 1,
        indexed = 2,
        rgb = 3,
        cmyk = 4,
        multichannel = 7,
        duotone = 8,
        lab = 9
    };
    enum Packing { raw = 0, runLength = 1 }; ///< Higher ones are zip.

    int channels = 0; ///< In the file; more than the picture has if selections are saved with it.
    int width = 0;
    int height = 0;
    int depth = 8; ///< Bits of a channel's value.
    int mode = rgb;
    int packing = raw;

    QByteArray palette; ///< 256 values of red, then of green and of blue.
    QByteArray profile; ///< Empty, like the next two, if there is none.
    QByteArray exif;
    QByteArray xmp;
    double pixelsPerInch = 0;
    int transparentIndex = -1; ///< Of the palette.

    bool holdsTransparency = false;  ///< The first channel behind the colours.
    bool isBlendedWithWhite = false; ///< Where it is transparent.
    qint64 pixelOffset = 0;          ///< Where the rows begin.
    std::vector<qint64>
        packedOffsets; ///< Where each row begins, channel by channel, and the end of the last.

    qint64 bytesPerRow() const { return (qint64{width} * depth + 7) / 8; }

    /// Throws std::runtime_error if the document is damaged or ends too early.
    static KVPhotoshopHeader read(QFile &file);
};
