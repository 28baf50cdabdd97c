#include "cli/KVConversionRequest.h"

#include "cli/KVInputPath.h"
#include "cli/KVParsedWords.h"
#include "cli/KVPresetChoice.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "presets/video/base/KVSubtitlesFile.h"
#include "tasks/KVFFmpegTask.h"
#include "tasks/KVHardwareAcceleration.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFile>

#include <iconv.h>

namespace {

bool isKnownEncoding(const QString &name) {
    if (name.isEmpty()) return false; // would mean the environment's own
    const iconv_t converter = ::iconv_open("UTF-8", name.toLatin1().constData());
    if (converter == iconv_t(-1)) return false;
    ::iconv_close(converter);
    return true;
}

std::optional<QUrl> askForDestination(KVMediaFileType type) {
    KVOpenPanel panel;
    panel.message = KVLocalizationCenter::localized("Please, select a destination for converting %@s:",
                                                    {KVMediaFileTypes::localizedName(type)});
    const QList<QUrl> chosen = KVUserQuestion::runModalOnMainThread(panel);
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen.first());
}

/// Subtitles that nobody can read would be left out without a word.
std::optional<QString> objectionTo(const QUrl &subtitles, const QString &encoding) {
    QFile file(subtitles.toLocalFile());
    const bool isFile = !KVFileManager::isDirectory(subtitles) && !KVFileManager::isSpecialFile(subtitles);
    if (!isFile || !file.open(QIODevice::ReadOnly))
        return QStringLiteral("The subtitles file %1 cannot be read.").arg(file.fileName());
    const auto text = KVSubtitlesFile::decoded(file.readAll(), encoding);
    if (!text)
        return QStringLiteral("The subtitles file %1 is not in the encoding %2; --subtitles-encoding names "
                              "another one.")
            .arg(file.fileName(), encoding);
    if (KVSubtitlesFile::isBlank(*text))
        return QStringLiteral("The subtitles file %1 is empty.").arg(file.fileName());
    return std::nullopt;
}

} // namespace

QList<KVCommandOption> KVConversionRequest::options() {
    return {
        {"preset", "NAME", "the preset, by its exact name (\"kalvoractl presets\" lists them)"},
        {"set", "KEY=VALUE", "change a setting of the preset for this run", true},
        {"to", "FOLDER", "the destination; without it the preferences decide, at first the source's folder"},
        {"subtitles", "FILE", "the subtitles of the first FILE"},
        {"subtitles-encoding", "NAME", "their text encoding, such as windows-1251"},
        {"audio-track", "N", "the audio track of the first FILE, by its trackNumber"}};
}

tl::expected<KVConversionRequest, QString> KVConversionRequest::make(const KVParsedWords &words) {
    KVConversionRequest request;
    if (const auto folder = words.value("to")) {
        if (folder->isEmpty()) return tl::unexpected(QStringLiteral("--to needs a folder"));
        request.destination = KVInputPath::url(*folder);
    }
    if (const auto file = words.value("subtitles")) {
        if (file->isEmpty()) return tl::unexpected(QStringLiteral("--subtitles needs a file"));
        request.subtitles = KVInputPath::url(*file);
    }
    request.subtitlesEncoding = words.value("subtitles-encoding").value_or(QString());
    if (words.isSet("subtitles-encoding") && !isKnownEncoding(request.subtitlesEncoding))
        return tl::unexpected(
            QStringLiteral("there is no text encoding \"%1\"").arg(request.subtitlesEncoding));
    if (const auto number = words.value("audio-track")) {
        bool isNumber = false;
        request.audioTrack = number->toLongLong(&isNumber);
        if (!isNumber || *request.audioTrack < 0)
            return tl::unexpected(QStringLiteral("\"%1\" is no track number").arg(*number));
    }

    for (const KVCommandArgument &argument : words.arguments()) {
        if (argument.isReadable)
            request.inputs.append(KVInputPath::url(argument.text));
        else
            request.unreadableInputs.append(argument.text);
        if (request.unreadableInputs.isEmpty()) request.firstInput = request.inputs.first();
    }

    const auto name = words.value("preset");
    if (!name) return tl::unexpected(QStringLiteral("--preset NAME is missing"));
    if (words.arguments().isEmpty()) return tl::unexpected(QStringLiteral("a FILE is missing"));
    auto preset = KVPresetChoice::make(*name, words.values("set"));
    if (!preset) return tl::unexpected(preset.error());
    request.preset = std::move(*preset);
    return request;
}

std::optional<QString> KVConversionRequest::prepareFirstFile(KVMediaFile &file) const {
    if (!subtitles && subtitlesEncoding.isEmpty()) return std::nullopt;
    auto *video = dynamic_cast<KVVideoFile *>(&file);
    if (!video) return QStringLiteral("Only a video can have subtitles.");
    if (subtitles)
        video->setSubtitles(*subtitles,
                            subtitlesEncoding.isEmpty() ? QStringLiteral("UTF-8") : subtitlesEncoding);
    else if (const auto &found =
                 video->subtitlesFileURL ? video->subtitlesFileURL : video->unreadableSubtitlesURL())
        video->setSubtitles(QUrl(*found), subtitlesEncoding);
    return subtitles ? objectionTo(*subtitles, video->subtitlesFileEncoding) : std::nullopt;
}

std::optional<QString> KVConversionRequest::prepareEncoder() const {
    if (preset->presetType() != KVMediaFileType::video) return std::nullopt;
    const auto fonts = KVFFmpegTask::preparedFontsDirectory(); // the test ends the program without them
    if (!fonts)
        return QStringLiteral("The program's own files cannot be written: %1").arg(fonts.error().reason);
    KVHardwareAcceleration::shared().waitForResult();
    return std::nullopt;
}

bool KVConversionRequest::settleDestination() const {
    using namespace KVPreferenceKeys;
    auto &preferences = KVPreferences::shared();
    auto folder = destination;
    if (!folder) {
        const bool isKnown = preferences.boolean(SaveToSourceFolder, true) ||
                             KVAppScopeBookmarksManager::url(FixedDestinationBookmark);
        if (isKnown) return true;
        folder = askForDestination(preset->presetType());
    }
    const auto bookmark = folder ? KVBookmark::data(*folder) : std::nullopt;
    if (!bookmark) return false;
    preferences.setValueForThisRun(*bookmark, FixedDestinationBookmark);
    preferences.setValueForThisRun(false, SaveToSourceFolder);
    return true;
}
