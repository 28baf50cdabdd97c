#include "support/KVTestPictures.h"

#include "util/KVPictureLibrary.h"

#include <QFile>
#include <QtEndian>

#include <cmath>

using vips::VImage;

namespace {

VImage plain(int width, int height, const KVTestPictures::Colour &colour) {
    return VImage::black(width, height)
        .new_from_image(colour)
        .cast(VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

/// The program does without loaders and savers that the library does not trust; the tests check its results
/// with some of them.
void prepareWithAllLoaders() {
    KVPictureLibrary::prepare();
    vips_block_untrusted_set(FALSE);
}

} // namespace

VImage KVTestPictures::fields(int width, int height) {
    prepareWithAllLoaders();
    const int left = (width + 1) / 2, top = (height + 1) / 2;
    const auto row = [&](const Colour &one, const Colour &other) {
        return plain(left, top, one).join(plain(left, top, other), VIPS_DIRECTION_HORIZONTAL);
    };
    return row(red, green)
        .join(row(blue, yellow), VIPS_DIRECTION_VERTICAL)
        .extract_area(0, 0, width, height)
        .copy_memory();
}

/// A function of its own: the rules for ThreadSanitizer know the library's encoders by their caller.
[[gnu::noinline]] static void encode(const VImage &picture, const QString &path, vips::VOption *options) {
    const QByteArray name = QFile::encodeName(path);
    if (path.endsWith(".psd"))
        picture.magicksave(name.constData(), VImage::option()->set("format", "PSD"));
    else
        picture.write_to_file(name.constData(), options);
}

QString KVTestPictures::save(const VImage &picture, const QString &path, vips::VOption *options) {
    prepareWithAllLoaders();
    encode(picture, path, options);
    return path;
}

QString KVTestPictures::fields(const QString &path, int width, int height) {
    return save(fields(width, height), path);
}

VImage KVTestPictures::load(const QString &path) {
    prepareWithAllLoaders();
    return VImage::new_from_file(QFile::encodeName(path).constData());
}

std::vector<KVTestPictures::Colour> KVTestPictures::fieldColours(const VImage &picture) {
    const VImage colours =
        picture.colourspace(VIPS_INTERPRETATION_sRGB).extract_band(0, VImage::option()->set("n", 3));
    const int x = picture.width() / 4, y = picture.height() / 4;
    return {colours.getpoint(x, y), colours.getpoint(3 * x, y), colours.getpoint(x, 3 * y),
            colours.getpoint(3 * x, 3 * y)};
}

bool KVTestPictures::areClose(const std::vector<Colour> &one, const std::vector<Colour> &other,
                              double tolerance) {
    for (std::size_t i = 0; i < one.size(); i++)
        for (std::size_t band = 0; band < one[i].size(); band++)
            if (std::abs(one[i][band] - other[i][band]) > tolerance) return false;
    return one.size() == other.size();
}

quint32 KVTestPictures::checksum(const QByteArray &chunk) {
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : chunk) {
        sum ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; bit++)
            sum = sum & 1 ? sum >> 1 ^ 0xEDB88320 : sum >> 1;
    }
    return ~sum;
}

QByteArray KVTestPictures::withChunk(const QByteArray &png, const QByteArray &chunk, bool isBehindPixels) {
    const auto bigEndian = [](quint32 number) {
        const quint32 stored = qToBigEndian(number);
        return QByteArray(reinterpret_cast<const char *>(&stored), sizeof stored);
    };
    QByteArray content = png;
    const qsizetype at = isBehindPixels ? content.size() - 12 : 33; // of the last chunk; behind the first
    return content.insert(at, bigEndian(quint32(chunk.size() - 4)) + chunk + bigEndian(checksum(chunk)));
}
