#include "cli/KVCommandTestCase.h"
#include "support/KVTestMedia.h"

#include <sys/stat.h>

namespace {

class KVProbeCommandTest : public KVCommandTestCase {};

TEST_F(KVProbeCommandTest, TellsEveryKindOfFileInOrder) {
    KVTestMedia::clip(path("clip.mkv"), 1, "64x48", {"-c:a", "aac", "-metadata:s:a:0", "language=eng"});
    KVTestMedia::tone(path("a b.wav"), 0.5);
    KVTestMedia::make({"-f", "lavfi", "-i", "color=red:size=40x30", "-frames:v", "1", path("p.png")});
    write("disc/VIDEO_TS/VIDEO_TS.IFO", "x");
    write("text.mp3", "this is no sound");
    write("note.txt", "text");
    const Result result = run({"probe", "--json", "clip.mkv", "text.mp3", "./a b.wav", "p.png",
                               "disc/VIDEO_TS", "note.txt", "gone.wav", "gone.png"});
    EXPECT_EQ(result.status, 1);
    const QJsonArray files = result.array();
    ASSERT_EQ(files.size(), 8) << result.output.toStdString();

    const QJsonObject clip = files[0].toObject();
    EXPECT_EQ(clip.keys(),
              QStringList({"audioTracks", "isDRMProtected", "path", "seconds", "selectedAudioTrack",
                           "selectedVideoTrack", "subtitleTracks", "type", "videoTracks"}));
    EXPECT_EQ(clip["path"], path("clip.mkv"));
    EXPECT_EQ(clip["type"], "video");
    EXPECT_NEAR(clip["seconds"].toDouble(), 1, 0.1);
    EXPECT_EQ(clip["selectedAudioTrack"], 1);
    EXPECT_EQ(clip["selectedVideoTrack"], 0);
    const QJsonObject picture = clip["videoTracks"].toArray()[0].toObject();
    EXPECT_EQ(picture.keys(), QStringList({"bitrate", "format", "framesPerSecond", "height", "numberOfFrames",
                                           "trackNumber", "width"}));
    EXPECT_EQ(picture["width"], 64);
    EXPECT_EQ(picture["framesPerSecond"], 25);
    EXPECT_EQ(clip["audioTracks"][0]["trackName"], "eng (2)");
    EXPECT_EQ(clip["audioTracks"][0]["frequency"], 44100);

    EXPECT_EQ(files[1]["error"].toObject(), (QJsonObject{{"domain", "KVMediaFileErrorDomain"},
                                                         {"code", 0},
                                                         {"reason", "Unrecognized file format."}}));
    EXPECT_EQ(files[2]["path"], path("a b.wav"));
    EXPECT_EQ(files[2].toObject().keys(), QStringList({"audioTracks", "isDRMProtected", "path", "seconds",
                                                       "selectedAudioTrack", "type"}));
    EXPECT_EQ(files[3].toObject(), (QJsonObject{{"path", path("p.png")},
                                                {"type", "picture"},
                                                {"width", 40},
                                                {"height", 30},
                                                {"isDRMProtected", false}}));
    EXPECT_EQ(files[4].toObject(),
              (QJsonObject{{"path", path("disc")}, {"type", "dvd"}, {"isDRMProtected", false}}));
    EXPECT_EQ(files[5]["error"]["reason"], "File type is blacklisted by a file extension filter.");
    EXPECT_EQ(files[6]["path"], path("gone.wav"));
    EXPECT_EQ(files[7]["error"]["domain"], "KVPOSIXErrorDomain") << "a picture is one by its name alone";
    EXPECT_TRUE(result.errors.endsWith("gone.png: No such file or folder.\n"));
    EXPECT_EQ(result.errorLines().size(), 4);
}

TEST_F(KVProbeCommandTest, WorksWithoutAHomeFolder) {
    KVTestMedia::tone(path("a.wav"), 0.2);
    const Result result =
        runShell("env -i PATH=\"$PATH\" TMPDIR=\"$PWD\" HOME=/proc/none \"$0\" probe --json a.wav");
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.array()[0]["type"], "audio");
    EXPECT_EQ(names(), QStringList("a.wav")) << "nothing stays behind";
}

TEST_F(KVProbeCommandTest, PrintsTheDescriptionAndSurvivesNamesThatAreNoText) {
    KVTestMedia::tone(path("a.wav"), 0.2);
    const Result result = runShell("\"$0\" probe a.wav \"$(printf 'b\\351.wav')\"");
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.output.startsWith("\tFile Type: Audio\n")) << result.output.toStdString();
    EXPECT_EQ(result.errorLines(), QList<QByteArray>{"kalvoractl: b\\xE9.wav: The name is not UTF-8."});
}

class KVPresetsCommandTest : public KVCommandTestCase {};

TEST_F(KVPresetsCommandTest, ListsPresetsWithTheirSettings) {
    const Result result = run({"presets", "--json", "--type", "audio"});
    EXPECT_EQ(result.status, 0);
    QJsonObject mp3;
    for (const QJsonValue preset : result.array()) {
        EXPECT_EQ(preset["type"], "audio");
        if (preset["name"] == "MP3") mp3 = preset.toObject();
    }
    EXPECT_EQ(mp3.keys(), QStringList({"class", "description", "fileType", "isCustom", "isEnabled", "name",
                                       "pathExtension", "settings", "supportsStitching", "tags",
                                       "threadCountArgument", "type"}));
    EXPECT_EQ(mp3["class"], "KVMP3Preset");
    EXPECT_EQ(mp3["pathExtension"], "mp3");
    EXPECT_EQ(mp3["settings"].toObject()["ZRPresetClass"], "Kalvora.KVMP3Preset");
    EXPECT_TRUE(mp3["fileType"].isNull());
    EXPECT_TRUE(run({"presets"}).output.contains("\nMP3 "));
}

class KVPreferencesCommandTest : public KVCommandTestCase {};

TEST_F(KVPreferencesCommandTest, KeepsEachValueWithItsType) {
    const struct {
        const char *key, *text;
        QJsonValue value;
    } rows[]{{"ZRUsesNTSCFormat", "true", true},
             {"KVCPUSettings", "2", 2},
             {"ZRiTunesGenre", "Old Time", "Old Time"},
             {"Mine", "0.25", 0.25}};
    for (const auto &row : rows)
        EXPECT_EQ(run({"preferences", "set", row.key, row.text}).status, 0) << row.key;
    const QJsonObject all = run({"preferences", "--json"}).object();
    for (const auto &row : rows) {
        EXPECT_EQ(all[QLatin1String(row.key)], row.value) << row.key;
        EXPECT_EQ(run({"preferences", "get", row.key}).output, QByteArray(row.text) + '\n');
    }
    EXPECT_EQ(run({"preferences", "get", "--json", "ZRiTunesGenre"}).output, "\"Old Time\"\n");

    EXPECT_EQ(run({"preferences", "remove", "Mine"}).status, 0);
    const Result gone = run({"preferences", "get", "--json", "Mine"});
    EXPECT_EQ(gone.status, 1);
    EXPECT_EQ(gone.output, "null\n");
}

TEST_F(KVPreferencesCommandTest, SaysWhereAValueWillHaveNoEffect) {
    EXPECT_TRUE(run({"preferences", "set", "KVCPUSettings", "low"}).errors.contains("a whole number"));
    EXPECT_TRUE(run({"preferences", "set", "KVCPUSetting", "1"}).errors.contains("\"KVCPUSettings\""));
    EXPECT_EQ(run({"preferences", "set", "KVSaveToSourceFolder", "false"}).errors, QByteArray());
    EXPECT_EQ(run({"preferences", "set", "ZRFixedDestinationBookmark", "out"}).errors, QByteArray());
    EXPECT_EQ(run({"preferences", "get", "ZRFixedDestinationBookmark"}).output, path("out").toUtf8() + '\n');
}

TEST_F(KVPreferencesCommandTest, KeepsADamagedStoreAsideAndSaysSo) {
    const QString store = ".home/config/kalvora/preferences.json";
    for (const QByteArray damaged : {"", "{\"KVCPUSettings\": 2", "[1, 2]", "\xff\xfe"}) {
        write(store, damaged);
        const Result result = run({"preferences", "set", "KVCPUSettings", "1"});
        EXPECT_EQ(result.status, 0) << damaged.toStdString();
        EXPECT_EQ(run({"preferences", "get", "KVCPUSettings"}).output, "1\n");
        EXPECT_TRUE(damaged.isEmpty() || result.errors.contains("were damaged; they are kept as"))
            << damaged.toStdString();
    }
    write(store, "[1, 2]");
    EXPECT_TRUE(run({"preferences"}).errors.contains("were damaged")) << "also where it is only listed";
    write(store, R"({"ZRPresetSettingsDefaults": {"MP3": 5, "X": {"ZRPresetClass": "Kalvora.KVNone"}}, )"
                 R"("KVSaveToSourceFolder": "perhaps"})");
    EXPECT_TRUE(run({"presets"}).output.contains("\nMP3 "));
}

class KVArgumentsCommandTest : public KVCommandTestCase {};

TEST_F(KVArgumentsCommandTest, TellsWhatAConversionRunsAndRunsNothing) {
    KVTestMedia::tone(path("it's.wav"), 0.2, 44100, 2);
    const Result result = run({"arguments", "--json", "--preset", "MP3", "--set", "KVAudioTrackQuality=3",
                               "--set", "ZRAudioBitrate=96", "--set", "KVSampleRate=22050", "it's.wav"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.object()["output"], path("it's.mp3"));
    QStringList list;
    for (const QJsonValue element : result.object()["arguments"].toArray())
        list += element.toString();
    EXPECT_EQ(list.first(), "-y");
    EXPECT_EQ(list.last(), path("it's.mp3"));
    EXPECT_TRUE(list.join(' ').contains("-b:a:0 96k")) << list.join(' ').toStdString();
    EXPECT_TRUE(list.contains("22050"));
    EXPECT_EQ(names(), QStringList("it's.wav"));

    // Nothing of this was kept, and the plain line can be run as it stands.
    const Result plain = run({"arguments", "--preset", "MP3", "it's.wav"});
    EXPECT_FALSE(plain.output.contains("22050"));
    write("line.sh", plain.output.trimmed() + " 2>/dev/null");
    EXPECT_EQ(runShell("sh line.sh").status, 0);
    EXPECT_GT(secondsOf(path("it's.mp3")), 0.1);
}

TEST_F(KVArgumentsCommandTest, TellsWhyThereIsNoTask) {
    KVTestMedia::tone(path("a.wav"), 0.2);
    write("p.png", "x");
    const struct {
        QStringList words;
        const char *error;
    } rows[]{
        {{"gone.wav"}, "No such file or folder."},
        {{"a.wav", "p.png"}, "The preset \"MP3\" does not convert files of the type picture."},
        {{"--to", "nowhere", "a.wav"}, "is missing or cannot be written to."},
        {{"--audio-track", "5", "a.wav"}, "The file has no audio track 5."},
        {{"--subtitles", "a.srt", "a.wav"}, "Only a video can have subtitles."},
    };
    for (const auto &row : rows) {
        const Result result = run(QStringList{"arguments", "--json", "--preset", "MP3"} + row.words);
        EXPECT_EQ(result.status, 1) << row.error;
        EXPECT_EQ(result.object().keys(), QStringList("error"));
        EXPECT_TRUE(result.object()["error"].toString().contains(row.error)) << result.output.toStdString();
    }
}

TEST_F(KVArgumentsCommandTest, RefusesSubtitlesThatWouldBeLost) {
    KVTestMedia::make({"-f", "lavfi", "-i", "color=size=64x48:duration=0.2", path("a.avi")});
    write("russian.srt", "1\n00:00:00,000 --> 00:00:01,000\n\xCF\xF0\xE8\xE2\xE5\xF2\n");
    write("empty.srt", "\xEF\xBB\xBF\n");
    const auto error = [&](const QStringList &words) {
        return run(QStringList{"arguments", "--json", "--preset", "MP4", "a.avi"} + words)
            .object()["error"]
            .toString();
    };
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe.srt")).constData(), 0600), 0);
    EXPECT_TRUE(error({"--subtitles", "pipe.srt"}).contains("pipe.srt cannot be read.")) << "nor waited for";
    EXPECT_TRUE(error({"--subtitles", "gone.srt"}).contains("gone.srt cannot be read."));
    EXPECT_TRUE(error({"--subtitles", "russian.srt"}).contains("russian.srt is not in the encoding UTF-8"));
    EXPECT_EQ(error({"--subtitles", "russian.srt", "--subtitles-encoding", "windows-1251"}), "");
    EXPECT_TRUE(error({"--subtitles", "empty.srt"}).contains("empty.srt is empty."));
}

} // namespace
