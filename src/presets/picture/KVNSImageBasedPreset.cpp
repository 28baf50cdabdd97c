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
#include "util/KVPictureLibrary.h"
#include "util/KVThreadCount.h"
#include "util/picture/KVPictureSource.h"
#include "video_info/media_file/KVPictureFile.h"

#include <algorithm>
#include <atomic>

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

/// Why the library could not go on.
KVError unconvertible(const std::exception &error) {
    KVPictureLibrary::takeErrorText();
    const QString detail = QString::fromUtf8(error.what()).simplified();
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
                                                        const QUrl &toURL) const {
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
    if (const auto encoded = _encode(*source, pathAt(0), **output); !encoded)
        return tl::unexpected(encoded.error());
    const auto path = (*output)->publish(pathAt);
    if (!path) return failedToWrite(pathAt(0), path.error());
    return QUrl::fromLocalFile(*path);
}

KVResult<void> KVNSImageBasedPreset::_encode(const KVPictureSource &source, const QString &target,
                                             KVHiddenOutput &output) const {
    const KVPictureFormat &format = KVPictureWriter::format(imageFileType());
    const KVSize size = scaledSize(source.uprightSize());
    if (!KVPictureSource::isWithinLimit(size) || std::max(size.width, size.height) > format.maximumSide)
        return failed("Failed to get TIFF image representation.", KVPictureSource::tooLarge(size));
    const RunningPicture running;
    try {
        auto picture = KVPictureRendering::render(source, size, format);
        picture.set(VIPS_META_CONCURRENCY, RunningPicture::threads());
        KVPictureWriter::write(picture, imageFileType(), properties(), output);
        return {};
    } catch (const std::exception &error) {
        const KVError reason = unconvertible(error);
        if (const int writeError = output.writeError())
            return failedToWrite(target, KVPOSIXError(target, writeError));
        return failed("Failed to create data from bitmap image rep.", reason);
    }
}

std::shared_ptr<KVSettingsBase> KVNSImageBasedPreset::settings() {
    return KVPictureSettings(_shared<KVNSImageBasedPreset>());
}
