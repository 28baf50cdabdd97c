#include "support/KVTestSources.h"

#include "support/KVTestCase.h"

#include <QProcess>

std::shared_ptr<KVVideoFile> KVTestSources::video(const Video &source) {
    auto file = std::make_shared<KVVideoFile>(QUrl::fromLocalFile(source.path));
    KVVideoTrack videoTrack;
    videoTrack.format = source.format;
    videoTrack.width = source.width;
    videoTrack.height = source.height;
    videoTrack.bitrate = source.bitrate;
    videoTrack.framesPerSecond = source.framesPerSecond;
    file->videoTracks = {videoTrack};
    file->selectedVideoTrack = videoTrack;
    qint64 trackNumber = 1;
    for (int i = 0; source.channels > 0 && i < source.audioTracks; ++i) {
        KVAudioTrack audioTrack;
        audioTrack.format = "aac";
        audioTrack.bitrate = 128;
        audioTrack.frequency = 48000;
        audioTrack.numberOfChannels = source.channels;
        audioTrack.trackNumber = trackNumber++;
        file->audioTracks << audioTrack;
    }
    if (!file->audioTracks.isEmpty()) file->selectedAudioTrack = file->audioTracks.first();
    for (const QString &format : source.subtitleFormats) {
        KVSubtitleTrack subtitleTrack;
        subtitleTrack.format = format;
        subtitleTrack.trackNumber = trackNumber++;
        file->subtitleTracks << subtitleTrack;
    }
    return file;
}

void KVTestSources::expectArguments(const std::string &label, const QStringList &got,
                                    const QStringList &want) {
    const auto at = [](const QStringList &list, qsizetype index) {
        return index < list.size() ? testing::PrintToString(list.at(index)) : std::string("the end");
    };
    for (qsizetype i = 0; i < qMax(got.size(), want.size()); ++i) {
        if (i < got.size() && i < want.size() && got.at(i) == want.at(i)) continue;
        ADD_FAILURE() << label << ": index " << i << " is " << at(got, i) << " and should be " << at(want, i)
                      << "\n  in " << testing::PrintToString(got);
        return;
    }
}

QStringList KVTestSources::list(const char *line) {
    return QProcess::splitCommand(QString::fromUtf8(line));
}
