#include "presets/video/variable_bitrate/KVHTTPLiveStreamingPreset.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"

#include <QDir>
#include <QFileInfo>

QString KVHTTPLiveStreamingPreset::defaultName() const {
    return KVLocalizationCenter::localized("HTTP Live Streaming");
}

QString KVHTTPLiveStreamingPreset::localizedFormatDescription() const {
    return KVMP4Preset::localizedFormatDescription() +
           KVLocalizationCenter::localized("\nOutput split into parts.");
}

QStringList KVHTTPLiveStreamingPreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                                     const QUrl &outputFile) const {
    return segmentedArguments(KVMP4Preset::taskArguments(file, outputFile));
}

QStringList KVHTTPLiveStreamingPreset::segmentedArguments(QStringList arguments) {
    if (arguments.isEmpty()) KVFatalError("There is no list to take the segments' list from.");
    const QFileInfo output(arguments.takeLast());
    const QDir folder(output.dir().filePath(output.completeBaseName()));
    folder.mkpath(".");

    if (const auto at = arguments.indexOf("-f"); at >= 0)
        arguments.remove(at, qMin(2, arguments.size() - at));
    for (const char *option : {"-copyts", "-movflags", "+faststart"})
        arguments.removeAll(option);
    // clang-format off
    return arguments + QStringList{
        "-map", "0", "-f", "segment", "-bsf", "h264_mp4toannexb", "-vbsf", "h264_mp4toannexb",
        "-flags", "-global_header", "-segment_format", "mpegts",
        "-segment_list", folder.filePath("output.m3u8"), "-segment_time", "10",
        "-max_muxing_queue_size", "40000", folder.filePath("output-%03d.ts")};
    // clang-format on
}
