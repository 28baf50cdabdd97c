#include "util/picture/KVPictureSource.h"

#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVFileManager.h"
#include "util/picture/KVBitmapFile.h"
#include "util/picture/KVIconFile.h"
#include "util/picture/KVJPEGFile.h"
#include "util/picture/KVPNGFile.h"
#include "util/picture/KVPhotoshopFile.h"
#include "util/picture/KVPhotoshopHeader.h"
#include "util/picture/KVPictureAttempt.h"
#include "util/picture/KVPictureHelper.h"
#include "util/picture/KVTIFFFile.h"
#include "util/picture/KVTIFFMetadata.h"
#include "util/picture/KVVipsLibrary.h"

#include <QFile>

#include <cerrno>
#include <memory>
#include <optional>
#include <stdexcept>

using vips::VImage;
using vips::VSource;

namespace {

/// The library knows hundreds of formats, many of them rarely looked after: only these are let in.
constexpr const char *loaders[] = {"jpegload_source", "pngload_source", "heifload_source",
                                   "tiffload_source", "gifload_source", "webpload_source"};
constexpr const char *jpegLoader = loaders[0];

void openForReading(QFile &file) {
    errno = 0;
    if (file.open(QIODevice::ReadOnly)) return;
    const int problem = errno;
    const QString reason = problem != 0 ? KVPOSIXError(file.fileName(), problem).reason : file.errorString();
    throw std::runtime_error(reason.toStdString());
}

VSource sourceOf(const QString &path) {
    return VSource::new_from_file(QFile::encodeName(path).constData());
}

const char *loaderFor(const VSource &source) {
    for (const char *loader : loaders)
        if (vips_foreign_is_a_source(loader, source.get_source())) return loader;
    throw std::runtime_error("This is no picture of a known kind.");
}

/// To be read from top to bottom; a file that ends too early is an error and not a grey rest.
vips::VOption *readingOptions() {
    return VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL)->set("fail_on", VIPS_FAIL_ON_TRUNCATED);
}

VImage load(const char *loader, const VSource &source, vips::VOption *options) {
    VImage image;
    VImage::call(loader, options->set("source", source)->set("out", &image));
    return image;
}

QByteArray contentOf(const QString &path) {
    QFile file(path);
    openForReading(file);
    return file.readAll();
}

VImage imageOfOtherKind(const QString &path) {
    KVVipsLibrary::requireUntrustedLoaders();
    const QByteArray content = contentOf(path);
    const auto unref = [](VipsBlob *blob) { vips_area_unref(VIPS_AREA(blob)); };
    const std::unique_ptr<VipsBlob, decltype(unref)> blob(
        vips_blob_copy(content.constData(), static_cast<std::size_t>(content.size())), unref);
    return VImage::magickload_buffer(blob.get(), VImage::option()->set("fail_on", VIPS_FAIL_ON_TRUNCATED));
}

VImage imageOfDocument(const QString &path) {
    QFile file(path);
    openForReading(file);
    const auto header = KVPhotoshopHeader::read(file);
    if (KVPhotoshopFile::canRead(header)) return KVPhotoshopFile::image(path, header);
    if (header.mode == KVPhotoshopHeader::lab) throw std::runtime_error("Lab colors are not supported.");
    VImage image = imageOfOtherKind(path);
    // A single channel would be its own transparency.
    if (!image.has_alpha() || header.holdsTransparency) return image;
    return image.extract_band(0, VImage::option()->set("n", image.bands() - 1));
}

/// Forms of pixels that the image library refuses (12 bits, half floats, ...) are read as another kind, which
/// does not know the range of deeper floats.
VImage imageOfTIFF(const char *loader, const QString &path) {
    try {
        return load(loader, sourceOf(path), readingOptions());
    } catch (const vips::VError &error) {
        const bool isRefused = QByteArrayView(error.what()).contains("tiff2vips: ");
        if (!isRefused || KVTIFFFile::holdsDeepFloats(path)) throw;
        try {
            return imageOfOtherKind(path);
        } catch (const vips::VError &) {
            // The first reason is the better one.
        }
        throw;
    }
}

} // namespace

KVPictureSource::KVPictureSource(const QString &path, const std::stop_token &stop)
    : _path(path) {
    // To open a pipe is to wait for somebody who writes into it.
    if (KVFileManager::isSpecialFile(QUrl::fromLocalFile(path)))
        throw std::runtime_error("This is no regular file.");
    try {
        _image = _read();
    } catch (const KVUntrustedLoader &) {
        _image = KVPictureHelper::image(path, stop);
    }
}

VImage KVPictureSource::_read() {
    QFile file(_path);
    openForReading(file);
    const QByteArray start = file.peek(4);
    if (start == "icns") return KVIconFile::largestImage(contentOf(_path));
    if (start.startsWith("BM"))
        return KVBitmapFile::canRead(_path) ? KVBitmapFile::image(_path) : imageOfOtherKind(_path);
    if (start == "8BPS") return imageOfDocument(_path);
    _isTIFF = start.startsWith("II") || start.startsWith("MM");
    if (_isTIFF && KVTIFFFile::isOldStyleJPEG(_path)) KVVipsLibrary::requireUntrustedLoaders();
    if (_isTIFF && KVTIFFFile::canOnlyBeReadHere(_path))
        return KVTIFFMetadata::withMetadataOf(_path, KVTIFFFile::image(_path));

    const VSource source = sourceOf(_path);
    const char *loader = loaderFor(source);
    _isJPEG = loader == jpegLoader;
    if (_isTIFF) return KVTIFFMetadata::withMetadataOf(_path, imageOfTIFF(loader, _path));
    VImage image = load(loader, source, readingOptions());
    if (start != "\x89PNG") return image;
    return KVPNGFile::withMetadataOf(_path, KVPNGFile::withOrdinaryGamma(_path, image));
}

KVResult<KVPictureSource> KVPictureSource::open(const QString &path, const std::stop_token &stop) {
    KVVipsLibrary::prepare();
    std::optional<KVPictureSource> source;
    try {
        const auto failure = KVPictureAttempt::failure([&] { source = KVPictureSource(path, stop); },
                                                       [&] { return reasonElsewhere(path, stop); });
        if (failure) return tl::unexpected(unreadable(*failure));
    } catch (const std::exception &error) {
        return tl::unexpected(unreadable(QString::fromUtf8(error.what()).simplified()));
    }
    const KVSize size = source->uprightSize();
    if (!isWithinLimit(size)) return tl::unexpected(tooLarge(size));
    return *source;
}

bool KVPictureSource::isWithinLimit(const KVSize &size) {
    return size.width * size.height <= static_cast<double>(maximumPixels);
}

QString KVPictureSource::reasonElsewhere(const QString &path, const std::stop_token &stop) {
    return stop.stop_requested() ? QString() : KVPictureHelper::failureOf(path, stop).value_or(QString());
}

KVError KVPictureSource::unreadable(const QString &detail) {
    return {KVPictureErrorDomain,
            0,
            KVLocalizationCenter::localized("The picture cannot be read: %@", {detail}),
            {}};
}

KVError KVPictureSource::tooLarge(const KVSize &size) {
    return {
        KVPictureErrorDomain,
        0,
        KVLocalizationCenter::localized(
            "The picture is too large: %li x %li pixels, where %li million pixels are the limit.",
            {static_cast<qint64>(size.width), static_cast<qint64>(size.height), maximumPixels / 1'000'000}),
        {}};
}

KVError KVPictureSource::tooLong(const KVSize &size, double maximumSide) {
    return {KVPictureErrorDomain,
            0,
            KVLocalizationCenter::localized(
                "This format allows at most %li pixels on a side, but the picture would have %li x %li.",
                {static_cast<qint64>(maximumSide), static_cast<qint64>(size.width),
                 static_cast<qint64>(size.height)}),
            {}};
}

KVSize KVPictureSource::uprightSize() const {
    const KVSize size{static_cast<double>(_image.width()), static_cast<double>(_image.height())};
    return orientation(_image) >= 5 ? KVSize{size.height, size.width} : size;
}

int KVPictureSource::numberOfPages() const {
    if (_isTIFF) return KVTIFFFile::numberOfPages(_path);
    return _image.get_typeof(VIPS_META_N_PAGES) ? _image.get_int(VIPS_META_N_PAGES) : 1;
}

VImage KVPictureSource::imageToShrink(double factor, const std::stop_token &stop) const {
    const bool isTooLargeForMemory = _isJPEG && KVJPEGFile::needsMuchMemory(_image);
    const int shrink = !_isJPEG ? 1 : factor >= 16 ? 8 : factor >= 8 ? 4 : factor >= 4 ? 2 : 1;
    if (shrink == 1 && !isTooLargeForMemory) return _image;
    const VSource source = isTooLargeForMemory ? KVJPEGFile::rowByRow(_path, stop) : sourceOf(_path);
    return load(jpegLoader, source, readingOptions()->set("shrink", shrink));
}

int KVPictureSource::orientation(const VImage &image) {
    if (!image.get_typeof(VIPS_META_ORIENTATION)) return 1;
    const int orientation = image.get_int(VIPS_META_ORIENTATION);
    return orientation >= 1 && orientation <= 8 ? orientation : 1;
}
