#include "util/picture/KVVipsPicture.h"

#include "util/KVHiddenOutput.h"
#include "util/KVLiveCount.h"
#include "util/KVThreadCount.h"
#include "util/picture/KVPictureAttempt.h"
#include "util/picture/KVPictureRendering.h"
#include "util/picture/KVPictureWriter.h"

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <utility>

namespace {

/// Counts the pictures that are being converted side by side, so that together they keep the processors that
/// the program may use busy and no more.
class RunningPicture : public KVLiveCount<RunningPicture> {
  public:
    static int threads() {
        const int processors = KVThreadCount(KVProcessInfo::activeProcessorCount(), 1);
        return std::max(processors / std::max(number(), 1), 1);
    }
};

/// The picture in little.
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

/// Calls `attempt` and returns the reason if it throws.
std::optional<QString> failureIn(const std::function<void()> &attempt,
                                 const std::function<QString()> &reasonElsewhere) {
    try {
        return KVPictureAttempt::failure(attempt, reasonElsewhere);
    } catch (const std::exception &error) {
        return QString::fromUtf8(error.what());
    }
}

} // namespace

KVResult<std::unique_ptr<KVOpenedPicture>> KVVipsPicture::open(const QString &path,
                                                               const std::stop_token &stop) {
    auto source = KVPictureSource::open(path, stop);
    if (!source) return tl::unexpected(source.error());
    return std::make_unique<KVVipsPicture>(std::move(*source));
}

KVResult<QImage> KVVipsPicture::reducedImage(int longestSide, const std::stop_token &stop) const {
    QImage image;
    const auto failed = failureIn([&] { image = imageOf(reduced(_source, longestSide)); },
                                  [&] { return KVPictureSource::reasonElsewhere(_source.path(), stop); });
    if (failed) return tl::unexpected(KVPictureSource::unreadable(*failed));
    return image;
}

std::optional<KVError> KVVipsPicture::objectionTo(const KVSize &size, KVImageFileType type) const {
    const double maximumSide = KVPictureWriter::format(type).maximumSide;
    if (!KVPictureSource::isWithinLimit(size)) return KVPictureSource::tooLarge(size);
    if (std::max(size.width, size.height) > maximumSide) return KVPictureSource::tooLong(size, maximumSide);
    return std::nullopt;
}

std::optional<QString> KVVipsPicture::write(const KVSize &size, KVImageFileType type,
                                            const QVariantMap &properties, KVHiddenOutput &output,
                                            const std::stop_token &stop) const {
    const auto encode = [&] {
        if (stop.stop_requested()) throw std::runtime_error("It was cancelled.");
        const RunningPicture running;
        auto picture = KVPictureRendering::render(_source, size, KVPictureWriter::format(type), stop);
        picture.set(VIPS_META_CONCURRENCY, RunningPicture::threads());
        const std::stop_callback end(stop, [&] {
            vips_image_set_kill(picture.get_image(), TRUE);
            output.cancel();
        });
        KVPictureWriter::write(picture, type, properties, output);
    };
    return failureIn(encode, [&] {
        const bool isOutput = output.writeError() != 0;
        return isOutput ? QString() : KVPictureSource::reasonElsewhere(_source.path(), stop);
    });
}
