#include "cli/KVLostSubtitles.h"

#include "cli/KVConsole.h"
#include "presets/video/base/KVSubtitlesFile.h"

KVLostSubtitles::KVLostSubtitles(KVConsole &console, const std::optional<QUrl> &chosen) {
    KVSubtitlesFile::setFailureObserver([this, &console, chosen](const QUrl &url, const QString &reason) {
        const bool isChosen = url == chosen;
        if (isChosen) _haveChosen = true;
        console.say(QStringLiteral("%1: the subtitles file %2 is left out: %3")
                        .arg(isChosen ? "kalvoractl" : "note", url.toLocalFile(), reason));
    });
}

KVLostSubtitles::~KVLostSubtitles() {
    KVSubtitlesFile::setFailureObserver({});
}
