#pragma once

#include "kvcore/KVNotificationCenter.h"
#include "presets/KVPresetClass.h"
#include "tasks/KVFFmpegTask.h"
#include "util/KVMediaFileType.h"
#include "video_info/media_file/KVMediaFile.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class KVOutputClaim;
class KVPreset;
class KVSettingsBase;
struct KVPresetMenuItem;

using KVMediaFileList = QList<std::shared_ptr<KVMediaFile>>;

/// Posted after every change of the preset list, with the preset concerned.
inline constexpr KVNotificationName<KVPreset> KVPresetListDidChangeNotification{
    "KVPresetListDidChangeNotification"};

/// A task and the place of its output.
struct KVPresetTask {
    std::shared_ptr<KVFFmpegTask> task;
    QUrl outputURL;
    /// Holds the output's name for this task; a claim that is dropped without `keep` removes what was
    /// written.
    std::shared_ptr<KVOutputClaim> claim;
    QStringList warnings{}; ///< What the result will lack, one sentence each in the user's language.
};

/// A named, persisted recipe that turns probed media files into a command for the converter. Every preset is
/// an object of a concrete class; a custom preset is a further instance of one. Identity is equality. Presets
/// are changed and copied on the main thread only; a worker reads a snapshot that no other thread changes.
class KVPreset : public std::enable_shared_from_this<KVPreset> {
  public:
    virtual ~KVPreset() = default;
    KVPreset &operator=(const KVPreset &) = delete;

    /// A new instance of a concrete class, with its default name. The only way to make one.
    template <class Preset>
    static std::shared_ptr<Preset> make() {
        auto preset = std::make_shared<Preset>();
        preset->name = preset->defaultName();
        return preset;
    }

    bool isCustom = false;
    bool isDeleted = false; ///< Set when unregistered; a deleted preset refuses to save.
    bool isEnabled = true;
    QString name; ///< Unique among all presets.

    /// Returns a new preset of the same class with the same name and settings, independent of later changes
    /// of this one. It is in no list and is not saved. Main thread.
    std::shared_ptr<KVPreset> snapshot() const;
    /// The preset that this one is a snapshot of; empty for any other preset, or if that one is gone.
    std::shared_ptr<KVPreset> original() const { return _original.lock(); }

    /// The row of this object's class in the class table.
    virtual const KVPresetClass &presetClass() const;

    virtual QString defaultName() const;
    virtual QVariantMap dictionaryRepresentation() const;
    virtual std::optional<QString> fileType() const { return std::nullopt; } ///< For the tool's "-f".
    virtual void loadFromDictionary(const QVariantMap &dictionary);
    virtual QString localizedFormatDescription() const;
    virtual std::optional<QString> pathExtension() const { return std::nullopt; }
    virtual KVMediaFileType presetType() const { return KVMediaFileType::none; }
    virtual void save();
    /// What can be edited; null where there is nothing. The description keeps its preset alive.
    virtual std::shared_ptr<KVSettingsBase> settings();
    virtual bool supportsMultithreadConversion() const { return true; }
    virtual bool supportsStitching() const { return false; }
    virtual QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file, const QUrl &outputFile) const;
    virtual QStringList taskArgumentsForFiles(const KVMediaFileList &files, const QUrl &outputFile) const;
    /// Why these files together cannot be converted with this preset, in the user's language; empty if they
    /// can. Any thread.
    virtual QString refusalOfFiles(const KVMediaFileList &files) const;
    virtual QStringList tags() const;
    /// What a conversion of these files with this preset loses although it succeeds, such as a rotation that
    /// the container cannot hold; one sentence each in the user's language. Any thread.
    virtual QStringList warningsForFiles(const KVMediaFileList &files) const;
    /// How many threads the encoder is told to use, as decimal text.
    virtual std::optional<QString> threadCountArgument() const { return std::nullopt; }

    /// Names the output, settles collisions, claims the name and makes the task. `files` is not empty; the
    /// first decides the name. Nothing where there is no destination, no argument or no task. Runs on a
    /// worker; only the question for another folder goes to the main thread.
    virtual std::optional<KVPresetTask>
    taskForConversionOfFiles(const KVMediaFileList &files, const std::optional<QUrl> &destination) const;

    /// Where a task for these files would write just now; creates, claims and asks nothing. Nothing where
    /// there would be no task.
    virtual std::optional<QUrl> outputURLForFiles(const KVMediaFileList &files,
                                                  const std::optional<QUrl> &destination) const;
    /// What a task would run: of all files where the preset can stitch, else of the first alone.
    QStringList argumentsForFiles(const KVMediaFileList &files, const QUrl &outputFile) const;

    /// "name (class)", for logs and reports.
    QString description() const;

    /// The parameterless constructor, then the dictionary's name, then all of it. The class is concrete.
    static std::shared_ptr<KVPreset> fromDictionary(const KVPresetClass &presetClass,
                                                    const QVariantMap &dictionary);

    // The list of all presets: see KVPresetRegistry, whose shared instance answers these.
    static std::vector<std::shared_ptr<KVPreset>> allPresets();
    static std::shared_ptr<KVPreset> presetNamed(const QString &name);
    static std::shared_ptr<KVPreset> defaultPreset(KVMediaFileType type);
    static void registerPreset(const std::shared_ptr<KVPreset> &preset);
    static void unregisterPreset(const std::shared_ptr<KVPreset> &preset);
    static bool renamePreset(const std::shared_ptr<KVPreset> &preset, const QString &newName);
    static std::vector<KVPresetMenuItem>
    presetMenuForType(KVMediaFileType type, const std::shared_ptr<KVPreset> &selectedPreset,
                      const std::function<bool(const KVPreset &)> &customFilter = {});

  protected:
    KVPreset() = default;
    KVPreset(const KVPreset &) = default;

  private:
    static std::optional<QUrl> _chooseDestinationURL();

    std::weak_ptr<KVPreset> _original;
};
