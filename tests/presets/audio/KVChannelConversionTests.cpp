#include "presets/KVPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "support/KVTestPresets.h"
#include "support/KVTestProbe.h"
#include "tasks/KVFFmpegTask.h"

namespace {

class KVChannelConversionTest : public KVTestCase {
  protected:
    /// Noise with that layout. Sound that goes around the listener (ambisonics) is an Opus file.
    QString noise(const QString &layout) const {
        const QString target = path(layout + ".wav");
        KVTestMedia::make({"-f", "lavfi", "-i", "anoisesrc=d=0.2:r=48000", "-af",
                           "aformat=channel_layouts=" + layout, target});
        return target;
    }

    /// What ffmpeg's own prober prints about the result: "4,quad".
    QString converted(const QString &source, const char *presetClass, const QVariantMap &settings) const {
        const auto file = KVMediaFile::mediaFile(QUrl::fromLocalFile(source));
        if (!file) return file.error().reason;
        const auto preset = KVTestPresets::make(presetClass, settings);
        const QString target = path("out." + preset->pathExtension().value_or("x"));
        QFile::remove(target);
        const auto task =
            KVFFmpegTask::create(preset->argumentsForFiles({*file}, QUrl::fromLocalFile(target)));
        const QByteArray output = (*task)->launchAndGetAllOutputData();
        if ((*task)->process().terminationStatus() != 0) return QString::fromUtf8(output.right(500));
        return QString::fromUtf8(
            KVTestProbe::outputOf("ffprobe", {"-v", "error", "-show_entries",
                                              "stream=channels,channel_layout", "-of", "csv=p=0", target})
                .trimmed());
    }
};

TEST_F(KVChannelConversionTest, MixesDownToWhatTheCodecHoldsAndKeepsTheRest) {
    const QString seven = noise("7.1"), quad = noise("quad");
    KVTestMedia::make({"-i", quad, "-c:a", "libopus", "-mapping_family", "2", path("sphere.opus")});
    const QString sphere = path("sphere.opus");
    const QVariantMap stereo{{"KVAudioTrackQuality", 3}, {"ZRAudioChannels", 2}};
    const QVariantMap mono{{"KVAudioTrackQuality", 3}, {"ZRAudioChannels", 1}};
    const QVariantMap surround{{"KVAudioTrackQuality", 3}, {"ZRAudioChannels", 6}};
    struct Row {
        const char *what;
        QString source;
        const char *presetClass, *expected;
        QVariantMap settings = {};
    };
    const Row rows[]{
        {"7.1 in WAV", seven, "KVWAVPreset", "8,7.1"},
        {"7.1 in FLAC", seven, "KVFLACPreset", "8,7.1"},
        {"7.1 in AAC", seven, "KVM4APreset", "6,5.1"},
        {"7.1 in Vorbis", seven, "KVVobPreset", "6,5.1"},
        {"7.1 in Apple Lossless", seven, "KVAppleLosslessPreset", "6,5.1"},
        {"7.1 in MP3", seven, "KVMP3Preset", "2,stereo"},
        {"7.1 in MP2", seven, "KVMP2Preset", "2,stereo"},
        {"7.1 in WMA", seven, "KVWMAPreset", "2,unknown"},
        {"7.1, surround", seven, "KVM4APreset", "6,5.1", surround},
        {"7.1, stereo", seven, "KVFLACPreset", "2,stereo", stereo},
        {"7.1, mono", seven, "KVM4APreset", "1,mono", mono},
        {"quad in WAV", quad, "KVWAVPreset", "4,quad"},
        {"quad in FLAC", quad, "KVFLACPreset", "4,quad"},
        {"quad in Apple Lossless", quad, "KVAppleLosslessPreset", "4,4.0"},
        {"quad in MP3", quad, "KVMP3Preset", "2,stereo"},
        {"a sphere in WAV", sphere, "KVWAVPreset", "4,unknown"},
        {"a sphere in FLAC", sphere, "KVFLACPreset", "4,quad"},
        {"a sphere in Vorbis", sphere, "KVVobPreset", "4,quad"},
        {"a sphere in AAC", sphere, "KVM4APreset", "2,stereo"},
        {"a sphere in MP3", sphere, "KVMP3Preset", "2,stereo"},
        {"a sphere, mono", sphere, "KVFLACPreset", "1,mono", mono},
    };
    for (const Row &row : rows)
        EXPECT_EQ(converted(row.source, row.presetClass, row.settings), row.expected) << row.what;
}

} // namespace
