#include "util/picture/KVPictureHelper.h"

#include "platform/KVResources.h"
#include "presets/picture/KVPictureTestCase.h"
#include "support/KVTestDocument.h"
#include "util/KVTempDirectory.h"
#include "util/picture/KVPictureSource.h"

#include <QtEndian>

#include <chrono>
#include <thread>

using namespace KVTestPictures;
using namespace std::chrono_literals;
using vips::VImage;

namespace {

/// Pictures that only the helper program reads, with the real one or with one that misbehaves.
class KVPictureHelperTest : public KVPictureTestCase {
  protected:
    void TearDown() override {
        KVResources::setHelperDirectory({});
        KVPictureHelper::setMaximumDuration(60s);
    }

    /// With 32 bits for a channel: white, or a middle grey whose only channel is not its transparency.
    QString deepDocument(bool isGrey = false) const {
        const KVTestDocument document{
            isGrey ? KVTestDocument::grey : KVTestDocument::rgb, 32, false, 0, {}, {}};
        const VImage picture =
            isGrey ? VImage::black(8, 8) + 128 : VImage::black(8, 8, VImage::option()->set("bands", 3)) + 255;
        return write(isGrey ? "grey.psd" : "deep.psd", document.content(picture.cast(VIPS_FORMAT_UCHAR)));
    }

    QString reasonWithHelper(const QByteArray &script) const {
        KVResources::setHelperDirectory(QFileInfo(writeScript("helper/kalvora-picture", script)).path());
        const auto picture = KVPictureSource::open(deepDocument());
        EXPECT_FALSE(picture) << script.constData();
        return picture ? QString() : picture.error().reason;
    }

    static QString unreadable(const QString &reason) { return "The picture cannot be read: " + reason; }
};

} // namespace

TEST_F(KVPictureHelperTest, ReadsWhatTheProgramDoesNotTrustItselfToRead) {
    const VImage deep = convertedPicture<KVJPEGPreset>(deepDocument());
    EXPECT_TRUE(areClose({deep.getpoint(4, 4)}, {white}, 3));
    const VImage grey = convertedPicture<KVJPEGPreset>(deepDocument(true));
    EXPECT_EQ(grey.bands(), 1);
    EXPECT_LT(grey.getpoint(4, 4)[0], 230);
    EXPECT_GT(grey.getpoint(4, 4)[0], 50);

    VipsBlob *blob = fields(256, 256).jp2ksave_buffer(VImage::option()->set("lossless", true));
    QByteArray icon(static_cast<const char *>(VIPS_AREA(blob)->data), qsizetype(VIPS_AREA(blob)->length));
    vips_area_unref(VIPS_AREA(blob));
    const auto entry = [](const char *type, const QByteArray &content) {
        const quint32 size = qToBigEndian(quint32(content.size() + 8));
        return type + QByteArray(reinterpret_cast<const char *>(&size), sizeof size) + content;
    };
    const VImage read = convertedPicture<KVPNGPreset>(write("icon.icns", entry("icns", entry("ic08", icon))));
    EXPECT_TRUE(areClose(fieldColours(read), {red, green, blue, yellow}, 4));
}

TEST_F(KVPictureHelperTest, AHelperThatMisbehavesFailsOnePicture) {
    const QString crashed = unreadable("The helper program that reads it crashed or ran out of memory.");
    EXPECT_EQ(reasonWithHelper("kill -SEGV $$"), crashed);
    EXPECT_EQ(reasonWithHelper("kill -ABRT $$"), crashed);
    EXPECT_EQ(reasonWithHelper("echo It is bad.; exit 1"), unreadable("It is bad."));
    EXPECT_TRUE(reasonWithHelper("exit 0").startsWith(unreadable(""))) << "there is no picture";
    EXPECT_TRUE(reasonWithHelper("echo rubbish >\"$2\"").startsWith(unreadable("")));

    const auto start = std::chrono::steady_clock::now();
    KVPictureHelper::setMaximumDuration(300ms);
    EXPECT_EQ(reasonWithHelper("exec sleep 50"), unreadable("Reading it took too long."));
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);

    KVResources::setHelperDirectory(path("nowhere"));
    const auto picture = KVPictureSource::open(deepDocument());
    ASSERT_FALSE(picture);
    EXPECT_TRUE(picture.error().reason.contains("\"kalvora-picture\" does not start"))
        << picture.error().reason.toStdString();
    EXPECT_EQ(QDir(KVTempDirectoryPath()).entryList(QDir::Files), QStringList()) << "nothing is left";
}

TEST_F(KVPictureHelperTest, AHelperGetsNoMoreMemoryThanItsLimit) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers need more address space than any limit";
#endif
    const QByteArray limits = "test \"$(ulimit -v)\" -le 2097152 && test \"$(ulimit -t)\" -le 60 && "
                              "echo There are limits. && exit 1";
    EXPECT_EQ(reasonWithHelper(limits), unreadable("There are limits."));
    EXPECT_EQ(reasonWithHelper("exec dd if=/dev/zero of=/dev/null bs=3G count=1"),
              unreadable("The helper program that reads it crashed or ran out of memory."));
}

TEST_F(KVPictureHelperTest, EndsWithTheConversionThatNeedsIt) {
    KVResources::setHelperDirectory(QFileInfo(writeScript("helper/kalvora-picture", "exec sleep 50")).path());
    const auto start = std::chrono::steady_clock::now();
    std::thread ending([this] {
        std::this_thread::sleep_for(100ms);
        stop.request_stop();
    });
    const auto picture = KVPictureSource::open(deepDocument(), stop.get_token());
    ending.join();
    EXPECT_FALSE(picture);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
}
