#include "conversion/conversions/KVPictureConversion.h"

#include "core/KVErrorCenter.h"
#include "core/KVHistoryCenter.h"
#include "platform/KVResources.h"
#include "presets/picture/KVJPEGPreset.h"
#include "presets/picture/KVPNGPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestDocument.h"
#include "support/KVTestPictures.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVPictureFile.h"

#include <QFileInfo>

namespace {

class Host : public KVConversionHost {
  public:
    std::optional<QUrl> folder;
    std::shared_ptr<KVPreset> preset = KVPreset::make<KVJPEGPreset>();

    std::optional<QUrl> outputDirectoryURL() const override { return folder; }
    std::shared_ptr<KVPreset> selectedPreset() const override { return preset; }
};

class KVPictureConversionTest : public KVTestCase {
  protected:
    void SetUp() override {
        QDir().mkpath(path("out"));
        KVErrorCenter::shared().setErrorObserver([this](const auto &error) { errors.push_back(error); });
    }
    void TearDown() override {
        KVErrorCenter::shared().setErrorObserver({});
        saveToSourceFolder(true);
    }

    std::shared_ptr<KVConversion> conversionOf(const QString &name) {
        auto conversion = KVConversion::conversionWithMediaFile(std::make_shared<KVPictureFile>(url(name)));
        conversion->setQueue(host);
        return conversion;
    }

    static void saveToSourceFolder(bool isOn) {
        KVPreferences::shared().setBoolean(isOn, KVPreferenceKeys::SaveToSourceFolder);
    }

    std::shared_ptr<Host> host = std::make_shared<Host>();
    std::vector<KVConversionError> errors;
};

} // namespace

TEST_F(KVPictureConversionTest, WritesBesideTheSourceOrIntoTheQueuesFolder) {
    KVTestPictures::fields(path("a.png"));
    host->folder = url("out");
    const auto beside = conversionOf("a.png");
    beside->start();
    EXPECT_TRUE(beside->conversionWasSuccessful);
    EXPECT_EQ(beside->outputURL(), url("a.jpg"));
    EXPECT_EQ(beside->progressOfCurrentTask, 1);

    saveToSourceFolder(false);
    const auto elsewhere = conversionOf("a.png");
    elsewhere->setCustomPreset(KVPreset::make<KVPNGPreset>());
    elsewhere->start();
    EXPECT_EQ(elsewhere->outputURL(), url("out/a.png"));

    QList<QUrl> history;
    for (const auto &item : KVHistoryCenter::shared().historyItems()) {
        EXPECT_EQ(item.type, KVMediaFileType::picture);
        history += item.url;
    }
    EXPECT_EQ(history, (QList<QUrl>{url("a.jpg"), url("out/a.png")}));
    EXPECT_TRUE(errors.empty());
}

TEST_F(KVPictureConversionTest, ConvertsOnlyTheLastFile) {
    KVTestPictures::fields(path("a.png"));
    KVTestPictures::fields(path("b.png"));
    const auto conversion = conversionOf("a.png");
    conversion->setMediaFiles(
        {std::make_shared<KVPictureFile>(url("a.png")), std::make_shared<KVPictureFile>(url("b.png"))});
    EXPECT_FALSE(conversion->pause());
    conversion->start();
    EXPECT_EQ(conversion->outputURL(), url("b.jpg"));
    EXPECT_FALSE(QFile::exists(path("a.jpg")));
}

TEST_F(KVPictureConversionTest, RecordsWhyThereIsNoFile) {
    write("bad.png", "no picture");
    const auto damaged = conversionOf("bad.png");
    damaged->setOutputURL(url("before"));
    damaged->start();
    EXPECT_FALSE(damaged->conversionWasSuccessful);
    EXPECT_FALSE(damaged->outputURL());
    EXPECT_EQ(damaged->statusString(), "");
    EXPECT_EQ(damaged->estimatedTimeString(), "Error converting.");

    saveToSourceFolder(false);
    const auto homeless = conversionOf("bad.png");
    homeless->start();
    EXPECT_FALSE(homeless->conversionWasSuccessful);

    KVTestPictures::fields(path("good.png"));
    const auto missing = conversionOf("good.png");
    QFile::remove(path("good.png"));
    write("empty.png", {});
    const auto empty = conversionOf("empty.png");
    saveToSourceFolder(true);
    for (const auto &conversion : {missing, empty})
        conversion->start();
    EXPECT_TRUE(missing->failureCause()->text.startsWith("The file to be converted cannot be found"));
    EXPECT_EQ(empty->failureCause()->text, "The file is empty.");
    EXPECT_EQ(errors.size(), 4U);
    errors.resize(2);

    EXPECT_EQ(errors[0].taskOutput, "");
    EXPECT_EQ(errors[0].reason, "The picture cannot be read: This is no picture of a known kind.");
    EXPECT_EQ(errors[1].taskOutput, "No output URL is set.");
    for (const auto &error : errors) {
        EXPECT_EQ(error.terminationStatus, 1);
        EXPECT_EQ(error.taskArguments, QStringList());
        EXPECT_EQ(error.targetPreset->original(), host->preset);
    }
}

TEST_F(KVPictureConversionTest, APictureThatCrashesItsReaderFailsAloneAndAPagedOneWarns) {
    KVTestPictures::fields(path("good.png"));
    const vips::VImage grey = (vips::VImage::black(8, 8) + 90).cast(VIPS_FORMAT_UCHAR);
    write("bad.psd", KVTestDocument{KVTestDocument::grey, 32, false, 0, {}, {}}.content(grey));
    KVResources::setHelperDirectory(QFileInfo(writeScript("helper/kalvora-picture", "kill -SEGV $$")).path());
    const auto bad = conversionOf("bad.psd");
    bad->start();
    KVResources::setHelperDirectory({});
    EXPECT_FALSE(bad->conversionWasSuccessful);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].reason, "The picture cannot be read: The helper program that reads it crashed or ran "
                                "out of memory.");

    const auto good = conversionOf("good.png");
    good->start();
    EXPECT_TRUE(good->conversionWasSuccessful);
    EXPECT_EQ(good->warnings(), QStringList());

    // Two pages with one picture each.
    vips::VImage pages = KVTestPictures::fields(40, 80);
    pages.set(VIPS_META_PAGE_HEIGHT, 40);
    KVTestPictures::save(pages, path("pages.tif"));
    const auto paged = conversionOf("pages.tif");
    paged->start();
    EXPECT_TRUE(paged->conversionWasSuccessful);
    EXPECT_EQ(paged->warnings(), QStringList{"Only the first of 2 pages is converted."});
}
