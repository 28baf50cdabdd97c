#include "presets/KVPresetTestCase.h"
#include "presets/audio/KVAIFFPreset.h"
#include "presets/audio/KVAudioPresets.h"
#include "support/KVTestMedia.h"
#include "support/KVTestPresets.h"
#include "support/KVTestSources.h"
#include "util/KVOutputClaim.h"
#include "util/KVThreadCount.h"
#include "video_info/media_file/KVPictureFile.h"

#include <limits>

using KVAudioPresetTest = KVPresetTestCase;

TEST_F(KVAudioPresetTest, BuildsTheWholeArgumentList) {
    struct Row {
        const char *what, *presetClass;
        QVariantMap settings;
        KVMediaFileList files;
        const char *want; // PATH is the first file, {8} the threads of at most 8
    };
    const auto song = audioFile("/in/song.mp3");
    KVAudioTrack second = track();
    second.trackNumber = 2;
    const auto threeTracks = audioFile("/in/three.mka", {track(), second, track()});
    threeTracks->selectedAudioTrack = second;
    KVAudioTrack highRate = track();
    highRate.frequency = 96000;
    const QVariantMap kept{{"KVAudioTrackQuality", 2}}, copied{{"KVAudioTrackQuality", 4}};
    // clang-format off
    const Row rows[]{
        {"built-in AAC", "KVAACPreset", {}, {song},
         "-y -i PATH -threads {16} -vn -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 128k -map_metadata 0 /out/x"},
        {"MP3 that keeps the quality", "KVMP3Preset", kept, {song},
         "-y -i PATH -threads {8} -vn -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 192k -map_metadata 0 /out/x"},
        {"custom MP3 with everything set", "KVMP3Preset",
         {{"KVAudioTrackQuality", 3}, {"ZRAudioChannels", 1}, {"ZRAudioBitrate", 104}, {"KVSampleRate", 32000}}, {song},
         "-y -i PATH -threads {8} -vn -c:a:0 libmp3lame -ac:a:0 1 -ar:a:0 32000 -b:a:0 96k -map_metadata 0 /out/x"},
        {"MP2", "KVMP2Preset", {}, {song}, "-y -i PATH -threads {8} -vn -c:a:0 mp2 -ac:a:0 2 -b:a:0 128k -map_metadata 0 /out/x"},
        {"WMA", "KVWMAPreset", {}, {song}, "-y -i PATH -vn -c:a:0 wmav2 -ac:a:0 2 -b:a:0 128k -map_metadata 0 /out/x"},
        {"a copied track asks no format", "KVM4APreset", copied, {song}, "-y -i PATH -threads {16} -vn -c:a:0 copy -map_metadata 0 /out/x"},
        {"the selected one of several tracks is mapped", "KVFLACPreset", {}, {threeTracks},
         "-y -i PATH -vn -c:a:0 flac -ac:a:0 2 -map 0:2 -map_metadata 0 /out/x"},
        {"no -f, though Ogg names a file type", "KVVobPreset", {}, {song},
         "-y -i PATH -threads {8} -vn -c:a:0 libvorbis -ac:a:0 2 -b:a:0 128k -map_metadata 0 /out/x"},
        {"two files are joined", "KVWAVPreset", {}, {song, threeTracks},
         "-y -i PATH -i /in/three.mka -filter_complex \"[0:a:0] [1:a:0] concat=n=2:v=0:a=1[a]\" -map [a] "
         "-max_muxing_queue_size 40000 -vn -c:a:0 pcm_s24le -ac:a:0 2 /out/x"},
        {"WAV by its own fields", "KVWAVPreset",
         {{"ZRWAVUsesBigEndian", true}, {"ZRWAVUsesUnsignedIntegers", true}, {"ZRWAVSampleBits", 16}, {"KVFrequency", 48000}}, {song},
         "-y -i PATH -vn -c:a:0 pcm_u16be -ac:a:0 2 -ar:a:0 48000 -map_metadata 0 /out/x"},
        {"AIFF at its own rate and size", "KVAIFFPreset", {}, {audioFile("/in/high.flac", {highRate})},
         "-y -i PATH -vn -c:a:0 pcm_s24be -ac:a:0 2 -ar:a:0 44100 -map_metadata 0 /out/x"},
        {"Apple Lossless", "KVAppleLosslessPreset", {}, {song},
         "-y -i PATH -vn -c:a:0 alac -ac:a:0 2 -sample_fmt s16p -map_metadata 0 /out/x"},
        {"a hostile name stays one argument", "KVFLACPreset", copied, {audioFile("/in/-x :%s\n'\"é.wav")},
         "-y -i PATH -vn -c:a:0 copy -map_metadata 0 /out/x"},
        {"a picture among the files gives no list", "KVMP3Preset", {},
         {song, std::make_shared<KVPictureFile>(QUrl::fromLocalFile("/in/a.jpg"))}, ""},
    };
    // clang-format on
    for (const Row &row : rows) {
        QStringList want = KVTestSources::list(row.want);
        want.replaceInStrings("PATH", row.files.first()->url().toLocalFile());
        for (const int maximum : {8, 16})
            want.replaceInStrings(QString("{%1}").arg(maximum), QString::number(KVThreadCount(maximum, 2)));
        const auto preset = KVTestPresets::make(row.presetClass, row.settings);
        KVTestSources::expectArguments(
            row.what, preset->argumentsForFiles(row.files, QUrl::fromLocalFile("/out/x")), want);
    }
}

TEST_F(KVAudioPresetTest, ReadsAbsentAndSenselessValuesAsDefaults) {
    for (const QVariant &nonsense : {QVariant(), QVariant("loud"), QVariant(QVariantList{1}), QVariant(5e300),
                                     QVariant(std::numeric_limits<double>::quiet_NaN())}) {
        const auto mp3 = KVPreset::make<KVMP3Preset>();
        mp3->audioTrackQuality = KVTrackQualitySetting::high;
        mp3->audioBitrate = 7;
        mp3->sampleRate = 8000;
        QVariantMap dictionary;
        for (const char *key : {"ZRAudioChannels", "KVAudioTrackQuality", "KVSampleRate", "ZRAudioBitrate"})
            if (nonsense.isValid()) dictionary.insert(key, nonsense);
        mp3->loadFromDictionary(dictionary);
        EXPECT_EQ(mp3->audioChannelsType, KVAudioChannelsType::asSource);
        EXPECT_EQ(mp3->audioTrackQuality, KVTrackQualitySetting::medium);
        EXPECT_EQ(mp3->sampleRate, std::nullopt);
        EXPECT_EQ(mp3->audioBitrate, 0);
        EXPECT_FALSE(mp3->dictionaryRepresentation().contains("KVSampleRate"));
    }
    const auto lossless = KVPreset::make<KVAIFFPreset>();
    lossless->loadFromDictionary({{"ZRAudioChannels", 3}, {"KVAudioTrackQuality", 5}, {"KVFrequency", "?"}});
    EXPECT_EQ(lossless->audioChannelsType, KVAudioChannelsType::asSource);
    EXPECT_EQ(lossless->audioTrackQuality, KVTrackQualitySetting::medium);
    EXPECT_EQ(lossless->frequency, 44100);
    EXPECT_EQ(lossless->sampleBits, 24);
    lossless->loadFromDictionary({{"KVSampleRate", 8000.5}, {"KVSampleBits", 16.9}});
    EXPECT_EQ(lossless->sampleRate, std::nullopt) << "only a whole rate counts";
    EXPECT_EQ(lossless->sampleBits, 16);
}

TEST_F(KVAudioPresetTest, ConvertsARealFileWithEveryAudioPreset) {
    const QUrl source = QUrl::fromLocalFile(KVTestMedia::tone(path("tone.mp3"), 0.3));
    const auto file = KVMediaFile::mediaFile(source);
    ASSERT_TRUE(file) << file.error().reason.toStdString();
    QDir().mkdir(path("out"));
    int count = 0;
    for (const auto &preset : KVPreset::allPresets()) {
        if (preset->presetType() != KVMediaFileType::audio || !preset->pathExtension()) continue;
        const auto made = preset->taskForConversionOfFiles({*file}, url("out"));
        ASSERT_TRUE(made) << preset->name.toStdString();
        const QByteArray said = made->task->launchAndGetAllOutputData();
        EXPECT_EQ(made->task->process().terminationStatus(), 0)
            << preset->name.toStdString() << said.toStdString();
        made->claim->keep();
        const auto output = KVMediaFile::mediaFile(made->outputURL);
        ASSERT_TRUE(output) << preset->name.toStdString();
        const auto sound = std::dynamic_pointer_cast<KVAudioFile>(*output);
        ASSERT_TRUE(sound && sound->selectedAudioTrack) << preset->name.toStdString();
        EXPECT_EQ(sound->selectedAudioTrack->frequency, 44100) << preset->name.toStdString();
        ++count;
    }
    EXPECT_GE(count, 10);
}
