#include "conversion/conversions/KVResultPlan.h"

#include "kvcore/KVText.h"
#include "video_info/media_file/KVVideoFile.h"
#include "video_info/media_file/KVWaveHeader.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

using AudioFiles = QList<std::shared_ptr<KVAudioFile>>;

/// The options of the output: all that follows the last input.
class OutputOptions {
  public:
    explicit OutputOptions(const QStringList &arguments) {
        const qsizetype lastInput = arguments.lastIndexOf("-i");
        for (qsizetype i = lastInput < 0 ? 0 : lastInput + 2; i < arguments.size(); ++i)
            _options += arguments[i];
    }

    bool has(const QString &option) const { return _options.contains(option); }
    bool hasAny(const QStringList &beginnings) const {
        return std::ranges::any_of(_options, [&](const QString &option) {
            return std::ranges::any_of(
                beginnings, [&](const QString &beginning) { return option.startsWith(beginning); });
        });
    }
    /// The values of all options of this name.
    QStringList values(const QString &option) const {
        QStringList values;
        for (qsizetype i = 0; i + 1 < _options.size(); ++i)
            if (_options[i] == option) values += _options[i + 1];
        return values;
    }

  private:
    QStringList _options;
};

bool hasTrack(const auto &tracks, qint64 number) {
    return std::ranges::any_of(tracks, [&](const auto &track) { return track.trackNumber == number; });
}

/// Counts the track that `mapping` takes: "0:1" of the source, "[v]" or "[a]" of a filter, or "1", the file
/// with subtitles.
void addMapping(const QString &mapping, const KVAudioFile &file, KVResultPlan &plan) {
    const auto *video = dynamic_cast<const KVVideoFile *>(&file);
    if (mapping == "[v]") ++plan.videoTracks;
    if (mapping == "[a]") ++plan.audioTracks;
    if (mapping == "1") ++plan.subtitleTracks;
    if (!mapping.startsWith("0:")) return;
    const qint64 number = KVText::integerValue(mapping.sliced(2));
    if (hasTrack(file.audioTracks, number)) ++plan.audioTracks;
    if (video && hasTrack(video->videoTracks, number)) ++plan.videoTracks;
    if (video && hasTrack(video->subtitleTracks, number)) ++plan.subtitleTracks;
}

/// Without mappings ffmpeg chooses the tracks, and some containers take no sound: only kinds that the
/// arguments mention are certain.
void addMentionedTracks(const OutputOptions &options, const KVAudioFile &file, KVResultPlan &plan) {
    const auto *video = dynamic_cast<const KVVideoFile *>(&file);
    if (video && !video->videoTracks.isEmpty() && !options.has("-vn") &&
        options.hasAny({"-c:v", "-vf", "-filter:v"}))
        plan.videoTracks = 1;
    if (!file.audioTracks.isEmpty() && !options.has("-an") && options.hasAny({"-c:a", "-acodec", "-af"}))
        plan.audioTracks = 1;
}

std::optional<QSize> sizeIn(const QStringList &texts, const QString &pattern) {
    if (texts.isEmpty()) return std::nullopt;
    const auto match = QRegularExpression(pattern).match(texts.last());
    if (!match.hasMatch()) return std::nullopt;
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    return size.isEmpty() ? std::nullopt : std::optional(size);
}

std::optional<QSize> pictureSize(const OutputOptions &options) {
    if (options.values("-c:v").contains("copy")) return std::nullopt;
    if (const auto size = sizeIn(options.values("-s"), "^(\\d+)x(\\d+)$")) return size;
    const QString filter = "\\b(?:pad|crop)='?(?:w=)?(\\d+):(?:h=)?(\\d+)";
    if (const auto size = sizeIn(options.values("-vf"), filter)) return size;
    return sizeIn(options.values("-filter:v"), filter);
}

QString copiedPicture(const OutputOptions &options, const KVAudioFile &file) {
    const auto *video = dynamic_cast<const KVVideoFile *>(&file);
    if (!video || !video->selectedVideoTrack || !options.values("-c:v").contains("copy")) return {};
    return video->selectedVideoTrack->codec();
}

} // namespace

KVResultPlan KVResultPlan::forFiles(const AudioFiles &files, const QStringList &arguments) {
    KVResultPlan plan;
    std::shared_ptr<KVAudioFile> first;
    for (qsizetype i = 0; i + 1 < arguments.size(); ++i) {
        if (arguments[i] != "-i") continue;
        const QString &path = arguments[i + 1];
        const auto file = std::ranges::find_if(
            files, [&](const auto &candidate) { return candidate->url().toLocalFile() == path; });
        if (file == files.end()) continue; // the file with subtitles
        if (!first) first = *file;
        plan.inputs += path;
        const double stated = KVWaveHeader::statedSeconds(path).value_or(0);
        plan.isSourceCut = plan.isSourceCut || stated > (*file)->seconds;
        plan.seconds += qMax(stated, (*file)->seconds);
    }
    if (!first) return plan;

    const OutputOptions options(arguments);
    for (const QString &longest : options.values("-t"))
        plan.seconds = qMin(plan.seconds, KVText::doubleValue(longest));
    const QStringList mappings = options.values("-map");
    for (const QString &mapping : mappings)
        addMapping(mapping, *first, plan);
    if (mappings.isEmpty()) addMentionedTracks(options, *first, plan);
    if (plan.videoTracks > 0) plan.pictureSize = ::pictureSize(options);
    if (plan.videoTracks > 0) plan.copiedPicture = ::copiedPicture(options, *first);
    return plan;
}
