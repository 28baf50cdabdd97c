#include "presets/KVPresetTestCase.h"
#include "presets/formats/audio_track/KVAACFormat.h"
#include "presets/formats/audio_track/KVAC3Format.h"
#include "presets/formats/audio_track/KVAIFFFormat.h"
#include "presets/formats/audio_track/KVAppleLosslessFormat.h"
#include "presets/formats/audio_track/KVFLACFormat.h"
#include "presets/formats/audio_track/KVMP2Format.h"
#include "presets/formats/audio_track/KVMP3Format.h"
#include "presets/formats/audio_track/KVVobFormat.h"
#include "presets/formats/audio_track/KVWAVFormat.h"
#include "presets/formats/audio_track/KVWMAFormat.h"

#include <limits>

using enum KVTrackQualitySetting;

class KVAudioFormatTest : public KVPresetTestCase {
  protected:
    static std::shared_ptr<KVAudioFile> source(qint64 frequency, qint64 channels = 2, qint64 bitrate = 192) {
        KVAudioTrack source = track();
        source.frequency = frequency;
        source.numberOfChannels = channels;
        source.bitrate = bitrate;
        return audioFile("/in/a", {source});
    }
};

TEST_F(KVAudioFormatTest, SnapsBitratesToWhatTheEncoderTakes) {
    struct Row {
        const char *what;
        std::shared_ptr<KVBitrateBasedAudioFormat> format;
        KVTrackQualitySetting quality;
        qint64 custom;
        qint64 source;
        QString want;
    };
    const auto mp2 = std::make_shared<KVMP2Format>();
    const auto mp3 = std::make_shared<KVMP3Format>();
    const auto aac = std::make_shared<KVAACFormat>();
    const auto ac3 = std::make_shared<KVAC3Format>();
    const auto wma = std::make_shared<KVWMAFormat>();
    constexpr auto huge = std::numeric_limits<qint64>::max();
    const std::vector<Row> rows{
        {"low is fixed", aac, low, 0, 192, "64k"},
        {"medium is fixed", aac, medium, 0, 192, "128k"},
        {"high is fixed", wma, high, 0, 192, "256k"},
        {"MP3 goes to the nearest", mp3, custom, 100, 0, "96k"},
        {"MP3 keeps the lower one on a tie", mp3, custom, 104, 0, "96k"},
        {"MP2 keeps the lower one on a tie", mp2, custom, 40, 0, "32k"},
        {"MP2 has 384", mp2, keepOriginal, 0, 400, "384k"},
        {"MP3 ends at 320", mp3, keepOriginal, 0, 350, "320k"},
        {"a source without a bitrate stays at 0", mp3, keepOriginal, 0, 0, "0k"},
        {"nearer to 0 than to the lowest", mp3, custom, 15, 0, "0k"},
        {"AAC is capped, not snapped", aac, keepOriginal, 0, 448, "390k"},
        {"AAC takes any bitrate", aac, custom, 101, 0, "101k"},
        {"WMA is capped", wma, custom, 500, 0, "320k"},
        {"AC3 has no cap", ac3, custom, 1000, 0, "1000k"},
        {"custom 0 is the default", ac3, custom, 0, 0, "128k"},
        {"a number beyond sense", mp3, custom, huge, 0, "320k"},
        {"a number below sense", mp3, custom, -huge - 1, 0, "0k"},
    };
    for (const Row &row : rows) {
        row.format->bitrate = row.custom;
        EXPECT_EQ(row.format->bitrateFor(*source(44100, 2, row.source), row.quality), row.want) << row.what;
    }
}

TEST_F(KVAudioFormatTest, ChoosesTheNearestRateThatTheEncoderTakes) {
    struct Row {
        std::shared_ptr<KVAudioFormat> format;
        qint64 source;
        std::optional<qint64> forced;
        QStringList want;
    };
    const auto aac = std::make_shared<KVAACFormat>();
    const auto ac3 = std::make_shared<KVAC3Format>();
    const auto mp3 = std::make_shared<KVMP3Format>();
    const auto wma = std::make_shared<KVWMAFormat>();
    const auto flac = std::make_shared<KVFLACFormat>();
    const auto wav = std::make_shared<KVWAVFormat>();
    const std::vector<Row> rows{
        {ac3, 44100, {}, {}},
        {ac3, 22050, {}, {"-ar:a:0", "44100"}},
        {ac3, 96000, {}, {"-ar:a:0", "48000"}},
        {ac3, 46050, {}, {"-ar:a:0", "44100"}}, // a tie
        {mp3, 24000, {}, {"-ar:a:0", "16000"}}, // a tie
        {wma, 11025, {}, {"-ar:a:0", "11000"}},
        {ac3, 10, {}, {"-ar:a:0", "44100"}}, // nearest to nothing: the first
        {aac, 0, {}, {"-ar:a:0", "8000"}},
        {aac, 44100, 8000, {"-ar:a:0", "8000"}},
        {flac, 12345, {}, {}},
        {wav, 0, {}, {"-ar:a:0", "44100"}},
        {wav, 44100, 8000, {}}, // a forced rate is not looked at
        {wav, 48000, 8000, {"-ar:a:0", "44100"}},
    };
    for (const Row &row : rows) {
        row.format->sampleRate = row.forced;
        EXPECT_EQ(row.format->frequencyArguments(*source(row.source)), row.want)
            << row.format->codec().toStdString() << " from " << row.source;
    }
}

TEST_F(KVAudioFormatTest, LimitsTheChannels) {
    const auto channels = [](const KVAudioFormat &format, qint64 sourceChannels,
                             KVTrackQualitySetting quality, KVAudioChannelsType type) {
        const_cast<KVAudioFormat &>(format).audioChannelsType = type;
        return format.audioChannels(*source(44100, sourceChannels), quality);
    };
    using enum KVAudioChannelsType;
    EXPECT_EQ(channels(KVMP3Format(), 6, high, asSource), "2");
    EXPECT_EQ(channels(KVAACFormat(), 6, keepOriginal, asSource), "6");
    EXPECT_EQ(channels(KVAACFormat(), 8, medium, mono), "6") << "the choice counts with custom quality only";
    EXPECT_EQ(channels(KVAACFormat(), 6, custom, mono), "1");
    EXPECT_EQ(channels(KVAACFormat(), 6, custom, stereo), "2");
    EXPECT_EQ(channels(KVAACFormat(), 1, custom, stereo), "2");
    EXPECT_EQ(channels(KVAACFormat(), 2, custom, surround), "2") << "surround is at most what the source has";
    EXPECT_EQ(channels(KVFLACFormat(), 12, custom, asSource), "8");
    EXPECT_EQ(channels(KVWAVFormat(), 200, low, asSource), "200");
    EXPECT_EQ(KVAACFormat().audioChannels(*audioFile("/in/a", {}), copy), "2") << "nothing is computed";
}

TEST_F(KVAudioFormatTest, NamesTheEncoderByTheSamples) {
    KVWAVFormat wav;
    EXPECT_EQ(wav.codec(), "pcm_s16le");
    wav.sampleBits = 24;
    wav.usesBigEndian = true;
    EXPECT_EQ(wav.codec(), "pcm_s24be");
    wav.sampleBits = 8;
    wav.usesBigEndian = false;
    wav.usesUnsignedIntegers = true;
    EXPECT_EQ(wav.codec(), "pcm_u8le");
    KVAIFFFormat aiff;
    aiff.sampleBits = 32;
    EXPECT_EQ(aiff.codec(), "pcm_s32be");
}

TEST_F(KVAudioFormatTest, SpecifiesTheTrackInEveryArgument) {
    KVAACFormat aac;
    aac.trackNumber = 1;
    EXPECT_EQ(aac.arguments(source(12345), medium),
              (QStringList{"-c:a:1", "aac", "-ac:a:1", "2", "-ar:a:1", "12000", "-aq:a:1", "512", "-strict",
                           "-2", "-b:a:1", "128k"}));
    KVVobFormat vorbis;
    vorbis.trackNumber = 2;
    EXPECT_EQ(vorbis.arguments(source(44100, 6), high),
              (QStringList{"-c:a:2", "libvorbis", "-ac:a:2", "6", "-b:a:2", "256k"}));
}

TEST_F(KVAudioFormatTest, BuildsAListWithoutASelectedTrack) {
    const auto silent = audioFile("/in/a", {});
    EXPECT_EQ(
        KVAACFormat().arguments(silent, custom),
        (QStringList{"-c:a:0", "aac", "-ac:a:0", "2", "-aq:a:0", "512", "-strict", "-2", "-b:a:0", "0"}));
    EXPECT_EQ(KVAppleLosslessFormat().arguments(silent, medium),
              (QStringList{"-c:a:0", "alac", "-ac:a:0", "2"}));
}

TEST_F(KVAudioFormatTest, LetsAnAppleLosslessSourceKeepItsRate) {
    KVAudioTrack lossless = track();
    lossless.format = "alac (alac / 0x63616C61)";
    lossless.bitrate = 712;
    EXPECT_EQ(KVAppleLosslessFormat().arguments(audioFile("/in/a.m4a", {lossless}), medium),
              (QStringList{"-c:a:0", "alac", "-ac:a:0", "2", "-sample_fmt", "s16p", "-b:a:0", "712k"}));
}

using KVAudioFormatDeathTest = KVAudioFormatTest;

TEST_F(KVAudioFormatDeathTest, ComputesNothingForATrackThatIsCopied) {
    const auto message = "ERROR: KVCopyTrack branch";
    EXPECT_DEATH((void)KVMP3Format().bitrateFor(*source(44100), copy), message);
    EXPECT_DEATH((void)KVMP3Format().audioChannels(*source(44100), copy), message);
}
