#include "presets/video/other/KViPhoneRingtonePreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "video_info/media_file/KVAudioFile.h"

QString KViPhoneRingtonePreset::defaultName() const {
    return KVLocalizationCenter::localized("iPhone Ringtone");
}

QString KViPhoneRingtonePreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("iPhone Ringtone");
}

QStringList KViPhoneRingtonePreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                                  const QUrl &outputFile) const {
    const auto audio = std::dynamic_pointer_cast<KVAudioFile>(file);
    if (!audio) return {};
    constexpr double longestSeconds = 40;
    QStringList arguments{"-y", "-i", audio->url().toLocalFile(), "-vn"};
    if (audio->seconds >= longestSeconds) arguments += {"-t", "40"};
    // clang-format off
    return arguments + QStringList{
        "-ac", "1", "-ab", "128k", "-f", "mp4", "-acodec", "aac", "-metadata", "genre=Ringtone",
        "-strict", "-2", "-max_muxing_queue_size", "40000", outputFile.toLocalFile()};
    // clang-format on
}
