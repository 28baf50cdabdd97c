#include "util/picture/KVTIFFMetadata.h"

#include "util/KVHiddenOutput.h"
#include "util/picture/KVTIFFHandle.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <vector>

using vips::VImage;

namespace {

/// The parts of EXIF data, as the image library counts them.
enum class Part { main = 0, camera = 2, position = 3 };

QString fieldPrefix(Part part) {
    return QStringLiteral("exif-ifd%1-").arg(static_cast<int>(part));
}

/// The image library writes "GPSLatitude" where this one writes "Latitude".
QString namePrefix(Part part) {
    return part == Part::position ? QStringLiteral("GPS") : QString();
}

QByteArrayList fieldsOf(const VImage &picture, const QByteArray &prefix) {
    const std::unique_ptr<gchar *, decltype(&g_strfreev)> names(vips_image_get_fields(picture.get_image()),
                                                                g_strfreev);
    QByteArrayList fields;
    for (gchar **name = names.get(); *name; name++)
        if (QByteArrayView(*name).startsWith(prefix)) fields.append(*name);
    return fields;
}

bool isText(const TIFFField *field) {
    return TIFFFieldDataType(field) == TIFF_ASCII;
}

/// A list whose length stands with it.
bool isList(const TIFFField *field) {
    return TIFFFieldPassCount(field) != 0;
}

// From a file

/// As the library reads it: "1/200", "28/10".
QString fraction(double value) {
    const double inverse = 1 / value;
    if (value > 0 && value < 1 && std::abs(inverse - std::round(inverse)) < inverse * 1e-6)
        return QStringLiteral("1/%1").arg(std::llround(inverse));
    constexpr qint64 parts = 1'000'000;
    const qint64 number = std::llround(value * parts);
    const qint64 common = std::gcd(number, parts);
    return QStringLiteral("%1/%2").arg(number / common).arg(parts / common);
}

template <class Number>
QStringList numbers(const void *data, std::size_t count) {
    QStringList texts;
    for (std::size_t i = 0; i < count; i++)
        texts.append(QString::number(static_cast<const Number *>(data)[i]));
    return texts;
}

template <class Number>
QStringList fractions(const void *data, std::size_t count) {
    QStringList texts;
    for (std::size_t i = 0; i < count; i++)
        texts.append(fraction(static_cast<double>(static_cast<const Number *>(data)[i])));
    return texts;
}

QStringList values(const TIFFField *field, const void *data, std::size_t count) {
    switch (TIFFFieldDataType(field)) {
    case TIFF_BYTE:
        return numbers<uint8_t>(data, count);
    case TIFF_SHORT:
        return numbers<uint16_t>(data, count);
    case TIFF_LONG:
        return numbers<uint32_t>(data, count);
    case TIFF_RATIONAL:
    case TIFF_SRATIONAL:
        return TIFFFieldSetGetSize(field) == sizeof(double) ? fractions<double>(data, count)
                                                            : fractions<float>(data, count);
    default:
        return {};
    }
}

/// Empty where there is nothing that could be told in words.
QString valueOf(TIFF *file, const TIFFField *field) {
    const uint32_t tag = TIFFFieldTag(field);
    const int count = TIFFFieldReadCount(field);
    void *data = nullptr;
    if (isText(field)) {
        if (isList(field) || !TIFFGetField(file, tag, &data) || !data) return {};
        return QString::fromUtf8(static_cast<const char *>(data));
    }
    if (isList(field)) {
        uint16_t length = 0;
        uint32_t longLength = 0;
        const bool isKnown = count == TIFF_VARIABLE2 ? TIFFGetField(file, tag, &longLength, &data)
                                                     : TIFFGetField(file, tag, &length, &data);
        return isKnown && data ? values(field, data, longLength + length).join(' ') : QString();
    }
    if (count > 1) {
        const bool isKnown = TIFFGetField(file, tag, &data) && data;
        return isKnown ? values(field, data, static_cast<std::size_t>(count)).join(' ') : QString();
    }
    alignas(double) std::array<std::byte, sizeof(double)> single{}; // the largest of them
    return TIFFGetField(file, tag, single.data()) ? values(field, single.data(), 1).join(' ') : QString();
}

void take(TIFF *file, const TIFFField *field, Part part, VImage &picture) {
    const QString value = valueOf(file, field);
    if (value.isEmpty()) return;
    const QString name = fieldPrefix(part) + namePrefix(part) + TIFFFieldName(field);
    // The library tells numbers from texts by this end.
    const QString end =
        isText(field) ? QString()
                      : QString(" (%1, Number, %2 components, 0 bytes)").arg(value).arg(value.count(' ') + 1);
    picture.set(name.toUtf8().constData(), (value + end).toUtf8().constData());
}

void takeDirectory(TIFF *file, Part part, VImage &picture) {
    for (int i = 0; i < TIFFGetTagListCount(file); i++) {
        const uint32_t tag = TIFFGetTagListEntry(file, i);
        if (tag == EXIFTAG_LENSSPECIFICATION) continue; // of which the image library makes an empty field
        if (const TIFFField *field = TIFFFieldWithTag(file, tag)) take(file, field, part, picture);
    }
}

/// The same in the form that the library gives to what it has read itself, and with the block of data that
/// some of its writers want.
VImage asReadFromJPEG(const VImage &pixel) {
    const auto unref = [](VipsBlob *blob) { vips_area_unref(VIPS_AREA(blob)); };
    const std::unique_ptr<VipsBlob, decltype(unref)> file(pixel.jpegsave_buffer(), unref);
    return VImage::jpegload_buffer(file.get());
}

VImage withFieldsOf(const VImage &other, const VImage &picture) {
    VImage changed = picture.copy();
    for (const QByteArray &field : fieldsOf(other, "exif-")) {
        GValue value = G_VALUE_INIT;
        if (vips_image_get(other.get_image(), field.constData(), &value) != 0) continue;
        vips_image_set(changed.get_image(), field.constData(), &value);
        g_value_unset(&value);
    }
    return changed;
}

// Into a file

struct Entry {
    QByteArray text;             ///< Of a text.
    std::vector<double> numbers; ///< Of anything else.
};

double number(const QString &word) {
    const double denominator = word.contains('/') ? word.section('/', 1).toDouble() : 1;
    return denominator == 0 ? 0 : word.section('/', 0, 0).toDouble() / denominator;
}

/// "1/200 (1/200 sec., Rational, 1 components, 8 bytes)", or a text alone. Nothing for what is neither text
/// nor numbers.
std::optional<Entry> entryFrom(const QByteArray &field) {
    static const QRegularExpression end(R"(, (\w+), (\d+) components, (\d+) bytes\)$)");
    const auto match = end.match(QString::fromUtf8(field));
    if (match.captured(1) == "Undefined") return std::nullopt;
    Entry entry;
    if (!match.hasMatch() || match.captured(1) == "ASCII") {
        entry.text = match.hasMatch() ? field.left(match.captured(3).toInt() - 1) : field;
        return entry;
    }
    const QStringList words = QString::fromUtf8(field).split(' ');
    const int count = match.captured(2).toInt();
    if (words.size() <= count) return std::nullopt;
    for (const QString &word : words.first(count))
        entry.numbers.push_back(number(word));
    return entry;
}

template <class Number>
void setList(TIFF *file, const TIFFField *field, const std::vector<double> &numbers) {
    std::vector<Number> list(numbers.size());
    std::ranges::transform(numbers, list.begin(), [](double number) { return static_cast<Number>(number); });
    if (isList(field))
        TIFFSetField(file, TIFFFieldTag(field), static_cast<int>(list.size()), list.data());
    else
        TIFFSetField(file, TIFFFieldTag(field), list.data());
}

void setNumbers(TIFF *file, const TIFFField *field, const std::vector<double> &numbers) {
    const bool isFraction =
        TIFFFieldDataType(field) == TIFF_RATIONAL || TIFFFieldDataType(field) == TIFF_SRATIONAL;
    const int count = TIFFFieldWriteCount(field);
    if (count == 1 && numbers.size() == 1) {
        if (isFraction)
            TIFFSetField(file, TIFFFieldTag(field), numbers.front());
        else
            TIFFSetField(file, TIFFFieldTag(field), static_cast<uint32_t>(numbers.front()));
        return;
    }
    if (!isList(field) && numbers.size() != static_cast<std::size_t>(count)) return;
    if (isFraction && TIFFFieldSetGetSize(field) == sizeof(double))
        setList<double>(file, field, numbers);
    else if (isFraction)
        setList<float>(file, field, numbers);
    else if (TIFFFieldDataType(field) == TIFF_SHORT)
        setList<uint16_t>(file, field, numbers);
    else if (TIFFFieldDataType(field) == TIFF_BYTE)
        setList<uint8_t>(file, field, numbers);
}

/// Of the main part only the texts: its numbers tell how the pixels are stored.
void put(TIFF *file, Part part, const QString &name, const QByteArray &value) {
    const TIFFField *field = TIFFFieldWithName(file, name.toUtf8().constData());
    const auto entry = entryFrom(value);
    if (!field || !entry) return;
    if (isText(field) && !isList(field) && !entry->text.isEmpty())
        TIFFSetField(file, TIFFFieldTag(field), entry->text.constData());
    else if (!isText(field) && part != Part::main && !entry->numbers.empty())
        setNumbers(file, field, entry->numbers);
}

QMap<QString, QByteArray> entriesOf(const VImage &picture, Part part) {
    QMap<QString, QByteArray> entries;
    const QString prefix = fieldPrefix(part) + namePrefix(part);
    for (const QByteArray &field : fieldsOf(picture, prefix.toUtf8()))
        entries.insert(QString::fromUtf8(field.mid(prefix.size())), picture.get_string(field.constData()));
    return entries;
}

void putAll(TIFF *file, Part part, const QMap<QString, QByteArray> &entries) {
    for (auto entry = entries.begin(); entry != entries.end(); ++entry)
        put(file, part, entry.key(), entry.value());
}

void check(bool hasWorked) {
    if (!hasWorked) throw std::runtime_error("The description of the picture cannot be written.");
}

/// Writes a directory beside the picture's own and answers where it stands.
uint64_t writtenDirectory(TIFF *file, Part part, const QMap<QString, QByteArray> &entries) {
    TIFFFreeDirectory(file); // the one before it, which the library would forget
    check((part == Part::camera ? TIFFCreateEXIFDirectory(file) : TIFFCreateGPSDirectory(file)) == 0);
    putAll(file, part, entries);
    uint64_t offset = 0;
    check(TIFFWriteCustomDirectory(file, &offset) != 0);
    return offset;
}

} // namespace

VImage KVTIFFMetadata::withMetadataOf(const QString &path, const VImage &picture) {
    const KVTIFFHandle handle = KVTIFFHandles::toRead(path);
    TIFF *file = handle.get();
    if (!file) return picture;
    VImage pixel =
        VImage::black(1, 1).copy(VImage::option()->set("xres", picture.xres())->set("yres", picture.yres()));
    // It replaces that of the picture with the fields below.
    if (picture.get_typeof(VIPS_META_ORIENTATION))
        pixel.set(VIPS_META_ORIENTATION, picture.get_int(VIPS_META_ORIENTATION));
    for (const uint32_t tag : {TIFFTAG_MAKE, TIFFTAG_MODEL, TIFFTAG_SOFTWARE, TIFFTAG_DATETIME,
                               TIFFTAG_ARTIST, TIFFTAG_COPYRIGHT, TIFFTAG_IMAGEDESCRIPTION})
        take(file, TIFFFieldWithTag(file, tag), Part::main, pixel);
    toff_t camera = 0, position = 0;
    const bool hasCamera = TIFFGetField(file, TIFFTAG_EXIFIFD, &camera) != 0;
    const bool hasPosition = TIFFGetField(file, TIFFTAG_GPSIFD, &position) != 0;
    if (hasCamera && TIFFReadEXIFDirectory(file, camera)) takeDirectory(file, Part::camera, pixel);
    if (hasPosition && TIFFReadGPSDirectory(file, position)) takeDirectory(file, Part::position, pixel);
    const bool hasAny = !fieldsOf(pixel, "exif-").isEmpty();
    return hasAny ? withFieldsOf(asReadFromJPEG(pixel), picture) : picture;
}

void KVTIFFMetadata::append(const VImage &picture, KVHiddenOutput &output) {
    const auto main = entriesOf(picture, Part::main), camera = entriesOf(picture, Part::camera),
               position = entriesOf(picture, Part::position);
    if (main.isEmpty() && camera.isEmpty() && position.isEmpty()) return;

    const KVTIFFHandle handle = KVTIFFHandles::toChange(output);
    TIFF *file = handle.get();
    check(file != nullptr);
    const uint64_t cameraAt = camera.isEmpty() ? 0 : writtenDirectory(file, Part::camera, camera);
    const uint64_t positionAt = position.isEmpty() ? 0 : writtenDirectory(file, Part::position, position);
    check(TIFFSetDirectory(file, 0) != 0);
    putAll(file, Part::main, main);
    if (cameraAt) TIFFSetField(file, TIFFTAG_EXIFIFD, cameraAt);
    if (positionAt) TIFFSetField(file, TIFFTAG_GPSIFD, positionAt);
    check(TIFFRewriteDirectory(file) != 0);
}
