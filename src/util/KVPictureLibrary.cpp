#include "util/KVPictureLibrary.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLog.h"

#include <QFile>

#include <vips/vips8>

#include <memory>
#include <mutex>

namespace {

void writeToLog(const gchar *, GLogLevelFlags, const gchar *message, gpointer) {
    KVLog("Image library: " + QString::fromUtf8(message));
}

void start() {
    if (VIPS_INIT("kalvora") != 0)
        KVFatalError("The image library does not start: " + KVPictureLibrary::takeErrorText());
    // Every file is read once: a cache would only hold memory.
    vips_cache_set_max(0);
    g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_RECURSION),
                      writeToLog, nullptr);
}

/// Runs `read` with the library made ready; nothing, and a log line, where it fails.
template <class Read>
auto reading(const QString &path, Read read) -> std::optional<decltype(read(QByteArray()))> {
    KVPictureLibrary::prepare();
    try {
        return read(QFile::encodeName(path));
    } catch (const vips::VError &) {
        KVLog("Could not read picture " + path + " - " + KVPictureLibrary::takeErrorText());
        return std::nullopt;
    }
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

std::optional<KVPictureLibrary::Header> KVPictureLibrary::header(const QString &path) {
    return reading(path, [](const QByteArray &name) {
        const auto picture = vips::VImage::new_from_file(name.constData());
        const int pages = picture.get_typeof(VIPS_META_N_PAGES) ? picture.get_int(VIPS_META_N_PAGES) : 1;
        return Header{picture.width(), picture.height(), pages};
    });
}

std::optional<QImage> KVPictureLibrary::reducedImage(const QString &path, int longestSide) {
    return reading(path, [longestSide](const QByteArray &name) {
        return imageOf(vips::VImage::thumbnail(
            name.constData(), longestSide,
            vips::VImage::option()->set("height", longestSide)->set("size", VIPS_SIZE_DOWN)));
    });
}
