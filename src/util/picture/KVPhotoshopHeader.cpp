#include "util/picture/KVPhotoshopHeader.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr int maximumSide = 300'000;
constexpr int maximumChannels = 56;
constexpr qint64 maximumBlock = qint64{64} * 1024 * 1024; ///< Of metadata.

/// Reads big-endian numbers and blocks one after the other. Throws at the end of the file.
class DocumentReader {
  public:
    explicit DocumentReader(QFile &file)
        : _file(file) {}

    quint64 number(int size) {
        quint64 value = 0;
        for (const char byte : bytes(size))
            value = value << 8 | static_cast<uchar>(byte);
        return value;
    }

    qint64 length(int size) {
        const quint64 value = number(size);
        if (value > quint64(remaining())) fail();
        return qint64(value);
    }

    QByteArray bytes(qint64 size) {
        QByteArray read = size <= maximumBlock ? _file.read(size) : QByteArray();
        if (read.size() != size) fail();
        return read;
    }

    qint64 position() const { return _file.pos(); }
    qint64 remaining() const { return _file.size() - _file.pos(); }

    void goTo(qint64 position) {
        if (position > _file.size() || !_file.seek(position)) fail();
    }

    [[noreturn]] static void fail() { throw std::runtime_error("The document ends too early."); }

  private:
    QFile &_file;
};

bool isFirstNameOfTransparency(const QByteArray &names) {
    const int length = names.isEmpty() ? 0 : static_cast<uchar>(names.front());
    return names.mid(1, length) == "Transparency";
}

/// What the pieces of the third section say.
struct Resources {
    bool namesChannels = false;
    bool namesTransparency = false;
};

Resources readResources(DocumentReader &reader, qint64 end, KVPhotoshopHeader &header) {
    enum : quint64 { resolution = 1005, names = 1006, profile = 1039, index = 1047, exif = 1058, xmp = 1060 };
    Resources resources;
    while (end - reader.position() >= 12) {
        reader.number(4);
        const quint64 kind = reader.number(2);
        const auto nameLength = qint64(reader.number(1));
        reader.goTo(reader.position() + nameLength + (nameLength + 1) % 2);
        const qint64 size = reader.length(4), start = reader.position();
        if (kind == resolution && size >= 4) header.pixelsPerInch = double(reader.number(4)) / 65536;
        if (kind == names && size > 0) {
            resources.namesChannels = true;
            resources.namesTransparency = isFirstNameOfTransparency(reader.bytes(size));
        }
        if (kind == profile) header.profile = reader.bytes(size);
        if (kind == index && size >= 2) header.transparentIndex = int(reader.number(2));
        if (kind == exif) header.exif = reader.bytes(size);
        if (kind == xmp) header.xmp = reader.bytes(size);
        reader.goTo(start + size + size % 2);
    }
    return resources;
}

/// The number of layers; below 0 if the merged picture has transparency, 0 where there are none.
int readNumberOfLayers(DocumentReader &reader, qint64 end, int lengthSize) {
    if (end - reader.position() < lengthSize + 2) return 0;
    if (reader.length(lengthSize) > 0) return static_cast<qint16>(reader.number(2));
    if (end - reader.position() < 4) return 0;
    const qint64 maskSize = reader.length(4);
    reader.goTo(reader.position() + maskSize);

    // Documents with 16 bits have the layers in a block behind it.
    while (end - reader.position() >= 12) {
        reader.number(4);
        const QByteArray key = reader.bytes(4);
        const bool isLong = lengthSize == 8 && (key == "Lr16" || key == "Lr32" || key == "Layr" ||
                                                key == "Mt16" || key == "Mt32" || key == "Mtrn");
        const qint64 size = reader.length(isLong ? 8 : 4), start = reader.position();
        if (key == "Mt16" || key == "Mt32" || key == "Mtrn") return -1;
        if ((key == "Lr16" || key == "Lr32" || key == "Layr") && size >= 2)
            return static_cast<qint16>(reader.number(2));
        reader.goTo(std::min(start + (size + 3) / 4 * 4, end));
    }
    return 0;
}

int coloursOf(int mode) {
    return mode == KVPhotoshopHeader::rgb || mode == KVPhotoshopHeader::lab ? 3
           : mode == KVPhotoshopHeader::cmyk                                ? 4
                                                                            : 1;
}

void readPackedOffsets(DocumentReader &reader, KVPhotoshopHeader &header, int sizeOfCount) {
    const qint64 rows = qint64{header.channels} * header.height;
    if (reader.remaining() < rows * sizeOfCount) DocumentReader::fail();
    std::vector<qint64> offsets;
    qint64 offset = reader.position() + rows * sizeOfCount;
    for (int channel = 0; channel < header.channels; channel++) {
        const QByteArray counts = reader.bytes(qint64{header.height} * sizeOfCount);
        const auto *byte = reinterpret_cast<const uchar *>(counts.constData());
        for (int row = 0; row < header.height; row++) {
            // A picture has five channels at most.
            if (channel <= 5) offsets.push_back(offset);
            for (qint64 count = 0, i = 0; i < sizeOfCount; i++) {
                count = count << 8 | *byte++;
                if (i == sizeOfCount - 1) offset += count;
            }
        }
    }
    offsets.push_back(offset);
    header.packedOffsets = std::move(offsets);
    reader.goTo(offset);
}

} // namespace

KVPhotoshopHeader KVPhotoshopHeader::read(QFile &file) {
    DocumentReader reader(file);
    KVPhotoshopHeader header;
    reader.goTo(4);
    const bool isLargeForm = reader.number(2) == 2; // with wider lengths
    reader.goTo(12);
    header.channels = int(reader.number(2));
    const quint64 height = reader.number(4), width = reader.number(4);
    header.depth = int(reader.number(2));
    header.mode = int(reader.number(2));
    if (height < 1 || width < 1 || height > maximumSide || width > maximumSide || header.channels < 1 ||
        header.channels > maximumChannels || header.channels < coloursOf(header.mode))
        throw std::runtime_error("The header of the document is damaged.");
    header.height = int(height);
    header.width = int(width);

    const qint64 paletteSize = reader.length(4), paletteStart = reader.position();
    if (header.mode == indexed) header.palette = reader.bytes(paletteSize).leftJustified(768, '\0');
    reader.goTo(paletteStart + paletteSize);
    const qint64 resourcesSize = reader.length(4), resourcesEnd = reader.position() + resourcesSize;
    const Resources resources = readResources(reader, resourcesEnd, header);
    reader.goTo(resourcesEnd);
    const qint64 layersSize = reader.length(isLargeForm ? 8 : 4), layersEnd = reader.position() + layersSize;
    const int layers = readNumberOfLayers(reader, layersEnd, isLargeForm ? 8 : 4);
    reader.goTo(layersEnd);

    // Further channels are selections that were saved; other programs add one for transparency, without a
    // name.
    const bool hasFurther = header.channels > coloursOf(header.mode);
    header.isBlendedWithWhite = hasFurther && layers < 0;
    header.holdsTransparency = hasFurther && (layers < 0 || resources.namesTransparency ||
                                              (layers == 0 && !resources.namesChannels));

    header.packing = int(reader.number(2));
    header.pixelOffset = reader.position();
    if (header.packing == raw)
        reader.goTo(header.pixelOffset + qint64{header.channels} * header.height * header.bytesPerRow());
    else if (header.packing == runLength)
        readPackedOffsets(reader, header, isLargeForm ? 4 : 2);
    else if (reader.remaining() == 0)
        DocumentReader::fail();
    return header;
}
