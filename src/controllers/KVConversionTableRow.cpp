#include "controllers/KVConversionTableRow.h"

#include "controllers/KVConversionRetry.h"
#include "controllers/KVPresetMenu.h"
#include "controllers/KVRowQuestions.h"
#include "conversion/conversions/KVVideoConversion.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "presets/KVPresetRegistry.h"
#include "presets/video/other/KVDVDPreset.h"
#include "queues/KVRowEdits.h"
#include "video_info/media_file/KVVideoFile.h"

#include <algorithm>
#include <cmath>

namespace {

const QStringList subtitleFileExtensions{"srt", "smi", "sami", "ass"};

QString fileNames(const KVMediaFileList &files, const QString &separator) {
    QStringList names;
    for (const auto &file : files)
        names.append(KVFileManager::lastPathComponent(file->url()));
    return names.join(separator);
}

void append(KVMenu &menu, KVMenu items) {
    std::ranges::move(items, std::back_inserter(menu));
}

void appendSeparatorOnce(KVMenu &menu) {
    if (!menu.empty() && !menu.back().isSeparator) menu.push_back(KVMenuItem::separator());
}

} // namespace

KVConversionTableRow::KVConversionTableRow(std::shared_ptr<KVConversion> conversion,
                                           std::shared_ptr<KVConversionRowServices> services)
    : _conversion(std::move(conversion))
    , _services(std::move(services)) {}

QString KVConversionTableRow::title() const {
    QString title = _conversion->outputFileName().value_or(fileNames(_conversion->mediaFiles(), " & "));
    if (const auto preset = _conversion->customPreset()) title += " [" + preset->name + "] ";
    return title;
}

QString KVConversionTableRow::statusText() const {
    if (_conversion->state == KVConversionState::paused) return KVLocalizationCenter::localized("Paused");
    if (QString summary = outcome().summary; !summary.isEmpty()) return summary;
    const QString status = _conversion->statusString();
    QString text = status.isEmpty() ? _conversion->estimatedTimeString() : status;
    if (_conversion->state != KVConversionState::waitingToStart) return text;
    return (QStringList{text} + _notes()).join(QStringLiteral(" \u00b7 "));
}

/// What is known of the files beforehand: their external subtitles, and what a conversion will lose.
QStringList KVConversionTableRow::_notes() const {
    QStringList notes;
    QStringList warnings;
    for (const auto &file : _conversion->mediaFiles()) {
        const auto video = std::dynamic_pointer_cast<const KVVideoFile>(file);
        if (video && video->subtitlesFileURL) notes.append(video->subtitlesText());
        warnings += file->warnings;
    }
    return notes + warnings;
}

QString KVConversionTableRow::toolTip() const {
    QStringList paths;
    for (const auto &file : _conversion->mediaFiles())
        paths.append(file->url().toLocalFile());
    if (const QStringList sentences = outcome().sentences; !sentences.isEmpty())
        return (paths + QStringList{QString()} + sentences).join("\n");
    return (paths + _notes()).join("\n");
}

QString KVConversionTableRow::accessibleText() const {
    const QString beginning = KVLocalizationCenter::localized("Conversion") + " " + title() + ". ";
    switch (_conversion->state.load()) {
    case KVConversionState::finished:
        return (QStringList{beginning + KVLocalizationCenter::localized("Finished")} + outcome().sentences)
            .join(". ");
    case KVConversionState::paused:
        return beginning + KVLocalizationCenter::localized("Paused.");
    case KVConversionState::waitingToStart:
        return beginning + KVLocalizationCenter::localized("Waiting to start.");
    case KVConversionState::executing:
        break;
    }
    const auto known = progress();
    return beginning + (known ? QString::number(int(*known * 100)) + "% - " + statusText()
                              : KVLocalizationCenter::localized("Unknown progress."));
}

std::optional<double> KVConversionTableRow::progress() const {
    const double value = _conversion->overallValue();
    if (!std::isfinite(value)) return std::nullopt;
    return std::clamp(value, 0.0, 1.0);
}

template <void (KVConversionTableRow::*action)() const>
KVMenuItem KVConversionTableRow::_item(const char *title) const {
    return {.title = KVLocalizationCenter::localized(title), .action = [row = *this] { (row.*action)(); }};
}

KVMenu KVConversionTableRow::menu() const {
    KVMenu menu = _stateItems();
    menu.push_back(KVMenuItem::separator());
    if (_conversion->isFinished()) {
        append(menu, _finishedItems());
        return menu;
    }
    append(menu, _changingItems());
    return menu;
}

/// The commands that change files, subtitles or preset. They keep their places, disabled, in a row that can
/// no longer be changed.
KVMenu KVConversionTableRow::_changingItems() const {
    KVMenu menu{KVPresetMenu::itemForRows({_conversion}), KVMenuItem::separator()};
    append(menu, _videoItems());
    for (KVMenu items : {_mergeItems(), _removeFileItems()}) {
        if (items.empty()) continue;
        appendSeparatorOnce(menu);
        append(menu, std::move(items));
    }
    const QString reason = KVRowEdits::reasonAgainstChange(*_conversion);
    for (KVMenuItem &item : menu)
        if (!item.isSeparator) item.disableBecause(reason);
    return menu;
}

KVMenu KVConversionTableRow::_stateItems() const {
    using Row = KVConversionTableRow;
    switch (_conversion->state.load()) {
    case KVConversionState::waitingToStart:
        return {_item<&Row::startConversion>("Start"), _item<&Row::renameConversion>("Rename..."),
                KVMenuItem::separator(), _item<&Row::cancelConversion>("Remove")};
    case KVConversionState::executing:
        return {_item<&Row::pauseConversion>("Pause"), _item<&Row::cancelConversion>("Stop")};
    case KVConversionState::paused:
        return {_item<&Row::resumeConversion>("Resume"), _item<&Row::cancelConversion>("Stop")};
    case KVConversionState::finished:
        break;
    }
    KVMenu menu = _retryItems();
    append(menu, {_item<&Row::removeConversionAndReadd>("Remove and Add Again to Queue"),
                  _item<&Row::cancelConversion>("Remove")});
    return menu;
}

/// Further tries of a failed row, and a separator behind them.
KVMenu KVConversionTableRow::_retryItems() const {
    using Row = KVConversionTableRow;
    if (!canTryAgain()) return {};
    KVMenu menu{_item<&Row::tryAgain>("Try Again")};
    const auto cause = _conversion->failureCause();
    const auto helps = cause ? cause->retry : KVFailureRetry::again;
    if (helps == KVFailureRetry::withoutSubtitles)
        menu.push_back(_item<&Row::tryAgainWithoutSubtitles>("Try Again Without Subtitles"));
    if (helps == KVFailureRetry::inAnotherFolder)
        menu.push_back(_item<&Row::tryAgainInAnotherFolder>("Try Again in Another Folder..."));
    menu.push_back(KVMenuItem::separator());
    return menu;
}

KVMenu KVConversionTableRow::_finishedItems() const {
    KVMenu menu;
    if (_conversion->outputURL())
        menu.push_back(_item<&KVConversionTableRow::showInFinder>("Show in Finder"));
    if (outcome().hasDetails()) menu.push_back(_item<&KVConversionTableRow::showDetails>("Details..."));
    return menu;
}

KVMenu KVConversionTableRow::_videoItems() const {
    KVMenu menu;
    if (_queue()->mediaFileType() == KVMediaFileType::video) {
        const auto video = _videoFile();
        if (video && video->subtitlesFileURL)
            menu = {_item<&KVConversionTableRow::selectSubtitles>("Replace Subtitles..."),
                    _item<&KVConversionTableRow::removeSubtitles>("Remove Subtitles...")};
        else
            menu = {_item<&KVConversionTableRow::selectSubtitles>("Select Subtitles...")};
    }
    const bool isDVD = std::dynamic_pointer_cast<KVDVDPreset>(_conversion->presetInForce()) != nullptr;
    const bool isVideoConversion = std::dynamic_pointer_cast<KVVideoConversion>(_conversion) != nullptr;
    if (isDVD && isVideoConversion)
        menu.push_back(_item<&KVConversionTableRow::changeDVDName>("Change DVD Name..."));
    else if (_queue()->mediaFileType() == KVMediaFileType::video &&
             _conversion->state == KVConversionState::waitingToStart)
        menu.push_back(_item<&KVConversionTableRow::makeDVD>("Make DVD"));
    return menu;
}

KVMenu KVConversionTableRow::_mergeItems() const {
    const auto others = _otherWaitingConversions();
    if (others.isEmpty()) return {};
    KVMenuItem item{.title = KVLocalizationCenter::localized("Merge With")};
    for (const auto &other : others)
        item.submenu.push_back({.title = fileNames(other->mediaFiles(), ", "),
                                .action = [row = *this, other] { row.mergeWithConversion(other); }});
    item.submenu.push_back(KVMenuItem::separator());
    item.submenu.push_back(_item<&KVConversionTableRow::mergeWithAllConversions>("Merge All"));
    item.disableBecause(KVRowEdits::reasonAgainstMerge(KVRowEdits::Rows{_conversion} + others));
    return {item};
}

KVMenu KVConversionTableRow::_removeFileItems() const {
    const KVMediaFileList files = _conversion->mediaFiles();
    if (files.size() < 2) return {};
    KVMenuItem item{.title = KVLocalizationCenter::localized("Remove File")};
    for (const auto &file : files)
        item.submenu.push_back({.title = KVFileManager::lastPathComponent(file->url()),
                                .action = [row = *this, file] { row.removeFile(file); }});
    return {item, _item<&KVConversionTableRow::splitAgain>("Split Again")};
}

QString KVConversionTableRow::stopButtonTitle(bool isOptionKeyDown) const {
    switch (_conversion->state.load()) {
    case KVConversionState::executing:
        return KVLocalizationCenter::localized(isOptionKeyDown ? "Stop" : "Pause");
    case KVConversionState::paused:
        return KVLocalizationCenter::localized(isOptionKeyDown ? "Stop" : "Resume");
    case KVConversionState::finished:
        return KVLocalizationCenter::localized("Stop");
    case KVConversionState::waitingToStart:
        break;
    }
    return KVLocalizationCenter::localized("Remove");
}

void KVConversionTableRow::stopButtonAction(bool isOptionKeyDown) const {
    const KVConversionState state = _conversion->state;
    if (!isOptionKeyDown && state == KVConversionState::paused)
        _conversion->resume();
    else if (!isOptionKeyDown && state == KVConversionState::executing)
        _conversion->pause();
    else
        cancelConversion();
}

void KVConversionTableRow::startConversion() const {
    _queue()->startConversion(_conversion);
}

void KVConversionTableRow::pauseConversion() const {
    _conversion->pause();
}

void KVConversionTableRow::resumeConversion() const {
    _conversion->resume();
}

void KVConversionTableRow::cancelConversion() const {
    if (KVRowQuestions::mayStop({_conversion})) removeConversion();
}

void KVConversionTableRow::removeConversion() const {
    KVRowEdits::shared().remove({_conversion});
}

void KVConversionTableRow::removeConversionAndReadd() const {
    KVAddConversionsAgain({_conversion}, _services);
}

void KVConversionTableRow::tryAgain() const {
    if (canTryAgain()) KVRetryConversion(_conversion);
}

void KVConversionTableRow::tryAgainWithoutSubtitles() const {
    if (canTryAgain()) KVRetryConversion(_conversion, {.isWithoutSubtitles = true});
}

void KVConversionTableRow::tryAgainInAnotherFolder() const {
    if (!canTryAgain()) return;
    KVOpenPanel panel;
    panel.message = KVLocalizationCenter::localized("Choose another folder for '%@'.", {title()});
    const auto chosen = KVUserQuestion::runModalOnMainThread(panel);
    if (!chosen.isEmpty()) KVRetryConversion(_conversion, {.destinationFolder = chosen.first()});
}

void KVConversionTableRow::renameConversion() const {
    const auto nameOf = [](const QUrl &url) {
        return KVFileManager::deletingPathExtension(KVFileManager::lastPathComponent(url));
    };
    const QUrl known = _conversion->outputURL().value_or(_conversion->mediaFiles().first()->url());
    auto name = KVUserQuestion::runModalOnMainThread(KVTextPrompt{
        .messageText = KVLocalizationCenter::localized("Enter new name:"),
        .defaultValue = _conversion->outputFileName().value_or(nameOf(known)),
        .buttons = {KVLocalizationCenter::localized("OK"), KVLocalizationCenter::localized("Cancel")}});
    if (!name) return;
    // A name is no path; without one the file is named after its source again.
    name->replace('/', '-');
    _explainUnless(
        KVRowEdits::shared().setOutputFileName(_conversion, name->isEmpty() ? std::nullopt : name));
}

void KVConversionTableRow::changeDVDName() const {
    const auto conversion = std::dynamic_pointer_cast<KVVideoConversion>(_conversion);
    if (!conversion) KVFatalError("Changing DVD name on a non-video conversion.");
    const auto answer = KVUserQuestion::runModalOnMainThread(KVTextPrompt{
        .messageText = KVLocalizationCenter::localized("Enter DVD name."),
        .defaultValue = conversion->dvdName(),
        .buttons = {KVLocalizationCenter::localized("OK"), KVLocalizationCenter::localized("Cancel")}});
    if (!answer) return;
    const QString name = KVText::trimmingWhitespace(*answer);
    if (name.isEmpty()) {
        KVUserQuestion::runModalOnMainThread(
            KVAlert{.messageText = KVLocalizationCenter::localized("The name must not be empty."),
                    .buttons = {KVLocalizationCenter::localized("OK")}});
        return;
    }
    _explainUnless(KVRowEdits::shared().setDVDName(_conversion, name));
}

void KVConversionTableRow::selectPreset(const std::shared_ptr<KVPreset> &preset) const {
    KVRowEdits::shared().setPreset({_conversion}, preset);
}

void KVConversionTableRow::selectSubtitles() const {
    const auto urls = KVUserQuestion::runModalOnMainThread(KVOpenPanel{
        .canChooseFiles = true,
        .canChooseFolders = false,
        .directory = KVFileManager::deletingLastPathComponent(_conversion->mediaFiles().first()->url()),
        .allowedExtensions = subtitleFileExtensions});
    if (!urls.isEmpty()) setSubtitles(urls.first());
}

void KVConversionTableRow::setSubtitles(const QUrl &url) const {
    const auto video = _videoFile();
    if (!video) return;
    const auto encoding = _services->chooseSubtitleEncoding(*video, url);
    if (encoding) _explainUnless(KVRowEdits::shared().setSubtitles(_conversion, url, *encoding));
}

void KVConversionTableRow::removeSubtitles() const {
    _explainUnless(KVRowEdits::shared().setSubtitles(_conversion, std::nullopt));
}

void KVConversionTableRow::mergeWithConversion(const std::shared_ptr<KVConversion> &other) const {
    if (other != _conversion) _merge({_conversion, other});
}

void KVConversionTableRow::mergeWithAllConversions() const {
    const auto rows = KVRowEdits::Rows{_conversion} + _otherWaitingConversions();
    if (KVRowQuestions::mayMerge(KVRowQuestions::numberOfFiles(rows))) _merge(rows);
}

void KVConversionTableRow::splitAgain() const {
    _explainUnless(KVRowEdits::shared().splitAgain(_conversion));
}

void KVConversionTableRow::removeFile(const std::shared_ptr<KVMediaFile> &file) const {
    _explainUnless(KVRowEdits::shared().removeFile(_conversion, file));
}

void KVConversionTableRow::showInFinder() const {
    if (const auto url = _conversion->outputURL()) _services->showInFileManager(*url);
}

void KVConversionTableRow::makeDVD() const {
    if (KVRowQuestions::mayMakeDVD(_conversion->mediaFiles().size()))
        _explainUnless(KVRowEdits::shared().makeDVD({_conversion}));
}

std::shared_ptr<KVConversionQueue> KVConversionTableRow::_queue() const {
    auto queue = std::dynamic_pointer_cast<KVConversionQueue>(_conversion->queue());
    if (!queue) KVFatalError("A row's conversion has no queue.");
    return queue;
}

std::shared_ptr<KVVideoFile> KVConversionTableRow::_videoFile() const {
    const KVMediaFileList files = _conversion->mediaFiles();
    return files.isEmpty() ? nullptr : std::dynamic_pointer_cast<KVVideoFile>(files.first());
}

QList<std::shared_ptr<KVConversion>> KVConversionTableRow::_otherWaitingConversions() const {
    auto conversions = KVRowEdits::waitingRows(*_queue());
    conversions.removeOne(_conversion);
    return conversions;
}

void KVConversionTableRow::_merge(const QList<std::shared_ptr<KVConversion>> &rows) const {
    if (!KVRowEdits::shared().merge(rows)) KVRowQuestions::explain(KVRowEdits::reasonAgainstMerge(rows));
}

/// The row may have started while its menu was open or the user was asked.
void KVConversionTableRow::_explainUnless(bool isDone) const {
    if (!isDone && !_conversion->isCancelled())
        KVRowQuestions::explain(KVRowEdits::reasonAgainstChange(*_conversion));
}
