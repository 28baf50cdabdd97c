#include "util/KVPictureLibrary.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLog.h"
#include "util/picture/KVPictureAttempt.h"
#include "util/picture/KVPictureSource.h"

#include <vips/vips8>

#include <algorithm>
#include <memory>
#include <mutex>
#include <utility>

namespace {

void writeToLog(const gchar *, GLogLevelFlags, const gchar *message, gpointer) {
    const QString text = QString::fromUtf8(message);
    KVLog("Image library: " + text);
    KVPictureAttempt::noteWarning(text);
}

void start() {
    if (VIPS_INIT("kalvora") != 0)
        KVFatalError("The image library does not start: " + KVPictureLibrary::takeErrorText());
    // Every file is read once: a cache would only hold memory.
    vips_cache_set_max(0);
    g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_RECURSION),
                      writeToLog, nullptr);
}

/// The opened picture, or a log line.
KVResult<KVPictureSource> sourceAt(const QString &path) {
    auto source = KVPictureSource::open(path);
    if (!source) KVLog("Could not read picture " + path + " - " + source.error().reason);
    return source;
}

/// The opened picture in little.
vips::VImage reduced(const KVPictureSource &source, int longestSide) {
    const KVSize size = source.uprightSize();
    const auto picture = source.imageToShrink(std::max(size.width, size.height) / longestSide);
    return picture.thumbnail_image(
        longestSide, vips::VImage::option()->set("height", longestSide)->set("size", VIPS_SIZE_DOWN));
}

QImage imageOf(vips::VImage picture) {
    picture = picture.colourspace(VIPS_INTERPRETATION_sRGB);
    if (picture.has_alpha()) picture = picture.flatten();
    picture = picture.cast(VIPS_FORMAT_UCHAR);
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&g_free)> pixels(picture.write_to_memory(&size), g_free);
    const QImage view(static_cast<const uchar *>(pixels.get()), picture.width(), picture.height(),
                      qsizetype{3} * picture.width(), QImage::Format_RGB888);
    return view.copy();
}

} // namespace

void KVPictureLibrary::prepare() {
    static std::once_flag once;
    std::call_once(once, start);
}

QString KVPictureLibrary::takeErrorText() {
    const std::unique_ptr<char, decltype(&g_free)> text(vips_error_buffer_copy(), g_free);
    return QString::fromUtf8(text.get()).simplified();
}

KVResult<KVPictureLibrary::Header> KVPictureLibrary::header(const QString &path) {
    const auto source = sourceAt(path);
    if (!source) return tl::unexpected(source.error());
    const KVSize size = source->uprightSize();
    return Header{static_cast<int>(size.width), static_cast<int>(size.height), source->numberOfPages()};
}

std::optional<QImage> KVPictureLibrary::reducedImage(const QString &path, int longestSide) {
    const auto source = sourceAt(path);
    if (!source) return std::nullopt;
    QImage image;
    const auto failure = KVPictureAttempt::failure([&, isFirst = true]() mutable {
        image = imageOf(reduced(std::exchange(isFirst, false) ? *source : source->openedAnew(), longestSide));
    });
    if (!failure) return image;
    KVLog("Could not read picture " + path + " - " + *failure);
    return std::nullopt;
}
