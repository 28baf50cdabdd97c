#include "conversion/conversions/KVPictureConversion.h"

#include "conversion/conversions/KVResultCheck.h"
#include "core/KVHistoryCenter.h"
#include "kvcore/KVFatalError.h"
#include "platform/KVFileManager.h"
#include "presets/picture/KVPicturePreset.h"
#include "video_info/media_file/KVPictureFile.h"

namespace {

template <class Wanted, class Given>
std::shared_ptr<Wanted> required(const std::shared_ptr<Given> &object, const char *message) {
    auto wanted = std::dynamic_pointer_cast<Wanted>(object);
    if (!wanted) KVFatalError(message);
    return wanted;
}

} // namespace

bool KVPictureConversion::performTaskNumber(int) {
    const auto &files = _inWork().files;
    const auto file = required<KVPictureFile>(files.isEmpty() ? nullptr : files.last(),
                                              "A picture conversion needs a picture file!");
    const auto &preset = _inWork().preset;
    const auto folder = _destinationFolder(*file);
    if (!folder) {
        _recordError({}, "No output URL is set.", 1);
        return false;
    }

    const auto picturePreset =
        required<KVPicturePreset>(preset, "A picture conversion needs a picture preset!");
    const auto converted = picturePreset->convertPictureFile(file, *folder, _stop.get_token());
    if (converted) {
        const KVSize planned = picturePreset->scaledSize({file->width, file->height});
        for (const QString &warning : KVResultCheck::pictureShortcomings(converted->toLocalFile(), planned))
            addWarning(warning);
    }
    setOutputURL(converted ? std::optional(*converted) : std::nullopt);
    if (converted)
        KVHistoryCenter::shared().addFileAndSave(*converted, KVMediaFileType::picture);
    else
        _recordError({}, {}, 1, converted.error().reason);
    progressOfCurrentTask = 1;
    notifyDelegatesAboutProgress();
    return converted.has_value();
}

std::optional<QUrl> KVPictureConversion::_destinationFolder(const KVMediaFile &file) const {
    if (_inWork().savesToSourceFolder) return KVFileManager::deletingLastPathComponent(file.url());
    return _inWork().outputDirectoryURL;
}
