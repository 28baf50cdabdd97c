#include "presets/picture/KVNSImageBasedPreset.h"

#include "presets/KVPresetClasses.h"
#include "presets/picture/KVBMPPreset.h"
#include "presets/picture/KVGIFPreset.h"
#include "presets/picture/KVJPEGPreset.h"
#include "presets/picture/KVPNGPreset.h"
#include "presets/picture/KVTIFFPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestPictures.h"
#include "video_info/media_file/KVPictureFile.h"

#include <cmath>
#include <thread>

using namespace KVTestPictures;
using vips::VImage;

namespace {

class KVNSImageBasedPresetTest : public KVTestCase {
  protected:
    void SetUp() override { QDir().mkpath(path("out")); }

    /// The new file's path.
    QString converted(const KVPicturePreset &preset, const QString &source) const {
        const auto output = preset.convertPictureFile(
            std::make_shared<KVPictureFile>(QUrl::fromLocalFile(source)), url("out"));
        EXPECT_TRUE(output) << source.toStdString() << ": " << output.error().reason.toStdString();
        return output ? output->toLocalFile() : QString();
    }

    template <class Preset>
    VImage convertedPicture(const QString &source) const {
        return load(converted(*KVPreset::make<Preset>(), source));
    }

    QStringList outputNames() const {
        return QDir(path("out"))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
};

} // namespace

TEST_F(KVNSImageBasedPresetTest, WritesEveryKindOfFile) {
    const QString source = fields(path("source.png"), 63, 47);
    const std::map<QString, QString> loaders{{"BMP", "magickload"},
                                             {"GIF", "gifload"},
                                             {"JPEG", "jpegload"},
                                             {"PNG", "pngload"},
                                             {"TIFF", "tiffload"}};
    for (const KVPresetClass &row : KVPresetClasses::picturePresetClasses()) {
        if (row.isAbstractPreset()) continue;
        const auto preset = std::static_pointer_cast<KVPicturePreset>(row.make());
        const QString output = converted(*preset, source);
        EXPECT_EQ(output, path("out/source." + *preset->pathExtension()));
        const VImage picture = load(output);
        EXPECT_EQ(picture.get_string("vips-loader"), loaders.at(preset->name).toStdString());
        EXPECT_EQ(picture.width(), 63);
        EXPECT_EQ(picture.height(), 47);
        EXPECT_TRUE(areClose(fieldColours(picture), {red, green, blue, yellow}))
            << preset->name.toStdString();
    }
}

TEST_F(KVNSImageBasedPresetTest, ReadsEveryKindOfFileWhateverItsName) {
    const VImage picture = fields(64, 64);
    const auto named = [&](const char *name, const char *suffix, vips::VOption *options = nullptr) {
        const QString saved = save(picture, path(QString("saved") + suffix), options);
        QFile::rename(saved, path(name));
        return path(name);
    };
    const QStringList sources{
        named("a.jpg", ".jpg", VImage::option()->set("Q", 95)),
        named("b.png", ".png"),
        named("c.gif", ".gif"),
        named("d.tif", ".tif"),
        named("e.heic", ".heic", VImage::option()->set("Q", 95)),
        named("f.psd", ".psd"),
        named("g.bmp", ".bmp"),
        named("really a PNG [1].jpg", ".png"),
    };
    for (const QString &source : sources) {
        const VImage output = convertedPicture<KVPNGPreset>(source);
        EXPECT_EQ(output.width(), 64) << source.toStdString();
        EXPECT_TRUE(areClose(fieldColours(output), {red, green, blue, yellow}, 20)) << source.toStdString();
    }
}
