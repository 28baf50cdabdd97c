#include "support/KVTestMedia.h"
#include "support/KVTestProbe.h"
#include "support/KVVideoConversionTestCase.h"

#include <functional>
#include <map>

namespace {

const QString burntText = QStringLiteral("Привет");

class KVVideoTrackConversionTest : public KVVideoConversionTestCase {
  protected:
    /// The temporary files are in a folder whose name no tool must take apart.
    void SetUp() override {
        KVVideoConversionTestCase::SetUp();
        QDir().mkpath(path("it's: a, [h];\\ome"));
        ::qputenv("XDG_DATA_HOME", path("it's: a, [h];\\ome").toUtf8());
    }
    void TearDown() override {
        KVVideoConversionTestCase::TearDown();
        ::qputenv("XDG_DATA_HOME", _dataHome);
    }

    /// A clip with further inputs, all of their streams copied.
    QString muxed(const QString &name, const QStringList &inputs, const QStringList &options) const {
        QStringList arguments;
        for (const QString &input : inputs)
            arguments << "-i" << input;
        for (qsizetype i = 0; i < inputs.size(); ++i)
            arguments << "-map" << QString::number(i);
        const QString target = path(name);
        KVTestMedia::make(arguments + QStringList{"-c", "copy"} + options + QStringList{target});
        return target;
    }

    QString subtitles(const QString &name, const QByteArray &text) const {
        return write(name, "1\n00:00:00,000 --> 00:00:05,000\n" + text + "\n");
    }

    /// Subtitles of a disc: one picture of 8 x 2 pixels.
    QString pictureSubtitles(const QString &name) const {
        const auto segment = [](char type, const QByteArray &content) {
            QByteArray bytes("PG");
            bytes += QByteArray(8, 0); // shown from the start
            bytes += type;
            bytes += char(content.size() >> 8);
            bytes += char(content.size() & 0xff);
            return bytes + content;
        };
        const auto hex = [](const char *digits) { return QByteArray::fromHex(digits); };
        const QByteArray composition = hex("0280016810 0000 80 00 00 01 0000 00 00 0010 0010");
        const QByteArray window = hex("01 00 0010 0010 0008 0002");
        const QByteArray palette = hex("00 00 01 eb 80 80 ff");
        const QByteArray object = hex("0000 00 c0 00000e 0008 0002 00 88 01 0000 00 88 01 0000");
        return write(name, segment(0x16, composition) + segment(0x17, window) + segment(0x14, palette) +
                               segment(0x15, object) + segment(char(0x80), {}));
    }

    /// Whether something bright stands below the square.
    static bool showsTextBelow(const QImage &frame) {
        int bright = 0;
        for (int y = frame.height() * 4 / 5; y < frame.height(); ++y)
            for (int x = 0; x < frame.width(); ++x)
                bright += qGray(frame.pixel(x, y)) > 160;
        return bright > 50;
    }

    /// The text of the first subtitle track.
    static QString textOf(const QString &output) {
        return QString::fromUtf8(KVTestProbe::outputOf(
            "ffmpeg", {"-v", "error", "-nostdin", "-i", output, "-map", "0:s:0", "-f", "srt", "-"}));
    }

  private:
    const QByteArray _dataHome = ::qgetenv("XDG_DATA_HOME");
};

} // namespace

TEST_F(KVVideoTrackConversionTest, SoundTracksAreChosenMixedAndAdded) {
    const QString stereo = clip("stereo.mp4", "160x120");
    const QString surround = clip("surround.mkv", "160x120", {"-ac", "6", "-ar", "96000"});
    const QString mono = clip("mono.mp4", "160x120", {"-ac", "1"});
    const QString several = muxed("several.mkv", {stereo}, {"-map", "0:a", "-map", "0:a"});
    const QString silent = clip("silent.mp4", "160x120", {"-an"});
    const QString mixed = muxed("mixed.mkv", {stereo, mono}, {"-map", "-1:v"});
    const auto second = probed(mixed);
    second->selectedAudioTrack = second->audioTracks.value(1);

    struct Row {
        const char *what;
        std::shared_ptr<KVVideoFile> source;
        const char *presetClass;
        int channels, streams;
        QVariantMap settings = {};
    };
    const QVariantMap withStereo{
        {"KVAudioTrackQuality", 3}, {"ZRAudioBitrate", 192}, {"ZRIncludesStereoTrack", true}};
    const QVariantMap smaller{{"ZRCropPresetWidth", 100}, {"ZRCropPresetHeight", 100}};
    const QVariantMap copied{{"KVAudioTrackQuality", 4}, {"KVVideoTrackQuality", 4}};
    const QVariantMap inMono{{"KVAudioTrackQuality", 3}, {"ZRAudioChannels", 1}};
    const Row rows[]{
        {"surround", probed(surround), "KVMP4Preset", 6, 1},
        {"surround with stereo aside", probed(surround), "KVMP4Preset", 6, 2, withStereo},
        {"surround in Vorbis", probed(surround), "KVWebMPreset", 6, 1},
        {"surround for a disc", probed(surround), "KVMPEG2Preset", 6, 1},
        {"surround in MP3", probed(surround), "KVDivXPreset", 2, 1},
        {"surround in MP2", probed(surround), "KVMPEG1Preset", 2, 1},
        {"no sound", probed(silent), "KVMP4Preset", 0, 0},
        {"no sound, remuxed", probed(silent), "KVVideoRemuxPreset", 0, 0, {{"ZRRemuxFormat", "matroska"}}},
        {"no sound, cropped", probed(silent), "KVCropPreset", 0, 0, smaller},
        {"no sound, for a device of two tracks", probed(silent), "KVPSPPreset", 0, 0},
        {"older codecs on a device", probed(stereo), "KViPhone4Preset", 2, 1, {{"ZRUsesH264", false}}},
        {"several", probed(several), "KVMKVPreset", 2, 1},
        {"the second", second, "KVMP4Preset", 1, 1},
        {"the second, remuxed", second, "KVRemuxPreset", 1, 1, {{"ZRRemuxFormat", "matroska"}}},
        {"the second, copied", second, "KVMKVPreset", 1, 1, copied},
        {"mixed down", probed(surround), "KVMKVPreset", 1, 1, inMono},
        {"a ringtone", probed(surround), "KViPhoneRingtonePreset", 1, 1},
    };
    convertEach(rows, std::mem_fn(&Row::source), [](const Row &row, const QString &output) {
        const auto found = KVTestProbe::probe(output);
        EXPECT_EQ(found.channels, row.channels);
        EXPECT_EQ(found.audioStreams, row.streams);
        EXPECT_NEAR(found.seconds, seconds, 0.2);
    });
}

TEST_F(KVVideoTrackConversionTest, SubtitlesAreCarriedOrBurntIn) {
    const QString bare = clip("bare.mp4", "320x240");
    const QString text =
        muxed("text.mkv", {bare, subtitles("in.srt", burntText.toUtf8())}, {"-metadata:s:s", "language=rus"});
    const QString pictures =
        muxed("pictures.mkv", {bare, pictureSubtitles("in.sup")}, {"-metadata:s:s", "language=rus"});
    const auto external = [&](const QString &name, const QByteArray &bytes, const QString &encoding) {
        const auto file = probed(muxed(name, {bare}, {}));
        file->subtitlesFileURL = QUrl::fromLocalFile(subtitles(name + ".srt", bytes));
        file->subtitlesFileEncoding = encoding;
        return file;
    };
    const QByteArray cyrillic = "\xcf\xf0\xe8\xe2\xe5\xf2"; // windows-1251
    const QVariantMap burn{{"KVBurnSubtitles", true}}, still{{"KVDeinterlaceVideoTrack", true}};

    struct Row {
        const char *what;
        std::shared_ptr<KVVideoFile> source;
        const char *presetClass;
        const char *codec; // of the subtitles, if there are any
        bool isBurntIn = false;
        QVariantMap settings = {};
    };
    const Row rows[]{
        {"text to MP4", probed(text), "KVMP4Preset", "mov_text"},
        {"text to a device", probed(text), "KViPodPreset", "mov_text"},
        {"text to a device of two tracks", probed(text), "KVPSPPreset", "mov_text"},
        {"text to MKV", probed(text), "KVMKVPreset", "subrip"},
        {"text to HEVC in MKV", probed(text), "KVHEVCPreset", "ass", false, {{"ContainerFormat", 1}}},
        {"text to a container without", probed(text), "KVDivXPreset", ""},
        {"pictures to MP4", probed(pictures), "KVMP4Preset", ""},
        {"pictures to MKV", probed(pictures), "KVMKVPreset", ""},
        {"file to MP4", external("a.mp4", cyrillic, "windows-1251"), "KVMP4Preset", "mov_text"},
        {"file to MKV", external("b.mp4", cyrillic, "windows-1251"), "KVMKVPreset", "ass"},
        {"file of another encoding", external("c.mp4", cyrillic, "UTF-8"), "KVMP4Preset", ""},
        {"file burnt in", external("d.mp4", cyrillic, "windows-1251"), "KVMP4Preset", "", true, burn},
        {"in UTF-8", external("h.mp4", burntText.toUtf8(), "UTF-8"), "KVMP4Preset", "", true, burn},
        {"file to a container without", external("e.mp4", burntText.toUtf8(), "UTF-8"), "KVWMVPreset", "",
         true},
        {"file, deinterlaced", external("f.mp4", burntText.toUtf8(), "UTF-8"), "KVXvidPreset", "", true,
         still},
        {"file, limited", external("g.mp4", burntText.toUtf8(), "UTF-8"), "KViPhonePreset", "", true, burn},
    };
    std::map<QString, QImage> frames;
    convertEach(rows, std::mem_fn(&Row::source), [&](const Row &row, const QString &output) {
        const auto found = KVTestProbe::probe(output);
        EXPECT_EQ(found.subtitleCodec, row.codec);
        frames[row.what] = KVTestProbe::middleFrame(output, seconds);
        EXPECT_EQ(showsTextBelow(frames[row.what]), row.isBurntIn);
        if (found.subtitleCodec.isEmpty()) return;
        EXPECT_TRUE(textOf(output).contains(burntText)) << textOf(output).toStdString();
    });
    EXPECT_EQ(frames["file burnt in"], frames["in UTF-8"]) << "other letters";
}
