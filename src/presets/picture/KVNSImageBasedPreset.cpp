#include "presets/picture/KVNSImageBasedPreset.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "presets/picture/KVPictureRendering.h"
#include "presets/picture/KVPictureSettings.h"
#include "presets/picture/KVPictureWriter.h"
#include "util/KVHiddenOutput.h"
#include "util/KVThreadCount.h"
#include "util/picture/KVPictureAttempt.h"
#include "util/picture/KVPictureSource.h"
#include "video_info/media_file/KVPictureFile.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <utility>

namespace {

/// Counts the pictures that are being converted side by side, so that together they keep the processors that
/// the program may use busy and no more.
class RunningPicture {
  public:
    RunningPicture() { ++_count; }
    ~RunningPicture() { --_count; }
    RunningPicture(const RunningPicture &) = delete;
    RunningPicture &operator=(const RunningPicture &) = delete;

    static int threads() {
        const int processors = KVThreadCount(KVProcessInfo::activeProcessorCount(), 1);
        return std::max(processors / std::max(_count.load(), 1), 1);
    }

  private:
    static inline std::atomic<int> _count = 0;
};

constexpr const char *cancelled = "It was cancelled.";

KVError unconvertible(const QString &detail) {
    return {KVPictureErrorDomain,
            0,
            KVLocalizationCenter::localized("The picture cannot be converted: %@", {detail}),
            {}};
}

tl::unexpected<KVError> failed(const QString &logLine, const KVError &error) {
    KVLog(logLine);
    KVLog(error.reason);
    return tl::unexpected(error);
}

tl::unexpected<KVError> failedToWrite(const QString &target, const KVError &error) {
    KVLog("Failed write data to " + target + ' ' + error.reason);
    return tl::unexpected(error);
}

} // namespace

KVImageFileType KVNSImageBasedPreset::imageFileType() const {
    KVFatalError("imageFileType");
}

KVResult<QUrl> KVNSImageBasedPreset::convertPictureFile(const std::shared_ptr<KVPictureFile> &file,
                                                        const QUrl &toURL,
                                                        const std::stop_token &stop) const {
    const QString baseName =
        KVFileManager::deletingPathExtension(KVFileManager::lastPathComponent(file->url()));
    const auto pathAt = [&](int counter) {
        const QString fileName = counter == 0 ? baseName : KVText::format("%@.%02li", {baseName, counter});
        const QString extension = pathExtension().value_or(QString());
        return KVFileManager::appendingPathComponent(toURL, fileName + '.' + extension).toLocalFile();
    };

    const auto source = KVPictureSource::open(file->url().toLocalFile());
    if (!source) return failed("Failed to read image from " + file->url().toString(), source.error());

    const auto output = KVHiddenOutput::create(toURL.toLocalFile());
    if (!output) return failedToWrite(pathAt(0), output.error());
    if (const auto encoded = _encode(*source, pathAt(0), **output, stop); !encoded)
        return tl::unexpected(encoded.error());
    const auto path = (*output)->publish(pathAt);
    if (!path) return failedToWrite(pathAt(0), path.error());
    return QUrl::fromLocalFile(*path);
}

KVResult<void> KVNSImageBasedPreset::_encode(const KVPictureSource &source, const QString &target,
                                             KVHiddenOutput &output, const std::stop_token &stop) const {
    const KVSize size = scaledSize(source.uprightSize());
    const double maximumSide = KVPictureWriter::format(imageFileType()).maximumSide;
    if (!KVPictureSource::isWithinLimit(size) || std::max(size.width, size.height) > maximumSide)
        return failed("Failed to get TIFF image representation.", KVPictureSource::tooLarge(size));

    bool isFirst = true;
    const auto attempt = [&] {
        if (stop.stop_requested()) throw std::runtime_error(cancelled);
        const bool isOnceMore = !std::exchange(isFirst, false);
        if (isOnceMore) output.restart();
        _write(isOnceMore ? source.openedAnew() : source, output, stop);
    };
    std::optional<QString> failure;
    try {
        failure = KVPictureAttempt::failure(attempt);
    } catch (const std::exception &error) {
        failure = QString::fromUtf8(error.what());
    }
    if (!failure) return {};
    if (stop.stop_requested()) failure = cancelled;
    if (const int writeError = output.writeError())
        return failedToWrite(target, KVPOSIXError(target, writeError));
    return failed("Failed to create data from bitmap image rep.", unconvertible(*failure));
}

void KVNSImageBasedPreset::_write(const KVPictureSource &source, KVHiddenOutput &output,
                                  const std::stop_token &stop) const {
    const RunningPicture running;
    auto picture = KVPictureRendering::render(source, scaledSize(source.uprightSize()),
                                              KVPictureWriter::format(imageFileType()), stop);
    picture.set(VIPS_META_CONCURRENCY, RunningPicture::threads());
    const std::stop_callback end(stop, [&] {
        vips_image_set_kill(picture.get_image(), TRUE);
        output.cancel();
    });
    KVPictureWriter::write(picture, imageFileType(), properties(), output);
}

std::shared_ptr<KVSettingsBase> KVNSImageBasedPreset::settings() {
    return KVPictureSettings(_shared<KVNSImageBasedPreset>());
}
