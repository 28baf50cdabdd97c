#include "video_info/media_file/KVMediaFile.h"

#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QtEndian>

#include <utility>
#include <vector>

namespace {

/// Files as they are found in the world, made by ffmpeg and then damaged where it makes none like them.
class KVRealMediaTest : public KVTestCase {
  protected:
    static KVResult<std::shared_ptr<KVMediaFile>> probe(const QString &path) {
        return KVMediaFile::mediaFile(QUrl::fromLocalFile(path));
    }

    template <class File = KVAudioFile>
    static std::shared_ptr<File> probeAs(const QString &path) {
        const auto file = probe(path);
        EXPECT_TRUE(file) << path.toStdString() << (file ? "" : ": " + file.error().reason.toStdString());
        return file ? std::dynamic_pointer_cast<File>(*file) : nullptr;
    }

    static QString refusal(const QString &path) {
        const auto file = probe(path);
        return file ? "no refusal" : file.error().reason;
    }

    /// Writes a short clip or tone with `options`.
    QString made(const QString &name, const QStringList &options, double seconds = 0.5) const {
        const QString duration = QString::number(seconds);
        KVTestMedia::make(QStringList{"-f", "lavfi", "-i", "testsrc=s=64x48:r=25:d=" + duration, "-f",
                                      "lavfi", "-i", "sine=d=" + duration} +
                          options + QStringList{path(name)});
        return path(name);
    }
};

const QStringList encryption{"-encryption_scheme", "cenc-aes-ctr",
                             "-encryption_key",    "76a6c65c5ea762046bd749a2e632ccbb",
                             "-encryption_kid",    "a7e61c373e219033c21091fa607bf3b8"};

TEST_F(KVRealMediaTest, TagsInOtherEncodingsDoNotHinderAFile) {
    const QString tags = write("tags", ";FFMETADATA1\ntitle=Gr\xFC\xDF e aus K\xF6ln\n");
    for (const QString name : {"a.mp3", "a.ogg", "a.wav", "a.avi", "a.flac", "a.mkv"}) {
        const QStringList sound{"-f", "lavfi", "-i", "sine=d=0.5", "-f", "ffmetadata", "-i", tags};
        KVTestMedia::make(sound + QStringList{"-map", "0:a", "-map_metadata", "1", path(name)});
        ASSERT_FALSE(read(path(name)).isValidUtf8());
        const auto file = probeAs(path(name));
        ASSERT_TRUE(file);
        EXPECT_EQ(file->audioTracks.size(), 1) << name.toStdString();
        EXPECT_NEAR(file->seconds, 0.5, 0.1) << name.toStdString();
    }
    QByteArray animation = read(made("plain.gif", {}));
    animation.insert(animation.indexOf("\x21\xFF\x0BNETSCAPE"), QByteArray("\x21\xFE\x04Gr\xFC\xDF\x00", 8));
    EXPECT_TRUE(probeAs<KVVideoFile>(write("comment.gif", animation)));
}

TEST_F(KVRealMediaTest, CountsTheChannelsOfEveryLayout) {
    const std::vector<std::pair<const char *, int>> rows{{"2.1", 3},       {"quad", 4},      {"4.1", 5},
                                                         {"5.1(side)", 6}, {"hexagonal", 6}, {"6.1", 7},
                                                         {"7.1", 8},       {"octagonal", 8}};
    for (const auto &[layout, channels] : rows) {
        KVTestMedia::make({"-f", "lavfi", "-i", QString("anullsrc=cl=%1:d=0.1").arg(layout), path("a.wav")});
        const auto file = probeAs(path("a.wav"));
        ASSERT_TRUE(file && file->selectedAudioTrack);
        EXPECT_EQ(file->selectedAudioTrack->numberOfChannels, channels) << layout;
    }
}

TEST_F(KVRealMediaTest, ReadsAThousandPicturesASecond) {
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc=s=64x48:r=1000:d=0.1", path("fast.mp4")});
    const auto file = probeAs<KVVideoFile>(path("fast.mp4"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->selectedVideoTrack->framesPerSecond, 1000);
    EXPECT_EQ(file->selectedVideoTrack->numberOfFrames, 100);
}

TEST_F(KVRealMediaTest, EncryptedTracksAreProtected) {
    const auto isProtected = [&](const QString &path) {
        const auto file = probeAs(path);
        return file && file->isDRMProtected();
    };
    EXPECT_TRUE(isProtected(made("both.mp4", encryption)));
    EXPECT_TRUE(isProtected(made("sound.m4a", QStringList{"-vn"} + encryption)));
    EXPECT_TRUE(
        isProtected(made("parts.mp4", QStringList{"-movflags", "frag_keyframe+empty_moov"} + encryption)));
    EXPECT_FALSE(isProtected(made("clear.mp4", {})));

    // A file that was decrypted may keep the header, which ffmpeg then looks through.
    QByteArray content = read(made("decrypted.mp4", {"-an"}));
    const qsizetype entry = content.lastIndexOf("avc1") - 4;
    const QByteArray sinf =
        QByteArray::fromHex("00000014") + "sinf" + QByteArray::fromHex("0000000c") + "frmaavc1";
    content.replace(entry + 4, 4, "encv");
    content.insert(entry + qFromBigEndian<qint32>(content.constData() + entry), sinf);
    for (const char *box : {"moov", "trak", "mdia", "minf", "stbl", "stsd", "encv"}) {
        char *size = content.data() + content.lastIndexOf(box) - 4;
        qToBigEndian(qFromBigEndian<qint32>(size) + static_cast<qint32>(sinf.size()), size);
    }
    EXPECT_FALSE(isProtected(write("decrypted.mp4", content)));
}

TEST_F(KVRealMediaTest, FilesWithoutMediaDataAreRejected) {
    const QString reason = "The file describes its tracks but contains no media data.";
    QByteArray parts = read(made("parts.mp4", {"-movflags", "frag_keyframe+empty_moov"}));
    write("init.mp4", parts.first(parts.indexOf("moof") - 4));
    EXPECT_EQ(refusal(path("init.mp4")), reason);
    const QByteArray sound = read(KVTestMedia::tone(path("a.wav"), 0.1));
    const qsizetype data = sound.indexOf("data");
    write("none.wav", sound.first(data + 4) + QByteArray(4, '\0'));
    EXPECT_EQ(refusal(path("none.wav")), reason);
    write("streamed.wav", sound.first(data + 4) + QByteArray(4, '\xFF') + sound.sliced(data + 8));
    EXPECT_EQ(refusal(path("streamed.wav")), "no refusal");
    KVTestMedia::make({"-i", path("parts.mp4"), "-map", "0:v", "-c", "copy", path("raw.h264")});
    EXPECT_EQ(refusal(path("raw.h264")), "no refusal") << "its duration is unknown too";
}

TEST_F(KVRealMediaTest, WarnsOfPicturesThatAreLostBecauseOfTheExtension) {
    const auto theora = probeAs(made("film.ogg", {"-c:v", "libtheora", "-pix_fmt", "yuv420p"}));
    ASSERT_TRUE(theora);
    EXPECT_EQ(theora->mediaFileType(), KVMediaFileType::audio);
    EXPECT_EQ(theora->warnings,
              QStringList{
                  "The pictures of \"film.ogg\" are lost, because files with its extension count as sound."});
    made("cover.png", {"-frames:v", "1"});
    KVTestMedia::make({"-f", "lavfi", "-i", "sine=d=0.3", "-i", path("cover.png"), "-map", "0", "-map", "1",
                       "-c:v", "copy", "-disposition:v", "attached_pic", path("song.m4a")});
    const auto cover = probeAs(path("song.m4a"));
    ASSERT_TRUE(cover);
    EXPECT_EQ(cover->warnings, QStringList());
}

TEST_F(KVRealMediaTest, KnowsThatPicturesAreRotated) {
    made("plain.mp4", {});
    for (const char *angle : {"0", "90", "180", "270"}) {
        KVTestMedia::make({"-i", path("plain.mp4"), "-c", "copy", "-metadata:s:v",
                           QString("rotate=%1").arg(angle), path("a.mov")});
        const auto file = probeAs<KVVideoFile>(path("a.mov"));
        ASSERT_TRUE(file);
        EXPECT_EQ(file->selectedVideoTrack->isRotated, angle != std::string_view("0")) << angle;
    }
}

} // namespace
