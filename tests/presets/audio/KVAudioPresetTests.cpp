#include "presets/KVPresetTestCase.h"
#include "presets/audio/KVAACPreset.h"
#include "presets/audio/KVAIFFPreset.h"
#include "presets/audio/KVAppleLosslessPreset.h"
#include "presets/audio/KVFLACPreset.h"
#include "presets/audio/KVM4APreset.h"
#include "presets/audio/KVMP3Preset.h"
#include "presets/audio/KVVobPreset.h"
#include "presets/audio/KVWAVPreset.h"
#include "support/KVTestMedia.h"
#include "util/KVOutputClaim.h"
#include "util/KVThreadCount.h"
#include "video_info/media_file/KVPictureFile.h"

#include <limits>

using enum KVTrackQualitySetting;

class KVAudioPresetTest : public KVPresetTestCase {
  protected:
    static QString threads(int maximum) { return QString::number(KVThreadCount(maximum, 2)); }

    template <class Preset>
    static std::shared_ptr<Preset> preset(KVTrackQualitySetting quality = medium) {
        const auto preset = KVPreset::make<Preset>();
        preset->audioTrackQuality = quality;
        return preset;
    }
};

TEST_F(KVAudioPresetTest, BuildsTheWholeArgumentList) {
    struct Row {
        const char *what;
        std::shared_ptr<KVPreset> preset;
        KVMediaFileList files;
        QStringList want;
    };
    const auto song = audioFile("/in/song.mp3");
    const auto hostile = audioFile("/in/-x :%s\n'\"é.wav");
    KVAudioTrack second = track();
    second.trackNumber = 2;
    const auto threeTracks = audioFile("/in/three.mka", {track(), second, track()});
    threeTracks->selectedAudioTrack = second;
    KVAudioTrack highRate = track();
    highRate.frequency = 96000;
    const auto highRateFile = audioFile("/in/high.flac", {highRate});
    const auto bigEndianWav = preset<KVWAVPreset>();
    bigEndianWav->usesBigEndian = true;
    bigEndianWav->sampleBits = 16;
    bigEndianWav->frequency = 48000;
    const auto customMP3 = preset<KVMP3Preset>(custom);
    customMP3->audioChannelsType = KVAudioChannelsType::mono;
    customMP3->audioBitrate = 104;
    customMP3->sampleRate = 32000;

    const std::vector<Row> rows{
        {"built-in AAC",
         preset<KVAACPreset>(),
         {song},
         {"-y", "-i", "/in/song.mp3", "-threads", threads(16), "-vn", "-c:a:0", "aac", "-ac:a:0", "2",
          "-aq:a:0", "512", "-strict", "-2", "-b:a:0", "128k", "-map_metadata", "0", "/out/x"}},
        {"MP3 that keeps the quality",
         preset<KVMP3Preset>(keepOriginal),
         {song},
         {"-y", "-i", "/in/song.mp3", "-threads", threads(8), "-vn", "-c:a:0", "libmp3lame", "-ac:a:0", "2",
          "-b:a:0", "192k", "-map_metadata", "0", "/out/x"}},
        {"custom MP3 with everything set",
         customMP3,
         {song},
         {"-y", "-i", "/in/song.mp3", "-threads", threads(8), "-vn", "-c:a:0", "libmp3lame", "-ac:a:0", "1",
          "-ar:a:0", "32000", "-b:a:0", "96k", "-map_metadata", "0", "/out/x"}},
        {"a copied track asks no format",
         preset<KVM4APreset>(copy),
         {song},
         {"-y", "-i", "/in/song.mp3", "-threads", threads(16), "-vn", "-c:a:0", "copy", "-map_metadata", "0",
          "/out/x"}},
        {"the selected one of several tracks is mapped",
         preset<KVFLACPreset>(),
         {threeTracks},
         {"-y", "-i", "/in/three.mka", "-vn", "-c:a:0", "flac", "-ac:a:0", "2", "-map", "0:2",
          "-map_metadata", "0", "/out/x"}},
        {"no -f, though Ogg names a file type",
         preset<KVVobPreset>(),
         {song},
         {"-y", "-i", "/in/song.mp3", "-threads", threads(8), "-vn", "-c:a:0", "libvorbis", "-ac:a:0", "2",
          "-b:a:0", "128k", "-map_metadata", "0", "/out/x"}},
        {"two files are joined",
         preset<KVWAVPreset>(),
         {song, threeTracks},
         {"-y", "-i", "/in/song.mp3", "-i", "/in/three.mka", "-filter_complex",
          "[0:a:0] [1:a:0] concat=n=2:v=0:a=1[a]", "-map", "[a]", "-max_muxing_queue_size", "40000", "-vn",
          "-c:a:0", "pcm_s24le", "-ac:a:0", "2", "/out/x"}},
        {"WAV by its own fields",
         bigEndianWav,
         {song},
         {"-y", "-i", "/in/song.mp3", "-vn", "-c:a:0", "pcm_s16be", "-ac:a:0", "2", "-ar:a:0", "48000",
          "-map_metadata", "0", "/out/x"}},
        {"AIFF at its own rate and size",
         preset<KVAIFFPreset>(),
         {highRateFile},
         {"-y", "-i", "/in/high.flac", "-vn", "-c:a:0", "pcm_s24be", "-ac:a:0", "2", "-ar:a:0", "44100",
          "-map_metadata", "0", "/out/x"}},
        {"Apple Lossless",
         preset<KVAppleLosslessPreset>(),
         {song},
         {"-y", "-i", "/in/song.mp3", "-vn", "-c:a:0", "alac", "-ac:a:0", "2", "-sample_fmt", "s16p",
          "-map_metadata", "0", "/out/x"}},
        {"a hostile name stays one argument",
         preset<KVFLACPreset>(copy),
         {hostile},
         {"-y", "-i", "/in/-x :%s\n'\"é.wav", "-vn", "-c:a:0", "copy", "-map_metadata", "0", "/out/x"}},
        {"a picture among the files gives no list",
         preset<KVMP3Preset>(),
         {song, std::make_shared<KVPictureFile>(QUrl::fromLocalFile("/in/a.jpg"))},
         {}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(row.preset->argumentsForFiles(row.files, QUrl::fromLocalFile("/out/x")), row.want)
            << row.what;
}

TEST_F(KVAudioPresetTest, ReadsWhatItWrote) {
    const auto written = preset<KVWAVPreset>(keepOriginal);
    written->audioChannelsType = KVAudioChannelsType::surround;
    written->sampleRate = 8000;
    written->frequency = 96000;
    written->sampleBits = 32;
    written->usesBigEndian = written->usesUnsignedIntegers = true;
    const QVariantMap dictionary = written->dictionaryRepresentation();
    EXPECT_EQ(dictionary, (QVariantMap{{"ZRPresetClass", "Kalvora.KVWAVPreset"},
                                       {"ZRPresetName", "WAV"},
                                       {"ZRPresetIsCustom", false},
                                       {"ZRPresetIsEnabled", true},
                                       {"KVPresetType", 1},
                                       {"ZRAudioChannels", 6},
                                       {"KVAudioTrackQuality", 2},
                                       {"KVSampleRate", 8000},
                                       {"KVFrequency", 96000},
                                       {"ZRWAVSampleBits", 32},
                                       {"ZRWAVUsesBigEndian", true},
                                       {"ZRWAVUsesUnsignedIntegers", true}}));
    const auto read = preset<KVWAVPreset>();
    read->loadFromDictionary(dictionary);
    EXPECT_EQ(read->dictionaryRepresentation(), dictionary);
}

TEST_F(KVAudioPresetTest, ReadsAbsentAndSenselessValuesAsDefaults) {
    for (const QVariant &nonsense : {QVariant(), QVariant("loud"), QVariant(QVariantList{1}), QVariant(5e300),
                                     QVariant(std::numeric_limits<double>::quiet_NaN())}) {
        const auto mp3 = preset<KVMP3Preset>(high);
        mp3->audioBitrate = 7;
        mp3->sampleRate = 8000;
        QVariantMap dictionary;
        for (const char *key : {"ZRAudioChannels", "KVAudioTrackQuality", "KVSampleRate", "ZRAudioBitrate"})
            if (nonsense.isValid()) dictionary.insert(key, nonsense);
        mp3->loadFromDictionary(dictionary);
        EXPECT_EQ(mp3->audioChannelsType, KVAudioChannelsType::asSource);
        EXPECT_EQ(mp3->audioTrackQuality, medium);
        EXPECT_EQ(mp3->sampleRate, std::nullopt);
        EXPECT_EQ(mp3->audioBitrate, 0);
        EXPECT_FALSE(mp3->dictionaryRepresentation().contains("KVSampleRate"));
    }
    const auto lossless = preset<KVAIFFPreset>();
    lossless->loadFromDictionary({{"ZRAudioChannels", 3}, {"KVAudioTrackQuality", 5}, {"KVFrequency", "?"}});
    EXPECT_EQ(lossless->audioChannelsType, KVAudioChannelsType::asSource);
    EXPECT_EQ(lossless->audioTrackQuality, medium);
    EXPECT_EQ(lossless->frequency, 44100);
    EXPECT_EQ(lossless->sampleBits, 24);
    lossless->loadFromDictionary({{"KVSampleRate", 8000.5}, {"KVSampleBits", 16.9}});
    EXPECT_EQ(lossless->sampleRate, std::nullopt) << "only a whole rate counts";
    EXPECT_EQ(lossless->sampleBits, 16);
}

TEST_F(KVAudioPresetTest, MakesSeparateFormats) {
    const auto mp3 = preset<KVMP3Preset>();
    const auto first = mp3->audioFormat();
    first->sampleRate = 8000;
    EXPECT_EQ(mp3->audioFormat()->sampleRate, std::nullopt);
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
