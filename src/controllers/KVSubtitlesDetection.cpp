#include "controllers/KVSubtitlesDetection.h"

#include "controllers/KVTextEncodings.h"
#include "kvcore/KVLog.h"
#include "presets/video/base/KVSubtitlesFile.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFile>

#include <algorithm>

namespace {

// What is longer is no subtitles file; the intake must not read it whole.
constexpr qint64 mostBytesRead = qint64{32} * 1024 * 1024;

/// True for text with a time code, as every subtitle has one. What is decoded wrongly has control characters.
bool looksLikeSubtitles(const QString &text) {
    const bool hasControls = std::ranges::any_of(text, [](QChar character) {
        return character.unicode() < 0x20 && !character.isSpace() && character.unicode() != 0x1B;
    });
    return !hasControls && text.contains(QLatin1String("-->"));
}

std::optional<QString> encodingOf(const QByteArray &bytes) {
    const QString unicode = QStringLiteral("UTF-8");
    if (KVSubtitlesFile::decoded(bytes, unicode)) return unicode;
    for (const KVTextEncoding &encoding : KVTextEncodingsByLikelihood(bytes)) {
        const auto text = KVSubtitlesFile::decoded(bytes, encoding.name);
        if (text && looksLikeSubtitles(*text)) return encoding.name;
    }
    return std::nullopt;
}

} // namespace

void KVSubtitlesDetection::settleEncoding(KVVideoFile &video) {
    const QUrl url = *video.subtitlesFileURL;
    QFile file(url.toLocalFile());
    if (!file.open(QIODevice::ReadOnly)) return; // reported when the conversion reads it
    const auto encoding =
        file.size() > mostBytesRead ? std::optional<QString>() : encodingOf(file.read(mostBytesRead));
    if (!encoding) return video.setUnreadableSubtitles(url);
    KVLog("The text encoding of " + url.toLocalFile() + " is " + *encoding);
    video.setSubtitles(url, *encoding);
}
