#include "presets/KVPreset.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "presets/KVOutputNames.h"
#include "presets/KVPresetClasses.h"
#include "presets/KVPresetFields.h"
#include "presets/KVPresetRegistry.h"
#include "presets/video/base/KVSubtitlesFile.h"
#include "util/KVOutputClaim.h"

namespace {

/// An entry without the first key was made by an older version, which stored custom presets only.
const KVPresetFields<KVPreset> &fields() {
    static const auto fields = KVPresetFields<KVPreset>()
                                   .boolean("ZRPresetIsCustom", &KVPreset::isCustom, true)
                                   .boolean("ZRPresetIsEnabled", &KVPreset::isEnabled, true);
    return fields;
}

/// Takes the first of the names that is free.
std::shared_ptr<KVOutputClaim> claimFirstFree(const KVOutputNames &names) {
    for (int attempt = 0;; ++attempt) {
        const auto [outcome, claim] = KVOutputClaim::attempt(names.candidate(attempt));
        if (outcome == KVOutputClaim::Outcome::claimed) return claim;
    }
}

} // namespace

const KVPresetClass &KVPreset::presetClass() const {
    return KVPresetClasses::classOf(*this);
}

std::shared_ptr<KVPreset> KVPreset::snapshot() const {
    auto snapshot = presetClass().copy(*this);
    if (snapshot->_original.expired())
        snapshot->_original = std::const_pointer_cast<KVPreset>(shared_from_this());
    return snapshot;
}

QString KVPreset::defaultName() const {
    KVFatalError("defaultName");
}

QVariantMap KVPreset::dictionaryRepresentation() const {
    QVariantMap dictionary{{"ZRPresetClass", KVPresetClasses::storedName(presetClass())},
                           {"ZRPresetName", name},
                           {"KVPresetType", static_cast<qint64>(presetType())}};
    fields().save(*this, dictionary);
    return dictionary;
}

void KVPreset::loadFromDictionary(const QVariantMap &dictionary) {
    fields().load(*this, dictionary);
}

QString KVPreset::localizedFormatDescription() const {
    KVFatalError("localizedFormatDescription");
}

void KVPreset::save() {
    if (!isDeleted) KVPresetRegistry::save(*this);
}

std::shared_ptr<KVSettingsBase> KVPreset::settings() {
    KVFatalError("settings");
}

QStringList KVPreset::taskArguments(const std::shared_ptr<KVMediaFile> &, const QUrl &) const {
    return {};
}

QStringList KVPreset::taskArgumentsForFiles(const KVMediaFileList &, const QUrl &) const {
    return {};
}

QStringList KVPreset::tags() const {
    QStringList tags{KVMediaFileTypes::localizedName(presetType())};
    if (isCustom) tags.append(KVLocalizationCenter::localized("Custom"));
    return tags;
}

QString KVPreset::refusalOfFiles(const KVMediaFileList &) const {
    return {};
}

QStringList KVPreset::warningsForFiles(const KVMediaFileList &) const {
    return {};
}

std::optional<KVPresetTask> KVPreset::taskForConversionOfFiles(const KVMediaFileList &files,
                                                               const std::optional<QUrl> &destination) const {
    const auto names = KVOutputNames::forFiles(files, destination, *this);
    if (!names) return std::nullopt;
    auto claim = claimFirstFree(*names);
    while (!KVFileManager::isWritable(KVFileManager::deletingLastPathComponent(claim->url()))) {
        const auto folder = _chooseDestinationURL();
        if (!folder) return std::nullopt;
        // What stands in the other folder under this name is not ours to overwrite either. The old name goes
        // first: the same folder may have been chosen again.
        const auto namesThere = names->inFolder(*folder, claim->url());
        claim.reset();
        claim = claimFirstFree(namesThere);
    }

    const QUrl output = claim->url();
    const KVSubtitlesFile::FailureCollector lostSubtitles;
    const QStringList arguments = argumentsForFiles(files, output);
    if (arguments.isEmpty()) return std::nullopt;
    const auto task = KVFFmpegTask::create(arguments);
    if (!task) {
        KVLog("Failed to create FFmpeg task: " + task.error().reason);
        return std::nullopt;
    }
    return KVPresetTask{*task, output, claim, lostSubtitles.warnings()};
}

std::optional<QUrl> KVPreset::outputURLForFiles(const KVMediaFileList &files,
                                                const std::optional<QUrl> &destination) const {
    const auto names = KVOutputNames::forFiles(files, destination, *this);
    if (!names) return std::nullopt;
    for (int attempt = 0;; ++attempt)
        if (const QUrl candidate = names->candidate(attempt); !KVFileManager::isReachable(candidate))
            return candidate;
}

QStringList KVPreset::argumentsForFiles(const KVMediaFileList &files, const QUrl &outputFile) const {
    return supportsStitching() ? taskArgumentsForFiles(files, outputFile)
                               : taskArguments(files.first(), outputFile);
}

std::optional<QUrl> KVPreset::_chooseDestinationURL() {
    KVOpenPanel panel;
    panel.message = KVLocalizationCenter::localized("Please, select a destination for conversion:");
    const auto chosen = KVUserQuestion::runModalOnMainThread(panel);
    if (chosen.isEmpty()) return std::nullopt;
    return chosen.first();
}

QString KVPreset::description() const {
    return name + " (" + KVPresetClasses::storedName(presetClass()) + ")";
}

std::shared_ptr<KVPreset> KVPreset::fromDictionary(const KVPresetClass &presetClass,
                                                   const QVariantMap &dictionary) {
    auto preset = presetClass.make();
    if (const auto name = KVStoredValue::text(dictionary.value("ZRPresetName"))) preset->name = *name;
    preset->loadFromDictionary(dictionary);
    return preset;
}

std::vector<std::shared_ptr<KVPreset>> KVPreset::allPresets() {
    return KVPresetRegistry::shared().allPresets();
}

std::shared_ptr<KVPreset> KVPreset::presetNamed(const QString &name) {
    return KVPresetRegistry::shared().presetNamed(name);
}

std::shared_ptr<KVPreset> KVPreset::defaultPreset(KVMediaFileType type) {
    return KVPresetRegistry::shared().defaultPreset(type);
}

void KVPreset::registerPreset(const std::shared_ptr<KVPreset> &preset) {
    KVPresetRegistry::shared().registerPreset(preset);
}

void KVPreset::unregisterPreset(const std::shared_ptr<KVPreset> &preset) {
    KVPresetRegistry::shared().unregisterPreset(preset);
}

bool KVPreset::renamePreset(const std::shared_ptr<KVPreset> &preset, const QString &newName) {
    return KVPresetRegistry::shared().renamePreset(preset, newName);
}

std::vector<KVPresetMenuItem>
KVPreset::presetMenuForType(KVMediaFileType type, const std::shared_ptr<KVPreset> &selectedPreset,
                            const std::function<bool(const KVPreset &)> &customFilter) {
    return KVPresetRegistry::shared().presetMenuForType(type, selectedPreset, customFilter);
}
