#include "presets/picture/KVNSImageBasedPreset.h"

#include "kvcore/KVLog.h"
#include "presets/KVPresetClasses.h"
#include "presets/picture/KVPictureTestCase.h"
#include "support/KVSmallFilesOnly.h"
#include "util/KVPictureLibrary.h"

#include <QFileInfo>
#include <QtEndian>

#include <set>
#include <thread>

using namespace KVTestPictures;
using vips::VImage;

namespace {

class KVNSImageBasedPresetTest : public KVPictureTestCase {
  protected:
    /// Each preset of a picture file once.
    static std::vector<std::shared_ptr<KVPicturePreset>> presets() {
        std::vector<std::shared_ptr<KVPicturePreset>> made;
        for (const KVPresetClass &row : KVPresetClasses::picturePresetClasses())
            if (!row.isAbstractPreset())
                made.push_back(std::static_pointer_cast<KVPicturePreset>(row.make()));
        return made;
    }
};

VImage noise() {
    KVPictureLibrary::prepare();
    return VImage::gaussnoise(200, 200, VImage::option()->set("mean", 128)).cast(VIPS_FORMAT_UCHAR);
}

/// A PNG that promises a picture of this size and has nothing of it.
QByteArray pngHeader(quint32 width, quint32 height) {
    QByteArray header("IHDR");
    for (const quint32 side : {width, height}) {
        const quint32 stored = qToBigEndian(side);
        header.append(reinterpret_cast<const char *>(&stored), sizeof stored);
    }
    header.append(QByteArray::fromHex("0800000000")); // grey, 8 bits
    const quint32 stored = qToBigEndian(checksum(header));
    header.append(reinterpret_cast<const char *>(&stored), sizeof stored);
    return QByteArray::fromHex("89504e470d0a1a0a0000000d") + header + QByteArray::fromHex("0000000049444154");
}

} // namespace

TEST_F(KVNSImageBasedPresetTest, WritesEveryKindOfFile) {
    const QString source = fields(path("source.png"), 63, 47);
    const std::map<QString, QString> loaders{{"BMP", "magickload"},
                                             {"GIF", "gifload"},
                                             {"JPEG", "jpegload"},
                                             {"PNG", "pngload"},
                                             {"TIFF", "tiffload"}};
    for (const auto &preset : presets()) {
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

// Names

TEST_F(KVNSImageBasedPresetTest, CountsFromOneWhereANameIsTaken) {
    const auto preset = KVPreset::make<KVJPEGPreset>();
    const QString source = fields(path("a.b.png"));
    write("out/other.jpg", "kept");
    for (int i = 0; i < 3; i++)
        converted(*preset, source);
    EXPECT_EQ(outputNames(), (QStringList{"a.b.01.jpg", "a.b.02.jpg", "a.b.jpg", "other.jpg"}));

    QFile::link(path("nowhere"), path("out/link.jpg"));
    EXPECT_EQ(converted(*preset, fields(path("link.png"))), path("out/link.01.jpg"));
    EXPECT_FALSE(QFile::exists(path("nowhere")));

    const QString longest(251, 'n');
    const QString longSource = fields(path(longest + ".png"));
    EXPECT_EQ(converted(*preset, longSource), path("out/" + longest + ".jpg"));
    EXPECT_EQ(converted(*preset, longSource), path("out/" + longest.chopped(3) + ".01.jpg"));
}

TEST_F(KVNSImageBasedPresetTest, GivesSourcesOfOneNameAFileEach) {
    const auto preset = KVPreset::make<KVPNGPreset>();
    std::vector<std::thread> workers;
    for (int i = 1; i <= 8; i++) {
        QDir().mkpath(path(QString::number(i)));
        fields(path(QString::number(i) + "/same.jpg"), 10 * i, 10 * i);
    }
    for (int i = 1; i <= 8; i++)
        workers.emplace_back([&, i] { converted(*preset, path(QString::number(i) + "/same.jpg")); });
    for (auto &worker : workers)
        worker.join();

    std::set<int> widths;
    for (const QString &name : outputNames())
        widths.insert(load(path("out/" + name)).width());
    EXPECT_EQ(widths, (std::set{10, 20, 30, 40, 50, 60, 70, 80}));
}

TEST_F(KVNSImageBasedPresetTest, TellsTheEncoderItsProperties) {
    const QString source = save(noise(), path("noise.png"));
    const auto sizeAt = [&](qint64 compression) {
        KVJPEGPreset jpeg;
        jpeg.compression = compression;
        return QFileInfo(converted(jpeg, source)).size();
    };
    EXPECT_LT(sizeAt(20) * 2, sizeAt(90));

    constexpr qsizetype interlaceMethod = 28; // of the header that every PNG begins with
    for (const bool isInterlaced : {false, true}) {
        KVPNGPreset png;
        png.isInterlaced = isInterlaced;
        EXPECT_EQ(read(converted(png, source)).at(interlaceMethod), isInterlaced ? 1 : 0);
    }
}

TEST_F(KVNSImageBasedPresetTest, ConvertsThinAndTinyPictures) {
    const QStringList sources{fields(path("dot.png"), 1, 1), fields(path("line.png"), 60000, 1),
                              fields(path("pole.png"), 1, 60000)};
    for (const auto &preset : presets()) {
        for (const QString &source : sources) {
            preset->setHasSizeConstrains(false);
            EXPECT_EQ(sizeOf(converted(*preset, source)), sizeOf(source)) << preset->name.toStdString();
            preset->setHasSizeConstrains(true);
            preset->setMaxWidth(700);
            preset->setMaxHeight(700);
            const KVSize size = sizeOf(converted(*preset, source));
            EXPECT_EQ(size, preset->scaledSize(sizeOf(source))) << preset->name.toStdString();
            EXPECT_GE(std::min(size.width, size.height), 1);
        }
    }
}

// What fails

TEST_F(KVNSImageBasedPresetTest, RefusesDamagedPicturesAndLeavesNothing) {
    const auto jpeg = KVPreset::make<KVJPEGPreset>();
    QStringList sources{write("empty.jpg", {}), write("text.png", "no picture at all"), path("missing.png"),
                        write("claims.png", pngHeader(100000, 100000)),
                        write("claims a little less.png", pngHeader(40000, 20000))};
    for (const char *suffix : {".jpg", ".png", ".gif", ".tif", ".heic", ".bmp", ".psd"}) {
        const QString whole = save(noise(), path(QString("whole") + suffix));
        const QByteArray content = read(whole);
        for (const qsizetype size : {content.size() / 2, content.size() * 9 / 10})
            sources += write(QString("cut at %1%2").arg(size).arg(suffix), content.first(size));
    }
    for (const QString &source : sources) {
        const QString reason = failure(*jpeg, source);
        EXPECT_GT(reason.size(), 20) << source.toStdString();
        EXPECT_EQ(outputNames(), QStringList()) << source.toStdString() << reason.toStdString();
    }
    EXPECT_EQ(failure(*jpeg, path("claims.png")),
              "The picture is too large: 100000 x 100000 pixels, where 500 million pixels are the limit.");
    EXPECT_EQ(failure(*jpeg, write("wide.png", pngHeader(66000, 20))),
              "This format allows at most 65500 pixels on a side, but the picture would have 66000 x 20.");
}

TEST_F(KVNSImageBasedPresetTest, TellsEachFailureItsOwnReason) {
    const QByteArray jpeg = read(save(noise(), path("whole.jpg"))),
                     png = read(save(noise(), path("whole.png")));
    write("cut.jpg", jpeg.first(jpeg.size() * 9 / 10));
    write("cut.png", png.first(png.size() * 9 / 10));
    write("empty.png", pngHeader(0, 0));
    const auto preset = KVPreset::make<KVBMPPreset>();
    std::map<QString, QString> alone;
    for (const char *name : {"cut.jpg", "cut.png", "empty.png"})
        alone[name] = failure(*preset, path(name));
    EXPECT_EQ(alone["empty.png"], "The picture cannot be read: Image width is zero in IHDR");
    EXPECT_NE(alone["cut.jpg"], alone["cut.png"]);

    std::vector<std::thread> workers;
    for (int i = 0; i < 4; i++)
        for (const auto &[name, reason] : alone)
            workers.emplace_back([&] {
                for (int round = 0; round < 3; round++)
                    EXPECT_EQ(failure(*preset, path(name)), reason);
            });
    for (auto &worker : workers)
        worker.join();
    EXPECT_EQ(outputNames(), QStringList());
}

TEST_F(KVNSImageBasedPresetTest, EndsSoonWhereItIsStopped) {
    KVPNGPreset png;
    png.hasPercentageScaling = true;
    png.setScalingPercentage(1900);
    const QString source = save(noise(), path("noise.png")); // 14 million pixels of noise take a while
    std::thread ending([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        stop.request_stop();
    });
    EXPECT_EQ(failure(png, source), "The picture cannot be converted: It was cancelled.");
    ending.join();
    EXPECT_EQ(outputNames(), QStringList());
}

TEST_F(KVNSImageBasedPresetTest, RefusesToMakeAPictureBeyondTheLimit) {
    KVPNGPreset png;
    png.hasPercentageScaling = true;
    png.setScalingPercentage(1999);
    const QString reason = failure(png, fields(path("large.png"), 2000, 2000));
    EXPECT_TRUE(reason.contains("39980 x 39980")) << reason.toStdString();
}

TEST_F(KVNSImageBasedPresetTest, AWriteThatFailsLeavesNothing) {
    const QString source = save(noise(), path("noise.png"));
    QStringList lines;
    KVSetLogSink([&](const QString &line) { lines += line; });
    for (const auto &preset : presets()) {
        QString reason;
        {
            const KVSmallFilesOnly limit;
            reason = failure(*preset, source);
        }
        EXPECT_TRUE(reason.endsWith("File too large")) << reason.toStdString();
        EXPECT_EQ(lines.filter("Failed write data to " + path("out/noise.")).size(), 1)
            << lines.join('\n').toStdString();
        EXPECT_EQ(outputNames(), QStringList());
        lines.clear();
    }
    QDir(path("out")).removeRecursively();
    EXPECT_TRUE(failure(*KVPreset::make<KVPNGPreset>(), source).contains("No such file or directory"));
    KVSetLogSink({});
}
