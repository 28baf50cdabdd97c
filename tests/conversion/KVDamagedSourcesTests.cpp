#include "platform/KVResources.h"
#include "support/KVTestMedia.h"
#include "support/KVVideoConversionTestCase.h"
#include "tasks/KVProbeHelper.h"

namespace {

/// Sources that ffmpeg converts with exit status 0 although they are cut off or damaged.
class KVDamagedSourcesTest : public KVVideoConversionTestCase {
  protected:
    /// Whether the name is that of a sound.
    static bool isSound(const QString &name) {
        static const QStringList extensions{"mp3", "flac", "wav", "ogg"};
        return extensions.contains(QFileInfo(name).suffix());
    }

    /// A video of 8 seconds with sound, or 12 seconds of noise; the format follows from the name.
    QString source(const QString &name, const QStringList &options = {}) const {
        QStringList arguments{"-f", "lavfi", "-i", "anoisesrc=amplitude=0.2:seed=1:duration=12", "-ac", "2"};
        if (!isSound(name))
            arguments = {"-f",   "lavfi",   "-i",       "testsrc2=size=160x120:rate=25:duration=8",
                         "-f",   "lavfi",   "-i",       "sine=duration=8",
                         "-ac",  "2",       "-pix_fmt", "yuv420p",
                         "-c:v", "libx264", "-preset",  "ultrafast",
                         "-g",   "50",      "-c:a",     "aac"};
        KVTestMedia::make(arguments + options + QStringList{path(name)});
        return path(name);
    }

    void cut(const QString &path) const { ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() * 3 / 10)); }

    void damage(const QString &path) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        QByteArray noise;
        for (int i = 0; i < 800; ++i)
            noise += static_cast<char>(i * i * 31 + i * 7);
        for (const int percent : {45, 50, 55}) {
            file.seek(file.size() * percent / 100);
            file.write(noise);
        }
    }

    /// A preset that decodes the file.
    static QString presetFor(const QString &name) { return isSound(name) ? "KVM4APreset" : "KVDivXPreset"; }

    Job job(const QString &label, const QString &presetClass, const QString &path) const {
        const auto file = KVMediaFile::mediaFile(QUrl::fromLocalFile(path));
        EXPECT_TRUE(file) << path.toStdString();
        return {label, KVTestPresets::make(presetClass), {*file}};
    }
};

} // namespace

TEST_F(KVDamagedSourcesTest, SaysHowMuchOfAnIncompleteSourceWasConverted) {
    const QString third = "Only 0:02 of 0:08 was converted: the source is incomplete.";
    const QString thirdOfSound = "Only 0:03 of 0:12 was converted: the source is incomplete.";
    const QString oneFrame = "The source is damaged in one place."; // its length is not known
    struct Row {
        QString name;
        QString warning; // a pattern
        QStringList options;
    };
    const QList<Row> rows{{"a.mp4", third, {"-movflags", "+faststart"}},
                          {"b.mkv", third, {}},
                          {"c.ts", oneFrame, {}},
                          {"d.mp3", thirdOfSound, {}},
                          {"e.flac", thirdOfSound, {}},
                          {"f.wav", thirdOfSound, {}}};
    std::vector<Job> jobs;
    for (const Row &row : rows) {
        const QString path = source(row.name, row.options);
        cut(path);
        jobs.push_back(job(row.name, presetFor(path), path));
    }
    // The sound ends where the file ends, not before.
    jobs.push_back(job("sound of a.mp4", "KVMP3Preset", path("a.mp4")));
    jobs.push_back(job("sound of b.mkv", "KVMP3Preset", path("b.mkv")));
    jobs.push_back(job("copy of a.mp4", "KVRemuxPreset", path("a.mp4")));
    const auto outputs = convert(jobs);
    const auto expectWarning = [&](const QString &label, const QString &pattern) {
        EXPECT_FALSE(outputs.at(label).isEmpty()) << label.toStdString();
        const QString warnings = warningsOf(label).join('|');
        EXPECT_TRUE(QRegularExpression("^" + pattern + "$").match(warnings).hasMatch())
            << label.toStdString() << ": " << warnings.toStdString();
    };
    for (const Row &row : rows)
        expectWarning(row.name, row.warning);
    for (const char *label : {"sound of a.mp4", "sound of b.mkv", "copy of a.mp4"})
        expectWarning(label, third);
}

TEST_F(KVDamagedSourcesTest, CountsWhatCouldNotBeDecoded) {
    std::vector<Job> jobs;
    for (const char *name : {"a.mp4", "b.mkv", "c.ts", "d.mp3", "e.flac", "f.ogg"}) {
        const QString path = source(name);
        damage(path);
        jobs.push_back(job(name, presetFor(path), path));
    }
    const auto outputs = convert(jobs);
    for (const Job &damaged : jobs) {
        EXPECT_FALSE(outputs.at(damaged.label).isEmpty()) << damaged.label.toStdString();
        const QString warnings = warningsOf(damaged.label).join('|');
        EXPECT_TRUE(warnings.contains(QRegularExpression("damaged in (\\d+|one) places?")))
            << damaged.label.toStdString() << ": " << warnings.toStdString();
    }
}

TEST_F(KVDamagedSourcesTest, FindsDamageWithoutTheProbeHelper) {
    KVProbeHelper::endIdleHelpers();
    KVResources::setHelperDirectory(path("nowhere"));
    const QString cutSound = source("cut.mp3");
    cut(cutSound);
    const QString wholeSound = source("whole.mp3");
    const auto outputs =
        convert({job("cut", "KVM4APreset", cutSound), job("whole", "KVM4APreset", wholeSound)});
    KVResources::setHelperDirectory({});
    EXPECT_EQ(warningsOf("cut"), QStringList("Only 0:03 of 0:12 was converted: the source is incomplete."));
    EXPECT_EQ(warningsOf("whole"), QStringList());
    EXPECT_FALSE(outputs.at("whole").isEmpty());
}

TEST_F(KVDamagedSourcesTest, AcceptsATrackThatEndsBeforeTheOthers) {
    const QString sine = "sine=duration=%1";
    const auto video = [&](const QString &name, int pictureSeconds, int soundSeconds) {
        KVTestMedia::make({"-f", "lavfi", "-i", QString("color=size=160x120:duration=%1").arg(pictureSeconds),
                           "-f", "lavfi", "-i", sine.arg(soundSeconds), "-c:v", "mpeg4", "-q:v", "3", "-c:a",
                           "aac", path(name)});
        return path(name);
    };
    const QString early = video("early.mp4", 8, 3), late = video("late.mkv", 3, 8);
    const QString damaged = video("damaged.mp4", 8, 3);
    {
        QFile file(damaged); // in the sound, so that the source must be read to its end
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        file.seek(file.size() / 8);
        file.write(QByteArray(2000, '\x55'));
    }
    std::vector<Job> jobs;
    for (const auto &[name, path] : {std::pair("early", early), {"late", late}})
        for (const char *preset : {"KVMP3Preset", "KVMP4Preset", "KVRemuxPreset", "KVGIFAnimationPreset"})
            jobs.push_back(job(QString(name) + preset, preset, path));
    jobs.push_back(job("damaged", "KVMP3Preset", damaged));
    const auto outputs = convert(jobs);
    for (const Job &done : jobs) {
        EXPECT_FALSE(outputs.at(done.label).isEmpty()) << failureOf(done.label).toStdString();
        const QString warnings = warningsOf(done.label).join('|');
        if (done.label != "damaged")
            EXPECT_EQ(warnings, "") << done.label.toStdString();
        else
            EXPECT_TRUE(warnings.startsWith("The source is damaged in")) << warnings.toStdString();
    }
}

TEST_F(KVDamagedSourcesTest, RejectsSourcesWithTracksAndNoContent) {
    // A header and no samples.
    const QByteArray header = QByteArray::fromHex("524946462400000057415645666d74201000000001000200"
                                                  "44ac000010b102000400100064617461");
    const QByteArray bytes =
        read(source("whole.mp4", {"-movflags", "+frag_keyframe+empty_moov+default_base_moof"}));
    for (const QString &empty : {write("a.wav", header + QByteArray(4, '\0')),
                                 write("b.mp4", bytes.first(bytes.indexOf("moof") - 4))}) {
        const auto file = KVMediaFile::mediaFile(QUrl::fromLocalFile(empty));
        ASSERT_FALSE(file) << empty.toStdString();
        EXPECT_EQ(file.error().reason, "The file describes its tracks but contains no media data.");
    }
}
