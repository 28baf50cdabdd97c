#include "util/picture/KVIconFile.h"

#include "util/picture/KVVipsLibrary.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <stdexcept>

using vips::VImage;

namespace {

/// The colour icons, the largest first. An icon without transparency of its own has it in a mask beside it.
struct IconKind {
    const char *type;
    int side;
    const char *mask;
};
constexpr std::array kinds{
    IconKind{"ic10", 1024, ""},    IconKind{"ic09", 512, ""},    IconKind{"ic14", 512, ""},
    IconKind{"ic08", 256, ""},     IconKind{"ic13", 256, ""},    IconKind{"ic07", 128, ""},
    IconKind{"it32", 128, "t8mk"}, IconKind{"icp6", 64, ""},     IconKind{"ic12", 64, ""},
    IconKind{"ih32", 48, "h8mk"},  IconKind{"icp5", 32, "l8mk"}, IconKind{"ic11", 32, ""},
    IconKind{"ic05", 32, ""},      IconKind{"il32", 32, "l8mk"}, IconKind{"icp4", 16, "s8mk"},
    IconKind{"ic04", 16, ""},      IconKind{"is32", 16, "s8mk"}};

using Entries = std::map<QByteArray, QByteArray>;

constexpr qsizetype headerSize = 8; // four characters and the length with the header

[[noreturn]] void fail(const char *why) {
    throw std::runtime_error(why);
}

Entries entriesOf(const QByteArray &content) {
    Entries entries;
    for (qsizetype at = headerSize; at < content.size();) {
        if (content.size() - at < headerSize) fail("The icon file ends too early.");
        const auto length = qsizetype(qFromBigEndian<quint32>(content.constData() + at + 4));
        if (length < headerSize || length > content.size() - at) fail("The icon file ends too early.");
        entries.emplace(content.sliced(at, 4), content.sliced(at + headerSize, length - headerSize));
        at += length;
    }
    return entries;
}

VImage imageOfFile(const char *loader, const QByteArray &file) {
    const auto unref = [](VipsBlob *blob) { vips_area_unref(VIPS_AREA(blob)); };
    const std::unique_ptr<VipsBlob, decltype(unref)> blob(
        vips_blob_copy(file.constData(), static_cast<std::size_t>(file.size())), unref);
    VImage image;
    VImage::call(loader, VImage::option()
                             ->set("source", vips::VSource::new_from_blob(blob.get()))
                             ->set("fail_on", VIPS_FAIL_ON_TRUNCATED)
                             ->set("out", &image));
    return image;
}

/// One plane after the other: a count up to 127 and that many bytes and one more, or a count from 128 and one
/// byte that stands for 3 and more.
QByteArray unpacked(const QByteArray &packed, qsizetype size) {
    QByteArray bytes;
    bytes.reserve(size);
    for (qsizetype at = 0; bytes.size() < size;) {
        if (packed.size() - at < 2) fail("The icon ends too early.");
        const int count = static_cast<unsigned char>(packed[at++]);
        if (count >= 128) {
            bytes.append(std::min<qsizetype>(count - 125, size - bytes.size()), packed[at++]);
        } else {
            const qsizetype length = std::min<qsizetype>(count + 1, packed.size() - at);
            bytes.append(packed.constData() + at, std::min(length, size - bytes.size()));
            at += length;
        }
    }
    return bytes;
}

/// Pixels of red, green, blue and alpha from the planes at these places.
VImage imageOfPlanes(const std::array<const char *, 4> &planes, int side) {
    const auto count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    QByteArray pixels(qsizetype(4 * count), '\0');
    char *to = pixels.data();
    for (std::size_t i = 0; i < count; i++)
        for (const char *plane : planes)
            *to++ = plane[i];
    return VImage::new_from_memory(pixels.data(), static_cast<std::size_t>(pixels.size()), side, side, 4,
                                   VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB))
        .copy_memory(); // the pixels above go
}

VImage imageOf(const IconKind &kind, const QByteArray &icon, const Entries &entries) {
    if (icon.startsWith("\x89PNG")) return imageOfFile("pngload_source", icon);
    if (icon.startsWith(QByteArray("\0\0\0\x0CjP", 6)) || icon.startsWith("\xFF\x4F")) {
        KVVipsLibrary::requireUntrustedLoaders();
        return imageOfFile("jp2kload_source", icon);
    }

    const qsizetype plane = qsizetype{kind.side} * kind.side;
    if (icon.startsWith("ARGB")) {
        const QByteArray bytes = unpacked(icon.sliced(4), 4 * plane);
        const char *alpha = bytes.constData();
        return imageOfPlanes({alpha + plane, alpha + 2 * plane, alpha + 3 * plane, alpha}, kind.side);
    }
    const bool hasLeadingZeros = qstrcmp(kind.type, "it32") == 0;
    const QByteArray bytes = unpacked(hasLeadingZeros ? icon.mid(4) : icon, 3 * plane);
    const auto mask = entries.find(kind.mask);
    const bool hasMask = mask != entries.end() && mask->second.size() == plane;
    const QByteArray alpha = hasMask ? mask->second : QByteArray(plane, '\xFF');
    const char *red = bytes.constData();
    return imageOfPlanes({red, red + plane, red + 2 * plane, alpha.constData()}, kind.side);
}

} // namespace

VImage KVIconFile::largestImage(const QByteArray &content) {
    const Entries entries = entriesOf(content);
    for (const IconKind &kind : kinds)
        if (const auto entry = entries.find(kind.type); entry != entries.end())
            return imageOf(kind, entry->second, entries);
    fail("The icon file holds no colour icon.");
}
