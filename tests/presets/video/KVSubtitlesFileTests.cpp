#include "presets/video/base/KVSubtitlesFile.h"

#include "kvcore/KVLog.h"
#include "presets/video/base/KVVideoPreset.h"
#include "support/KVSmallFilesOnly.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "support/KVTestSources.h"
#include "tasks/KVHardwareAcceleration.h"
#include "util/KVTempDirectory.h"

#include <QFileInfo>

using namespace KVTestPresets;
using namespace KVTestSources;

namespace {

class KVSubtitlesFileTest : public KVTestCase {
  protected:
    void SetUp() override { KVHardwareAcceleration::setResult(false); }

    std::shared_ptr<KVVideoFile> videoWithSubtitles(const QString &name, const QByteArray &content,
                                                    const QString &encoding) const {
        const auto file = video({.bitrate = 100});
        file->subtitlesFileURL = QUrl::fromLocalFile(write(name, content));
        file->subtitlesFileEncoding = encoding;
        return file;
    }
};

const QByteArray greeting = "1\n00:00:00,000 --> 00:00:01,000\n";
const QByteArray privet1251 = "\xcf\xf0\xe8\xe2\xe5\xf2";
const QString privet = QStringLiteral("Привет");

} // namespace

TEST_F(KVSubtitlesFileTest, DecodesStrictly) {
    struct Row {
        const char *encoding;
        QByteArray bytes;
        std::optional<QString> want;
    };
    const Row rows[]{
        {"UTF-8", privet.toUtf8(), privet},
        {"UTF-8", privet1251, std::nullopt},
        {"UTF-8", "cut off \xd0", std::nullopt},
        {"windows-1251", privet1251, privet},
        {"KOI8-R", "\xf0\xd2\xc9\xd7\xc5\xd4", privet},
        {"Shift_JIS", "\x93\xfa\x96\x7b", QStringLiteral("日本")},
        {"UTF-16LE", QByteArray("\x1f\x04\x40\x04", 4), QStringLiteral("Пр")},
        {"UTF-32BE", QByteArray("\x00\x01\xf6\x00", 4), QStringLiteral("😀")},
        {"ISO-8859-1", "", QString("")},
        {"no such encoding", "a", std::nullopt},
        {"", "a", std::nullopt},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KVSubtitlesFile::decoded(row.bytes, row.encoding), row.want) << row.encoding;
}

TEST_F(KVSubtitlesFileTest, ExternalSubtitlesBecomeAnInputInUTF8) {
    const auto source = videoWithSubtitles("titles.srt", greeting + privet1251, "windows-1251");
    const auto preset = make("KVMP4Preset");
    const QStringList got = argumentsOf(*preset, {source});
    const QString converted = got.value(6);
    EXPECT_EQ(QFileInfo(converted).path(), KVTempDirectoryPath());
    EXPECT_EQ(QFileInfo(converted).suffix(), "srt");
    EXPECT_EQ(read(converted), greeting + privet.toUtf8());
    EXPECT_NE(argumentsOf(*preset, {source}).value(6), converted) << "each task has a file of its own";

    expectArguments("input", got.mid(0, 7), list("-y -i /in/clip.mkv -sub_charenc UTF-8 -i") << converted);
    const auto codec = got.indexOf("-b:a:0");
    expectArguments("behind the audio", got.mid(codec, 12),
                    list("-b:a:0 128k -map 1 -c:s mov_text -f mp4 -map 0:0 -map") << "0:1");
    EXPECT_FALSE(got.contains("-sn"));
    EXPECT_EQ(got.indexOf("copy"), -1) << "the track is encoded, light as it is";
}

TEST_F(KVSubtitlesFileTest, SubtitlesAreBurntInWhereAskedForOrWhereNoneCanBeMuxed) {
    struct Row {
        const char *presetClass;
        QVariantMap settings;
    };
    for (const Row &row :
         {Row{"KVMP4Preset", {{"KVBurnSubtitles", true}}}, Row{"KVWMVPreset", {}},
          Row{"KVMKVPreset", {{"KVBurnSubtitles", true}, {"KVDeinterlaceVideoTrack", true}}}}) {
        const QStringList got = argumentsOf(*make(row.presetClass, row.settings),
                                            {videoWithSubtitles("titles.srt", greeting, "UTF-8")});
        const auto filter = got.lastIndexOf("-vf");
        static const QRegularExpression form("^subtitles='(/.*/[0-9A-F-]{36}\\.srt)'$");
        const auto match = form.match(got.value(filter + 1));
        ASSERT_TRUE(match.hasMatch()) << row.presetClass << got.value(filter + 1).toStdString();
        EXPECT_TRUE(QFileInfo::exists(match.captured(1)));
        EXPECT_EQ(got.value(filter - 2), "-b:a:0") << row.presetClass;
        EXPECT_FALSE(got.contains("-sub_charenc")) << row.presetClass;
    }
}

TEST_F(KVSubtitlesFileTest, SubtitlesThatAreOfNoUseLeaveTheVideoWithoutAny) {
    const auto missing = video({.bitrate = 100});
    missing->subtitlesFileURL = url("nowhere.srt");
    struct Row {
        const char *reason;
        std::shared_ptr<KVVideoFile> source;
        bool isDiskFull = false;
    };
    const Row rows[]{
        {"No such file", missing},
        {"is not in the encoding UTF-8", videoWithSubtitles("undecodable.srt", privet1251, "UTF-8")},
        {"is empty", videoWithSubtitles("empty.srt", "", "UTF-8")},
        {"is empty", videoWithSubtitles("blank.srt", "\xef\xbb\xbf \r\n\n", "UTF-8")},
        {"which may be full", videoWithSubtitles("short.srt", greeting.repeated(10), "UTF-8"), true},
        {"which may be full", videoWithSubtitles("long.srt", greeting.repeated(10'000), "UTF-8"), true},
    };
    QStringList log, told;
    KVSetLogSink([&](const QString &line) { log << line; });
    KVSubtitlesFile::setFailureObserver(
        [&](const QUrl &url, const QString &reason) { told << url.fileName() + ": " + reason; });
    const auto filesBefore = QDir(KVTempDirectoryPath()).entryList(QDir::Files);
    for (const Row &row : rows) {
        std::optional<KVSmallFilesOnly> fullDisk;
        if (row.isDiskFull) fullDisk.emplace();
        const QStringList got = argumentsOf(*make("KVMP4Preset"), {row.source});
        const auto codec = got.indexOf("-b:a:0");
        expectArguments(row.reason, got.mid(codec, 5), list("-b:a:0 128k -sn -f mp4"));
        EXPECT_EQ(got.count("-i"), 1);
        const QString name = row.source->subtitlesFileURL->fileName();
        EXPECT_TRUE(told.last().startsWith(name) && told.last().contains(row.reason))
            << told.last().toStdString();
    }
    KVSetLogSink({});
    KVSubtitlesFile::setFailureObserver({});
    EXPECT_EQ(log.filter("Failed to read subtitles file at URL file:///").size(), std::size(rows));
    EXPECT_EQ(QDir(KVTempDirectoryPath()).entryList(QDir::Files), filesBefore) << "half a file";
}
