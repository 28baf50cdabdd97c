#include "delivery/ZRFixAIFFFile.h"
#include "platform/KVScriptedQuestions.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"

#include <QDir>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace {

struct Closer {
    void operator()(SNDFILE *file) const { sf_close(file); }
};

struct Sound {
    SF_INFO info{};
    std::vector<double> samples;
    QString title;
};

Sound readSound(const QString &path) {
    Sound sound;
    const std::unique_ptr<SNDFILE, Closer> file(
        sf_open(QFile::encodeName(path).constData(), SFM_READ, &sound.info));
    EXPECT_TRUE(file) << path.toStdString();
    if (!file) return sound;
    sound.samples.resize(static_cast<size_t>(sound.info.frames * sound.info.channels));
    sf_readf_double(file.get(), sound.samples.data(), sound.info.frames);
    sound.title = QString::fromUtf8(sf_get_string(file.get(), SF_STR_TITLE));
    return sound;
}

class ZRFixAIFFFileTest : public KVTestCase {
  protected:
    void SetUp() override { KVUserQuestion::setResponder(questions); }
    void TearDown() override { KVUserQuestion::setResponder(nullptr); }

    std::optional<QUrl> fix(const QString &input, const std::optional<QUrl> &output) const {
        questions->savePanelResponses.push_back(output);
        return ZRFixAIFFFile(url(input));
    }

    const std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
};

TEST_F(ZRFixAIFFFileTest, KeepsEverySampleTheFormatAndTheTexts) {
    KVTestMedia::make({"-f", "lavfi", "-i", "sine=duration=0.3:sample_rate=48000", "-ac", "2", "-c:a",
                       "pcm_s24be", "-metadata", "title=Été", path("a.b.aiff")});
    const QUrl wanted = url("out.aifc");
    EXPECT_EQ(fix("a.b.aiff", wanted), wanted);
    ASSERT_EQ(questions->savePanels.size(), 1U);
    EXPECT_EQ(questions->savePanels[0].proposedName, "a.b_fix.aiff");
    EXPECT_EQ(questions->savePanels[0].allowedExtensions, QStringList("aiff"));
    EXPECT_EQ(questions->savePanels[0].directory.toLocalFile(), path());

    const Sound before = readSound(path("a.b.aiff"));
    const Sound after = readSound(path("out.aifc"));
    EXPECT_EQ(after.info.format, before.info.format);
    EXPECT_EQ(after.info.samplerate, 48000);
    EXPECT_EQ(after.samples, before.samples);
    EXPECT_EQ(after.title, before.title);
    EXPECT_FALSE(before.samples.empty());
}

TEST_F(ZRFixAIFFFileTest, BringsSoundThatOvershootsBackIntoTheScale) {
    SF_INFO info{};
    info.samplerate = 8000;
    info.channels = 1;
    info.format = SF_FORMAT_AIFF | SF_FORMAT_FLOAT;
    const std::vector<double> loud{0.5, -2, 1, 2};
    sf_close([&] {
        SNDFILE *file = sf_open(QFile::encodeName(path("loud.aiff")).constData(), SFM_WRITE, &info);
        sf_writef_double(file, loud.data(), static_cast<sf_count_t>(loud.size()));
        return file;
    }());
    ASSERT_TRUE(fix("loud.aiff", url("calm.aiff")));
    const Sound calm = readSound(path("calm.aiff"));
    EXPECT_EQ(calm.samples, std::vector<double>({0.25, -1, 0.5, 1}));
}

TEST_F(ZRFixAIFFFileTest, LeavesEverythingAsItWasWhereNothingCanBeDone) {
    const QByteArray original = read(KVTestMedia::tone(path("a.aiff"), 0.2));
    write("text.aiff", "no sound");
    EXPECT_FALSE(fix("a.aiff", std::nullopt)) << "cancelled";
    EXPECT_FALSE(fix("a.aiff", url("noextension")));
    EXPECT_FALSE(fix("a.aiff", url("missing/folder.aiff")));
    EXPECT_FALSE(fix("text.aiff", url("copy.aiff"))) << "no sound file";
    EXPECT_FALSE(fix("a.aiff", url("a.gsm"))) << "no such combination of format and rate";
    EXPECT_FALSE(fix("a.aiff", url("a.aiff"))) << "onto itself";
    EXPECT_EQ(read(path("a.aiff")), original);
    EXPECT_EQ(QDir(path()).entryList(QDir::Files), QStringList({"a.aiff", "text.aiff"}));
}

TEST_F(ZRFixAIFFFileTest, ReportsACopyThatIsNotWhole) {
    KVTestMedia::tone(path("a.aiff"), 0.2);
    ASSERT_TRUE(QFile::link("/dev/full", path("full.aiff")));
    EXPECT_FALSE(fix("a.aiff", url("full.aiff")));
}

TEST_F(ZRFixAIFFFileTest, TellsTheFormatByTheExtension) {
    const struct {
        const char *name;
        int format;
    } rows[]{
        {"a.aif", 0x20002},      {"A.AIFFX", 0x20002},  {"a.aifc", 0x20002}, {"a.wav", 0x10002},
        {"a.fap", 0x10050002},   {"a.paf", 0x20050002}, {"a.gsm", 0x40020},  {"a.vox", 0x40021},
        {"a.rf64", 0x220002},    {"a.wave", 0x10003},   {"a.", 0x10003},     {"noextension", 0},
        {"/a.b/noextension", 0},
    };
    for (const auto &row : rows)
        EXPECT_EQ(sfe_file_type_of_ext(row.name, 0x70002), row.format) << row.name;
}

} // namespace
