#include "conversion/conversions/KVResultCheck.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVTime.h"
#include "util/KVPictureLibrary.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include <sys/stat.h>

namespace {

/// Where a source is cut off a few messages about its last frame are normal.
constexpr int mostPlacesOfACut = 2;

std::optional<double> secondsOf(const KVProbedResult &result, const KVFFmpegReport &report) {
    return result.seconds ? result.seconds : report.position();
}

bool isShort(double seconds, double planned) {
    return planned - seconds > std::max(1.0, planned * 0.02);
}

/// A track that is not used may be the longest one of its source.
bool isDurationOpen(const KVFFmpegReport &report) {
    return report.leavesStreamsOut() && !report.isSourceCut() && report.damagedPlaces() == 0;
}

void addDurationWarning(const KVResultPlan &plan, const KVProbedResult &result, const KVFFmpegReport &report,
                        QStringList &warnings) {
    const QVariantList times{KVTime::clockText(*secondsOf(result, report)), KVTime::clockText(plan.seconds)};
    const bool isCut = plan.isSourceCut || report.isSourceCut() || report.damagedPlaces() <= mostPlacesOfACut;
    warnings +=
        isCut
            ? KVLocalizationCenter::localized("Only %@ of %@ was converted: the source is incomplete.", times)
            : KVLocalizationCenter::localized("Only %@ of %@ was converted: the source is damaged.", times);
}

void addTrackWarnings(const KVResultPlan &plan, const KVProbedResult &result, const KVFFmpegReport &report,
                      QStringList &warnings) {
    const auto written = report.written();
    // A track may exist although nothing of it could be decoded.
    const bool isDamaged = report.damagedPlaces() > 0;
    const bool isSilent = isDamaged && written && written->audio == 0 && written->video > 0;
    const bool isBlind = isDamaged && written && written->video == 0 && written->audio > 0;
    if (plan.videoTracks > 0 && (result.videoTracks == 0 || isBlind))
        warnings += KVLocalizationCenter::localized("The result has no picture although the source has one.");
    if (plan.audioTracks > 0 && (result.audioTracks == 0 || isSilent))
        warnings += KVLocalizationCenter::localized("The result has no sound although the source has.");
    else if (result.audioTracks < plan.audioTracks)
        warnings += KVLocalizationCenter::localized("The result has only %i of %i audio tracks.",
                                                    {result.audioTracks, plan.audioTracks});
    if (result.subtitleTracks < plan.subtitleTracks)
        warnings += KVLocalizationCenter::localized("The result has no subtitles although the source has.");
}

/// The displayed width is calculated from a rounded shape.
bool isSameSize(const QSize &one, const QSize &other) {
    constexpr int rounding = 2;
    return one.height() == other.height() && std::abs(one.width() - other.width()) <= rounding;
}

void addSizeWarning(const QSize &planned, const QList<QSize> &sizes, QStringList &warnings) {
    if (sizes.isEmpty() || std::ranges::any_of(sizes, [&](auto size) { return isSameSize(size, planned); }))
        return;
    warnings += KVLocalizationCenter::localized(
        "The picture of the result has %i x %i instead of %i x %i pixels.",
        {sizes.first().width(), sizes.first().height(), planned.width(), planned.height()});
}

/// Some containers take any picture and then do not say what it is.
void addCodecWarning(const KVResultPlan &plan, const KVProbedResult &result, QStringList &warnings) {
    constexpr auto unpacked = "rawvideo";
    const bool isUnknown = result.pictureCodec == unpacked || result.pictureCodec == "none";
    if (plan.copiedPicture.isEmpty() || plan.copiedPicture == unpacked || !isUnknown) return;
    warnings += KVLocalizationCenter::localized(
        "The picture cannot be played: the format of the result cannot hold \"%@\".", {plan.copiedPicture});
}

/// Whether the sources hold less than they state. Reads them to their ends, without decoding.
bool areSourcesShort(const KVResultPlan &plan, const KVResultCheck::Run &run) {
    double seconds = 0;
    for (const QString &input : plan.inputs) {
        KVFFmpegReport report;
        report.add(run(
            {"-i", input, "-map", "0:v?", "-map", "0:a?", "-map", "0:s?", "-c", "copy", "-f", "null", "-"}));
        if (!report.position()) return false;
        seconds += *report.position();
    }
    return isShort(seconds, plan.seconds);
}

/// Bytes of all files below the folder. Names of one file count once, as in an image.
qint64 sizeOfFiles(const QString &folder) {
    QSet<std::pair<quint64, quint64>> counted;
    qint64 size = 0;
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        struct stat status {};
        if (::stat(QFile::encodeName(files.next()).constData(), &status) != 0) continue;
        const auto file = std::pair<quint64, quint64>(status.st_dev, status.st_ino);
        if (counted.contains(file)) continue;
        counted.insert(file);
        size += status.st_size;
    }
    return size;
}

} // namespace

bool KVResultCheck::isTooShort(const KVResultPlan &plan, const KVProbedResult &result,
                               const KVFFmpegReport &report) {
    if (report.isDurationEstimated() && !plan.isSourceCut) return false;
    const auto seconds = secondsOf(result, report);
    return seconds && isShort(*seconds, plan.seconds) && !isDurationOpen(report);
}

QStringList KVResultCheck::shortcomings(const KVResultPlan &plan, const KVProbedResult &result,
                                        const KVFFmpegReport &report) {
    QStringList warnings;
    const bool isShort = isTooShort(plan, result, report);
    if (isShort) addDurationWarning(plan, result, report, warnings);
    const int places = report.damagedPlaces();
    const bool isTrifle = plan.videoTracks == 0 && report.isOnePacketLost();
    if (places == 1 && !isShort && !isTrifle)
        warnings += KVLocalizationCenter::localized("The source is damaged in one place.");
    if (places > (isShort ? mostPlacesOfACut : 1))
        warnings += KVLocalizationCenter::localized("The source is damaged in %i places.", {places});
    addTrackWarnings(plan, result, report, warnings);
    if (plan.pictureSize) addSizeWarning(*plan.pictureSize, result.pictureSizes, warnings);
    addCodecWarning(plan, result, warnings);
    return warnings;
}

QString KVResultCheck::lostResultText() {
    return KVLocalizationCenter::localized(
        "The result was removed or replaced by another program while it was written.");
}

KVResultCheck::Verdict KVResultCheck::check(const KVResultPlan &plan, const QString &path,
                                            const KVFFmpegReport &report, const QuickProbe &quickProbe,
                                            const Run &run) {
    if (report.isResultEmpty() || QFileInfo(path).size() == 0)
        return {
            KVLocalizationCenter::localized("The result is empty: nothing in the source could be converted."),
            {}};
    if (const auto text = quickProbe(path)) {
        const auto result = KVProbedResult::read(*text);
        if (result.isReadable() && shortcomings(plan, result, report).isEmpty()) return {};
    }
    const QByteArray output = run({"-i", path});
    if (output.isEmpty()) return {};
    const auto result = KVProbedResult::read(output);
    if (!result.isReadable()) return {{}, {KVLocalizationCenter::localized("The result cannot be opened.")}};

    KVResultPlan checkedPlan = plan;
    const bool isSuspicious =
        report.leavesStreamsOut() && !plan.isSourceCut && isTooShort(plan, result, report);
    if (isSuspicious && !areSourcesShort(plan, run)) checkedPlan.seconds = 0; // a track that ends early
    return {{}, shortcomings(checkedPlan, result, report)};
}

KVResultCheck::Verdict KVResultCheck::checkDiscImage(const QString &image, const QString &folder) {
    const qint64 size = QFileInfo(image).size();
    if (size == 0) return {KVLocalizationCenter::localized("The disc image is empty."), {}};
    if (size >= sizeOfFiles(folder + "/VIDEO_TS")) return {};
    return {{}, {KVLocalizationCenter::localized("The disc image is smaller than what it should hold.")}};
}

QStringList KVResultCheck::pictureShortcomings(const QString &path, const KVSize &planned) {
    const auto header = KVPictureLibrary::header(path);
    if (!header) return {KVLocalizationCenter::localized("The result cannot be opened.")};
    const auto isNear = [](int side, double plan) { return std::abs(side - plan) <= 1; };
    if (planned == KVSize() ||
        (isNear(header->width, planned.width) && isNear(header->height, planned.height)))
        return {};
    return {KVLocalizationCenter::localized(
        "The picture of the result has %i x %i instead of %i x %i pixels.",
        {header->width, header->height, static_cast<int>(std::lround(planned.width)),
         static_cast<int>(std::lround(planned.height))})};
}
