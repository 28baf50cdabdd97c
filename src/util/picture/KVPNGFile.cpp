#include "util/picture/KVPNGFile.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <cmath>
#include <memory>
#include <optional>

using vips::VImage;

namespace {

constexpr qint64 signatureSize = 8;
constexpr quint32 maximumSize = 16 * 1024 * 1024; ///< Of EXIF data.

/// The content of the first chunk of this type. Empty if there is none before the chunk of type `end`.
QByteArray chunk(QFile &file, QByteArrayView type, QByteArrayView end = "IEND") {
    constexpr qint64 headSize = 8, checksumSize = 4;
    for (qint64 at = signatureSize; file.seek(at);) {
        const QByteArray head = file.read(headSize);
        if (head.size() < headSize || head.endsWith(end)) return {};
        const auto size = qFromBigEndian<quint32>(head.constData());
        if (head.endsWith(type)) return size <= maximumSize ? file.read(size) : QByteArray();
        at += headSize + size + checksumSize;
    }
    return {};
}

/// "\nexif\n      42\n45786966...", as older programs write it.
QByteArray blockInTexts(const VImage &picture) {
    const std::unique_ptr<gchar *, decltype(&g_strfreev)> names(vips_image_get_fields(picture.get_image()),
                                                                g_strfreev);
    for (gchar **name = names.get(); *name; name++) {
        const QByteArrayView field(*name);
        if (!field.startsWith("png-comment-")) continue;
        if (!field.endsWith("Raw profile type exif") && !field.endsWith("Raw profile type APP1")) continue;
        const QByteArray text = QByteArray(picture.get_string(*name)).trimmed();
        const qsizetype sizeAt = text.indexOf('\n') + 1, hexAt = text.indexOf('\n', sizeAt) + 1;
        if (sizeAt > 0 && hexAt > 0) return QByteArray::fromHex(text.mid(hexAt));
    }
    return {};
}

/// The gamma value of the file times 2.2, which is 1 for ordinary pictures. Nothing if the file has none or
/// describes its colours more exactly.
std::optional<double> relativeGamma(QFile &file) {
    constexpr double unit = 100'000, ordinary = 2.2;
    const QByteArray content = chunk(file, "gAMA", "IDAT");
    if (content.size() != 4 || !chunk(file, "sRGB", "IDAT").isEmpty() ||
        !chunk(file, "iCCP", "IDAT").isEmpty())
        return std::nullopt;
    return qFromBigEndian<quint32>(content.constData()) / unit * ordinary;
}

} // namespace

VImage KVPNGFile::withOrdinaryGamma(const QString &path, const VImage &picture) {
    constexpr double least = 0.1, most = 10, invisible = 0.05;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return picture;
    const auto gamma = relativeGamma(file);
    const bool has16Bits = picture.format() == VIPS_FORMAT_USHORT;
    if (!gamma || *gamma < least || *gamma > most || std::abs(*gamma - 1) < invisible ||
        (!has16Bits && picture.format() != VIPS_FORMAT_UCHAR))
        return picture;

    const double full = has16Bits ? 65535 : 255;
    const VImage values = VImage::identity(VImage::option()->set("ushort", has16Bits));
    const VImage table = ((values / full).pow(1 / *gamma) * full).rint().cast(picture.format());
    if (!picture.has_alpha()) return picture.maplut(table);
    const int colours = picture.bands() - 1;
    const VImage changed = picture.extract_band(0, VImage::option()->set("n", colours)).maplut(table);
    return changed.bandjoin(picture.extract_band(colours))
        .copy(VImage::option()->set("interpretation", picture.interpretation()));
}

VImage KVPNGFile::withMetadataOf(const QString &path, const VImage &picture) {
    if (picture.get_typeof(VIPS_META_EXIF_NAME)) return picture;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return picture;
    QByteArray block = chunk(file, "eXIf");
    if (block.isEmpty()) block = blockInTexts(picture);
    const QByteArray start("Exif\0\0", 6);
    if (block.startsWith("II") || block.startsWith("MM")) block.prepend(start);
    if (!block.startsWith(start)) return picture;

    VImage changed = picture.copy();
    // The library takes the block apart, with the orientation and the resolution.
    vips_image_set_blob_copy(changed.get_image(), VIPS_META_EXIF_NAME, block.constData(),
                             static_cast<std::size_t>(block.size()));
    return changed.copy(VImage::option()->set("xres", picture.xres())->set("yres", picture.yres()));
}
