#include "conversion/conversions/KVVideoConversion.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "video_info/media_file/KVVideoFile.h"

void KVVideoConversion::_handleTaskOutputForMediaFiles(const KVAudioFileList &files) {
    const auto video = files.isEmpty() ? nullptr : std::dynamic_pointer_cast<KVVideoFile>(files.first());
    if (video && video->subtitlesFileURL) {
        setStatusString(KVLocalizationCenter::localized("Preparing subtitles..."));
        notifyDelegatesAboutProgress();
        KVMainThread::after(0.5, [self = shared_from_this()] {
            if (self->isExecuting()) self->setStatusString({});
        });
    }
    KVAudioConversion::_handleTaskOutputForMediaFiles(files);
}
