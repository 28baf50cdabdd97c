#include "presets/picture/KVNSImageBasedPreset.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "presets/picture/KVPictureSettings.h"
#include "util/KVHiddenOutput.h"
#include "util/KVPictureLibrary.h"
#include "video_info/media_file/KVPictureFile.h"

namespace {

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
        const QString ending = (counter == 0 ? QString() : KVText::format(".%02li", {counter})) + '.' +
                               pathExtension().value_or(QString());
        const QString fileName = KVFileManager::fittingName(baseName, ending);
        return KVFileManager::appendingPathComponent(toURL, fileName).toLocalFile();
    };

    const auto picture = KVPictureLibrary::open(file->url().toLocalFile(), stop);
    if (!picture) return failed("Failed to read image from " + file->url().toString(), picture.error());

    const auto output = KVHiddenOutput::create(toURL.toLocalFile());
    if (!output) return failedToWrite(pathAt(0), output.error());
    if (const auto encoded = _encode(**picture, pathAt(0), **output, stop); !encoded)
        return tl::unexpected(encoded.error());
    const auto path = (*output)->publish(pathAt);
    if (!path) return failedToWrite(pathAt(0), path.error());
    return QUrl::fromLocalFile(*path);
}

KVResult<void> KVNSImageBasedPreset::_encode(const KVOpenedPicture &picture, const QString &target,
                                             KVHiddenOutput &output, const std::stop_token &stop) const {
    const KVSize size = scaledSize(picture.uprightSize());
    if (const auto objection = picture.objectionTo(size, imageFileType()))
        return failed("Failed to get TIFF image representation.", *objection);

    auto failure = picture.write(size, imageFileType(), properties(), output, stop);
    if (!failure) return {};
    if (stop.stop_requested()) failure = cancelled;
    if (const int writeError = output.writeError())
        return failedToWrite(target, KVPOSIXError(target, writeError));
    return failed("Failed to create data from bitmap image rep.", unconvertible(*failure));
}

std::shared_ptr<KVSettingsBase> KVNSImageBasedPreset::settings() {
    return KVPictureSettings(_shared<KVNSImageBasedPreset>());
}
