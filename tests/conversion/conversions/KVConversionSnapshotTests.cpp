#include "conversion/conversions/KVConversionSnapshot.h"

#include "kvcore/KVMainThread.h"
#include "presets/video/variable_bitrate/KVMP4Preset.h"
#include "support/KVEngineTestCase.h"
#include "support/KVTestPresets.h"
#include "support/KVTestSources.h"
#include "video_info/media_file/KVDVDFile.h"
#include "video_info/media_file/KVPictureFile.h"

#include <algorithm>
#include <csignal>
#include <vector>

namespace {

using KVConversionSnapshotTest = KVEngineTestCase;

/// Every setting with another value, as far as its type allows.
QVariantMap changedSettings(const QVariantMap &dictionary) {
    QVariantMap changed = dictionary;
    for (auto [key, value] : changed.asKeyValueRange()) {
        if (value.typeId() == QMetaType::Bool)
            value = !value.toBool();
        else if (value.canConvert<double>() && value.typeId() != QMetaType::QString)
            value = value.toDouble() + 1;
    }
    return changed;
}

TEST_F(KVConversionSnapshotTest, PresetsAreCopiedWithAllTheirSettings) {
    const KVMediaFileList sources{KVTestSources::video()};
    for (const auto &preset : KVPreset::allPresets()) {
        SCOPED_TRACE(preset->name.toStdString());
        for (const QVariantMap &settings :
             {preset->dictionaryRepresentation(), changedSettings(preset->dictionaryRepresentation())}) {
            const auto original = preset->presetClass().make();
            original->loadFromDictionary(settings);
            original->name = "Mine";
            const auto snapshot = original->snapshot();
            EXPECT_NE(snapshot, original);
            EXPECT_EQ(snapshot->original(), original);
            EXPECT_EQ(snapshot->description(), original->description());
            const auto dictionary = original->dictionaryRepresentation();
            const bool hasArguments = original->presetType() != KVMediaFileType::picture;
            const auto arguments =
                hasArguments ? KVTestPresets::argumentsOf(*original, sources) : QStringList();
            original->loadFromDictionary(changedSettings(settings));
            original->name = "Renamed";
            EXPECT_EQ(snapshot->dictionaryRepresentation(), dictionary);
            if (hasArguments) {
                EXPECT_EQ(KVTestPresets::argumentsOf(*snapshot, sources), arguments);
            }
        }
    }
}

TEST_F(KVConversionSnapshotTest, FilesAreCopiedWithWhatTheUserChose) {
    const auto video = KVTestSources::video({.audioTracks = 2});
    video->selectedAudioTrack = video->audioTracks.last();
    video->subtitlesFileURL = url("a.srt");
    video->subtitlesFileEncoding = "windows-1251";
    const auto snapshot = std::dynamic_pointer_cast<KVVideoFile>(video->snapshot());
    ASSERT_TRUE(snapshot);
    const QString description = video->description();
    video->subtitlesFileURL.reset();
    video->selectedAudioTrack.reset();
    EXPECT_EQ(snapshot->description(), description);
    EXPECT_EQ(snapshot->subtitlesFileURL, url("a.srt"));
    EXPECT_EQ(snapshot->subtitlesFileEncoding, "windows-1251");
    EXPECT_EQ(snapshot->selectedAudioTrack, snapshot->audioTracks.last());
    for (const std::shared_ptr<KVMediaFile> &file :
         KVMediaFileList{std::make_shared<KVAudioFile>(url("a")), std::make_shared<KVDVDFile>(url("b")),
                         std::make_shared<KVPictureFile>(url("c"))}) {
        EXPECT_EQ(file->snapshot()->mediaFileType(), file->mediaFileType());
        EXPECT_EQ(file->snapshot()->url(), file->url());
    }
}

TEST_F(KVConversionSnapshotTest, RunningRowsRefuseChangesAndShowWhatRuns) {
    const auto custom = KVPreset::make<KVMP3Preset>();
    custom->name = "Before";
    const auto row = add("endless.wav");
    EXPECT_TRUE(row->canBeChanged());
    EXPECT_TRUE(row->setCustomPreset(custom));
    queue()->start();
    const int child = pidOf("endless");

    custom->name = "After";
    EXPECT_FALSE(row->canBeChanged());
    EXPECT_FALSE(row->setCustomPreset(nullptr));
    EXPECT_FALSE(row->setMediaFiles({}));
    EXPECT_FALSE(row->setOutputFileName("other"));
    EXPECT_EQ(row->mediaFiles().size(), 1);
    EXPECT_NE(row->snapshot()->files.first(), row->mediaFiles().first());
    EXPECT_EQ(row->customPreset()->name, "Before");
    EXPECT_EQ(row->presetInForce()->name, "Before");
    EXPECT_NE(row->presetInForce(), row->snapshot()->preset); // the worker has a copy
    queue()->pause();
    EXPECT_FALSE(row->setMediaFiles({}));
    row->resume();
    ::kill(child, SIGKILL);
    runToEnd();

    // A new row like the old one follows the preset itself.
    const auto again = queue()->createConversion(row->mediaFiles().first(), row->customPreset(), false);
    EXPECT_EQ(again->customPreset(), custom);
}

TEST_F(KVConversionSnapshotTest, WorkersShareNothingThatTheMainThreadChanges) {
    const auto videos = KVConversionQueue::queue(KVMediaFileType::video);
    const auto preset = KVPreset::make<KVMP4Preset>();
    videos->setSelectedPreset(preset);
    std::vector<std::shared_ptr<KVVideoFile>> files;
    std::vector<std::shared_ptr<KVConversion>> rows;
    for (int number = 0; number < 24; ++number) {
        const QString name = QString("good.%1.mkv").arg(number);
        write(name, "video");
        files.push_back(KVTestSources::video({.path = path(name), .audioTracks = 2}));
        rows.push_back(videos->createConversion(files.back(), nullptr, true));
    }
    write("a.srt", "1\n00:00:00,000 --> 00:00:01,000\nWords\n");

    bool isOn = false;
    const auto isOver = [&] { return std::ranges::all_of(rows, &KVConversion::isFinished); };
    const std::function<void()> change = [&] {
        isOn = !isOn;
        preset->burnSubtitlesIntoVideo = isOn; // always the same as the next
        preset->deinterlaceVideo = isOn;
        preset->name = QString(isOn ? "a rather long name to allocate" : "MP4");
        for (std::size_t row = 0; row < rows.size(); ++row) {
            files[row]->subtitlesFileURL = isOn ? std::optional(url("a.srt")) : std::nullopt;
            files[row]->subtitlesFileEncoding = QString(isOn ? "UTF-8" : "windows-1251");
            files[row]->selectedAudioTrack = files[row]->audioTracks[isOn ? 1 : 0];
            if (isOn) rows[row]->setMediaFiles({files[row], files[row]});
            if (!isOn) rows[row]->setMediaFiles({files[row]});
        }
        if (!isOver()) KVMainThread::after(0.001, change);
    };
    change();
    videos->start();
    EXPECT_TRUE(runUntil(isOver, 120));
    for (const auto &row : rows) {
        EXPECT_TRUE(row->hasSucceeded());
        const auto ran = std::dynamic_pointer_cast<KVMP4Preset>(row->snapshot()->preset);
        EXPECT_EQ(ran->burnSubtitlesIntoVideo, ran->deinterlaceVideo);
        EXPECT_EQ(row->mediaFiles().size(), row->snapshot()->files.size());
    }
    EXPECT_TRUE(KVConversionQueue::cancelAllAndWait(5));
    runUntil([] { return false; }, 0.3); // what is still posted refers to the objects above
    videos->setConversions({});
    videos->setSelectedPreset(nullptr);
}

} // namespace
