#include "util/picture/KVPictureSource.h"

#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "support/KVTestPictures.h"

#include "util/KVPictureLibrary.h"
#include "util/picture/KVPictureAttempt.h"
#include "video_info/media_file/KVPictureFile.h"

#include <QtEndian>

#include <atomic>
#include <chrono>
#include <thread>

#include <sys/stat.h>
#include <tiffio.h>

using namespace KVTestPictures;
using vips::VImage;

namespace {

class KVPictureSourceTest : public KVTestCase {
  protected:
    static std::vector<Colour> colours(const QString &path) {
        const auto source = KVPictureSource::open(path);
        EXPECT_TRUE(source) << path.toStdString() << ": " << source.error().reason.toStdString();
        return source ? fieldColours(source->image()) : std::vector<Colour>();
    }

    static QString reason(const QString &path) {
        const auto source = KVPictureSource::open(path);
        EXPECT_FALSE(source) << path.toStdString();
        return source ? QString() : source.error().reason;
    }
};

QByteArray entry(const char *type, const QByteArray &content) {
    const quint32 size = qToBigEndian(quint32(content.size() + 8));
    return type + QByteArray(reinterpret_cast<const char *>(&size), sizeof size) + content;
}

QByteArray icon(const QByteArray &entries) {
    return entry("icns", entries);
}

/// The run-length form of these planes, with runs and literal parts.
QByteArray packed(const QByteArray &bytes) {
    QByteArray result;
    for (qsizetype at = 0; at < bytes.size();) {
        qsizetype run = 1;
        while (run < 130 && at + run < bytes.size() && bytes[at + run] == bytes[at])
            run++;
        if (run >= 3)
            result += QByteArray(1, char(run + 125)) + bytes[at];
        else
            result += QByteArray(1, char(run - 1)) + bytes.sliced(at, run);
        at += run;
    }
    return result;
}

/// The whole picture's first of these channels, then the second and so on.
QByteArray planes(const std::vector<int> &bands, const VImage &picture) {
    const VImage held = picture.cast(VIPS_FORMAT_UCHAR).copy_memory();
    const auto *pixels = static_cast<const char *>(held.data());
    QByteArray result;
    for (const int band : bands)
        for (int i = 0; i < held.width() * held.height(); i++)
            result += pixels[i * held.bands() + band];
    return result;
}

/// A picture whose channels all differ, without meaning.
VImage channels(int bands, bool has16Bits) {
    KVPictureLibrary::prepare();
    const VImage places = VImage::xyz(70, 50);
    std::vector<VImage> all;
    for (int band = 0; band < bands; band++)
        all.push_back(places.extract_band(0) * (band + 1) + places.extract_band(1) * 2);
    const VImage picture = VImage::bandjoin(all);
    return has16Bits ? (picture * 90 + 5).cast(VIPS_FORMAT_USHORT) : (picture * 0.5).cast(VIPS_FORMAT_UCHAR);
}

/// One page of a TIFF file; tiles have 32 x 16 pixels.
void writeDirectory(TIFF *file, const VImage &picture, int photometric, bool isTiled, int planar) {
    const int bands = picture.bands(), bits = picture.format() == VIPS_FORMAT_USHORT ? 16 : 8;
    const int colours = photometric == PHOTOMETRIC_RGB ? 3 : photometric == PHOTOMETRIC_SEPARATED ? 4 : 1;
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, picture.width());
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, picture.height());
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, bits);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, bands);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, photometric);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, planar);
    TIFFSetField(file, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
    const uint16_t kind = EXTRASAMPLE_UNASSALPHA;
    if (bands > colours) TIFFSetField(file, TIFFTAG_EXTRASAMPLES, 1, &kind);
    const int columns = isTiled ? 32 : picture.width(), rows = isTiled ? 16 : 20;
    if (isTiled) {
        TIFFSetField(file, TIFFTAG_TILEWIDTH, columns);
        TIFFSetField(file, TIFFTAG_TILELENGTH, rows);
    } else {
        TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, rows);
    }
    for (int plane = 0, index = 0; plane < (planar == PLANARCONFIG_SEPARATE ? bands : 1); plane++)
        for (int y = 0; y < picture.height(); y += rows)
            for (int x = 0; x < picture.width(); x += columns, index++) {
                VImage part = planar == PLANARCONFIG_SEPARATE ? picture.extract_band(plane) : picture;
                const int height = isTiled ? rows : std::min(rows, picture.height() - y);
                part = part.embed(-x, -y, columns, height).copy_memory();
                const auto size = tmsize_t(VIPS_IMAGE_SIZEOF_IMAGE(part.get_image()));
                void *data = const_cast<void *>(part.data());
                const auto written = isTiled ? TIFFWriteEncodedTile(file, uint32_t(index), data, size)
                                             : TIFFWriteEncodedStrip(file, uint32_t(index), data, size);
                EXPECT_EQ(written, size);
            }
}

void writeTIFF(const VImage &picture, int photometric, bool isTiled, int planar, const QString &path) {
    TIFF *file = TIFFOpen(path.toUtf8().constData(), "w");
    writeDirectory(file, picture, photometric, isTiled, planar);
    TIFFClose(file);
}

struct TIFFEntry {
    quint16 tag, type;
    quint32 count, value;
};

/// A TIFF file of one directory. `content` begins at byte 8.
QByteArray tiffFile(const std::vector<TIFFEntry> &entries, const QByteArray &content) {
    QByteArray file = "II*";
    const auto append = [&](quint32 value, qsizetype size) {
        const quint32 stored = qToLittleEndian(value);
        file += QByteArray(reinterpret_cast<const char *>(&stored), size);
    };
    file += '\0';
    append(quint32(8 + content.size()), 4);
    file += content;
    append(quint32(entries.size()), 2);
    for (const TIFFEntry &entry : entries) {
        append(entry.tag, 2);
        append(entry.type, 2);
        append(entry.count, 4);
        append(entry.value, 4);
    }
    append(0, 4);
    return file;
}

} // namespace

TEST_F(KVPictureSourceTest, ReadsTheLargestIconOfAnIconFile) {
    const std::vector<Colour> wanted{red, green, blue, yellow};
    const VImage small = fields(16, 16), middle = fields(128, 128), large = fields(256, 256);
    const QByteArray png = read(save(large.invert().invert(), path("large.png")));
    const QByteArray wrong = read(save(fields(32, 32).invert(), path("small.png")));
    const QByteArray mask(128 * 128, '\x40');
    const VImage clear = fields(16, 16).bandjoin(VImage::black(16, 16) + 64);

    EXPECT_TRUE(
        areClose(colours(write("a.icns", icon(entry("ic11", wrong) + entry("ic08", png)))), wanted, 0));
    EXPECT_TRUE(
        areClose(colours(write("b.icns", icon(entry("is32", packed(planes({0, 1, 2}, small)))))), wanted, 0));
    EXPECT_TRUE(
        areClose(colours(write("c.icns", icon(entry("ic04", "ARGB" + packed(planes({3, 0, 1, 2}, clear)))))),
                 wanted, 0));
    const QString masked =
        write("d.icns", icon(entry("t8mk", mask) +
                             entry("it32", QByteArray(4, '\0') + packed(planes({0, 1, 2}, middle)))));
    EXPECT_TRUE(areClose(colours(masked), wanted, 0));
    EXPECT_EQ(KVPictureSource::open(masked)->image().getpoint(5, 5), (Colour{255, 0, 0, 64}));
}

TEST_F(KVPictureSourceTest, RefusesIconFilesThatEndTooEarlyOrHoldNoIcon) {
    const QByteArray whole = icon(entry("is32", packed(QByteArray(3 * 256, 'x'))));
    for (const QByteArray &content :
         {whole.first(20), whole.first(12), icon(entry("is32", "abc")), icon(entry("ic04", "ARGB")), icon({}),
          icon(entry("TOC ", "nothing")), QByteArray("icns\0\0\0\x10is32\xFF\xFF\xFF\xFF", 16),
          icon(entry("ic08", "\x89PNG is a lie"))})
        EXPECT_TRUE(reason(write("bad.icns", content)).startsWith("The picture cannot be read: "));
}

TEST_F(KVPictureSourceTest, ReadsBitmapsOfEveryDepth) {
    const QString source = fields(path("fields.png"), 62, 48);
    for (const char *format : {"bgr24", "bgra", "rgb565le", "rgb555le", "rgb444le", "rgb8", "pal8"}) {
        const QString bitmap = path(QString(format) + ".bmp");
        KVTestMedia::make({"-i", source, "-pix_fmt", format, bitmap});
        EXPECT_TRUE(areClose(colours(bitmap), {red, green, blue, yellow}, 30)) << format;
    }
    const QString black = path("black.bmp");
    KVTestMedia::make({"-i", source, "-vf", "lutyuv=y='if(gt(val,120),255,0)'", "-sws_dither", "none",
                       "-pix_fmt", "monob", black});
    const Colour off{0, 0, 0};
    EXPECT_TRUE(areClose(colours(black), {off, white, off, white}));

    // Older forms, and the compressed one that is left to the library.
    for (const char *form : {"BMP2", "BMP3"}) {
        const QString bitmap = path(QString(form) + ".bmp");
        fields(62, 48).magicksave(QFile::encodeName(bitmap).constData(),
                                  VImage::option()->set("format", form));
        EXPECT_TRUE(areClose(colours(bitmap), {red, green, blue, yellow})) << form;
    }
}

TEST_F(KVPictureSourceTest, ReadsBitmapsFromTheTopAndWithTransparency) {
    const QString source = path("clear.bmp");
    KVTestMedia::make({"-f", "lavfi", "-i", "color=red@0.5:size=4x2,format=bgra", "-frames:v", "1", source});
    QByteArray content = read(source);
    const auto put = [&](qsizetype at, qint32 value) {
        const qint32 stored = qToLittleEndian(value);
        content.replace(at, 4, QByteArray(reinterpret_cast<const char *>(&stored), 4));
    };
    const qsizetype pixels = qFromLittleEndian<qint32>(content.constData() + 10);
    content.replace(pixels, 4, QByteArray::fromHex("ff000080"));
    EXPECT_EQ(KVPictureSource::open(write("bottom.bmp", content))->image().getpoint(0, 1)[2], 255);
    put(22, -2);
    const VImage fromTop = KVPictureSource::open(write("top.bmp", content))->image();
    EXPECT_EQ(fromTop.height(), 2);
    EXPECT_EQ(fromTop.getpoint(0, 0)[2], 255);
}

TEST_F(KVPictureSourceTest, RefusesBitmapsWithAHeaderThatCannotBe) {
    const QByteArray whole = read(save(fields(), path("whole.bmp")));
    const auto changed = [&](qsizetype at, const char *hex) {
        QByteArray content = whole;
        const QByteArray bytes = QByteArray::fromHex(hex);
        return content.replace(at, bytes.size(), bytes);
    };
    const QByteArray bad[] = {changed(10, "ffffffff"), changed(14, "05000000"), changed(18, "ffffff7f"),
                              changed(18, "00000000"), changed(22, "00000080"), changed(22, "00000000"),
                              changed(28, "0700"),     whole.first(30),         whole.first(3)};
    for (const QByteArray &content : bad)
        EXPECT_TRUE(reason(write("bad.bmp", content)).startsWith("The picture cannot be read: "));
}

TEST_F(KVPictureSourceTest, ReadsLumaAndChromaOfATIFF) {
    const QString source = fields(path("fields.png"), 62, 46);
    const std::vector<Colour> wanted{red, green, blue, yellow};
    for (const char *format : {"yuv444p", "yuv422p", "yuv420p", "yuv411p"})
        for (const char *compression : {"raw", "packbits", "lzw", "deflate"}) {
            const QString picture = path(QString(format) + compression + ".tif");
            KVTestMedia::make({"-i", source, "-pix_fmt", format, "-compression_algo", compression, picture});
            EXPECT_TRUE(areClose(colours(picture), wanted)) << picture.toStdString();
            EXPECT_EQ(KVPictureSource::open(picture)->uprightSize(), (KVSize{62, 46}));
        }

    QByteArray content = read(path("yuv420pdeflate.tif"));
    EXPECT_TRUE(reason(write("short.tif", content.first(40))).startsWith("The picture cannot be read: "));
    content.replace(8, 40, QByteArray(40, '\xFF')); // where the first strip begins
    const auto damaged = KVPictureSource::open(write("damaged.tif", content));
    ASSERT_TRUE(damaged);
    EXPECT_THROW(damaged->image().avg(), vips::VError);
}

TEST_F(KVPictureSourceTest, ReadsOldStyleJPEGInATIFF) {
    constexpr quint16 shorts = TIFF_SHORT, longs = TIFF_LONG;
    const QString jpeg = save(fields(64, 48), path("fields.jpg"));
    const QByteArray depths = QByteArray::fromHex("0800080008000000"), stream = read(jpeg);
    const quint32 at = 16, size = quint32(stream.size());
    const QByteArray content = tiffFile({{TIFFTAG_IMAGEWIDTH, shorts, 1, 64},
                                         {TIFFTAG_IMAGELENGTH, shorts, 1, 48},
                                         {TIFFTAG_BITSPERSAMPLE, shorts, 3, 8},
                                         {TIFFTAG_COMPRESSION, shorts, 1, COMPRESSION_OJPEG},
                                         {TIFFTAG_PHOTOMETRIC, shorts, 1, PHOTOMETRIC_YCBCR},
                                         {TIFFTAG_STRIPOFFSETS, longs, 1, at},
                                         {TIFFTAG_SAMPLESPERPIXEL, shorts, 1, 3},
                                         {TIFFTAG_ROWSPERSTRIP, shorts, 1, 48},
                                         {TIFFTAG_STRIPBYTECOUNTS, longs, 1, size},
                                         {TIFFTAG_JPEGIFOFFSET, longs, 1, at},
                                         {TIFFTAG_JPEGIFBYTECOUNT, longs, 1, size},
                                         {TIFFTAG_YCBCRSUBSAMPLING, shorts, 2, 2 | 2 << 16}},
                                        depths + stream);
    EXPECT_TRUE(areClose(colours(write("old.tif", content)), {red, green, blue, yellow}));
    EXPECT_FALSE(KVPictureSource::open(write("damaged.tif", content.left(300) + content.mid(700))));
}

TEST_F(KVPictureSourceTest, ReadsHalfFloatsInATIFF) {
    constexpr quint16 shorts = TIFF_SHORT, longs = TIFF_LONG;
    const VImage picture = fields(64, 48).copy_memory();
    const auto *values = static_cast<const uchar *>(picture.data());
    QByteArray content = QByteArray::fromHex("100010001000030003000300");
    for (int i = 0; i < 64 * 48 * 3; i++)
        content += QByteArray::fromHex(values[i] != 0 ? "003c" : "0000"); // 1 and 0
    const QString file = write("half.tif", tiffFile({{TIFFTAG_IMAGEWIDTH, shorts, 1, 64},
                                                     {TIFFTAG_IMAGELENGTH, shorts, 1, 48},
                                                     {TIFFTAG_BITSPERSAMPLE, shorts, 3, 8},
                                                     {TIFFTAG_COMPRESSION, shorts, 1, COMPRESSION_NONE},
                                                     {TIFFTAG_PHOTOMETRIC, shorts, 1, PHOTOMETRIC_RGB},
                                                     {TIFFTAG_STRIPOFFSETS, longs, 1, 20},
                                                     {TIFFTAG_ORIENTATION, shorts, 1, 6},
                                                     {TIFFTAG_SAMPLESPERPIXEL, shorts, 1, 3},
                                                     {TIFFTAG_ROWSPERSTRIP, shorts, 1, 48},
                                                     {TIFFTAG_STRIPBYTECOUNTS, longs, 1, 64 * 48 * 6},
                                                     {TIFFTAG_SAMPLEFORMAT, shorts, 3, 14}},
                                                    content));
    const auto source = KVPictureSource::open(file);
    ASSERT_TRUE(source) << source.error().reason.toStdString();
    const VImage shallow = source->image().colourspace(VIPS_INTERPRETATION_sRGB);
    EXPECT_TRUE(areClose(fieldColours(shallow), {red, green, blue, yellow}));
    EXPECT_EQ(source->uprightSize(), (KVSize{48, 64}));
}

TEST_F(KVPictureSourceTest, ReadsTwelveBitsInATIFF) {
    const QByteArray content = QByteArray(36, '\xFF') + QByteArray(36, '\0'); // 3 bytes for 2 pixels
    const QByteArray file = tiffFile({{TIFFTAG_IMAGEWIDTH, TIFF_SHORT, 1, 8},
                                      {TIFFTAG_IMAGELENGTH, TIFF_SHORT, 1, 6},
                                      {TIFFTAG_BITSPERSAMPLE, TIFF_SHORT, 1, 12},
                                      {TIFFTAG_COMPRESSION, TIFF_SHORT, 1, COMPRESSION_NONE},
                                      {TIFFTAG_PHOTOMETRIC, TIFF_SHORT, 1, PHOTOMETRIC_MINISBLACK},
                                      {TIFFTAG_STRIPOFFSETS, TIFF_SHORT, 1, 8},
                                      {TIFFTAG_SAMPLESPERPIXEL, TIFF_SHORT, 1, 1},
                                      {TIFFTAG_ROWSPERSTRIP, TIFF_SHORT, 1, 6},
                                      {TIFFTAG_STRIPBYTECOUNTS, TIFF_SHORT, 1, quint32(content.size())}},
                                     content);
    const auto source = KVPictureSource::open(write("twelve.tif", file));
    ASSERT_TRUE(source) << source.error().reason.toStdString();
    const VImage shallow = source->image().colourspace(VIPS_INTERPRETATION_sRGB);
    EXPECT_EQ(shallow.getpoint(3, 1)[0], 255);
    EXPECT_EQ(shallow.getpoint(3, 4)[0], 0);
}

TEST_F(KVPictureSourceTest, ReadsColoursMultipliedByTransparencyInPlanes) {
    constexpr quint16 shorts = TIFF_SHORT;
    const QString file =
        write("planes.tif", tiffFile({{TIFFTAG_IMAGEWIDTH, shorts, 1, 8},
                                      {TIFFTAG_IMAGELENGTH, shorts, 1, 8},
                                      {TIFFTAG_BITSPERSAMPLE, shorts, 2, 8 | 8 << 16},
                                      {TIFFTAG_COMPRESSION, shorts, 1, COMPRESSION_NONE},
                                      {TIFFTAG_PHOTOMETRIC, shorts, 1, PHOTOMETRIC_MINISBLACK},
                                      {TIFFTAG_STRIPOFFSETS, shorts, 2, 8 | 72 << 16},
                                      {TIFFTAG_SAMPLESPERPIXEL, shorts, 1, 2},
                                      {TIFFTAG_ROWSPERSTRIP, shorts, 1, 8},
                                      {TIFFTAG_STRIPBYTECOUNTS, shorts, 2, 64 | 64 << 16},
                                      {TIFFTAG_PLANARCONFIG, shorts, 1, PLANARCONFIG_SEPARATE},
                                      {TIFFTAG_EXTRASAMPLES, shorts, 1, EXTRASAMPLE_ASSOCALPHA}},
                                     QByteArray(64, char(74)) + QByteArray(64, char(143))));
    const auto source = KVPictureSource::open(file);
    ASSERT_TRUE(source) << source.error().reason.toStdString();
    EXPECT_EQ(source->image().getpoint(3, 3), (Colour{132, 143}));
}

TEST_F(KVPictureSourceTest, BrightensLinearPNGs) {
    const auto value = [&](const VImage &picture, const std::vector<QByteArray> &chunks) {
        QByteArray content = read(save(picture, path("plain.png")));
        for (const QByteArray &chunk : chunks)
            content = withChunk(content, chunk);
        const auto source = KVPictureSource::open(write("picture.png", content));
        EXPECT_TRUE(source);
        return source ? source->image().getpoint(3, 3) : Colour();
    };
    KVPictureLibrary::prepare();
    const VImage grey = VImage::black(20, 10).cast(VIPS_FORMAT_UCHAR) + 128;
    const VImage shallow = grey.cast(VIPS_FORMAT_UCHAR), deep = (grey * 257).cast(VIPS_FORMAT_USHORT);
    const VImage clear = VImage::bandjoin({shallow, shallow, shallow, shallow})
                             .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    const QByteArray linear = "gAMA" + QByteArray::fromHex("000186a0"); // 1
    EXPECT_EQ(value(shallow, {linear}), Colour{186});
    EXPECT_NEAR(
        value(deep.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_GREY16)), {linear})[0],
        186.4 * 257, 50);
    EXPECT_EQ(value(clear, {linear}), (Colour{186, 186, 186, 128}));
    EXPECT_EQ(value(shallow, {linear, QByteArray("sRGB\0", 5)}), Colour{128}) << "which counts more";
    EXPECT_EQ(value(shallow, {"gAMA" + QByteArray::fromHex("0000b18f")}), Colour{128}) << "an ordinary one";
    EXPECT_EQ(value(shallow, {"gAMA" + QByteArray(4, '\0')}), Colour{128}) << "one that cannot be";
}

TEST_F(KVPictureSourceTest, ReadsTilesAndStripsWithTheirChannelsTogetherOrApart) {
    for (const auto &[photometric, bands] : {std::pair{PHOTOMETRIC_RGB, 3},
                                             {PHOTOMETRIC_RGB, 4},
                                             {PHOTOMETRIC_MINISBLACK, 1},
                                             {PHOTOMETRIC_MINISWHITE, 1},
                                             {PHOTOMETRIC_MINISBLACK, 2},
                                             {PHOTOMETRIC_SEPARATED, 4}})
        for (const bool has16Bits : {false, true})
            for (const bool isTiled : {false, true})
                for (const int planar : {PLANARCONFIG_CONTIG, PLANARCONFIG_SEPARATE}) {
                    const VImage picture = channels(bands, has16Bits);
                    const QString file = path("planes.tif");
                    writeTIFF(picture, photometric, isTiled, planar, file);
                    const auto source = KVPictureSource::open(file);
                    ASSERT_TRUE(source) << source.error().reason.toStdString();
                    const VImage wanted = photometric == PHOTOMETRIC_MINISWHITE ? picture.invert() : picture;
                    ASSERT_EQ(source->image().bands(), bands);
                    EXPECT_EQ(source->image().format(), picture.format());
                    EXPECT_EQ((source->image() - wanted).abs().max(), 0)
                        << photometric << ' ' << bands << has16Bits << isTiled << planar;
                    if (photometric == PHOTOMETRIC_SEPARATED) {
                        EXPECT_EQ(source->image().interpretation(), VIPS_INTERPRETATION_CMYK);
                    }
                }

    QByteArray content = KVTestCase::read(path("planes.tif"));
    const auto cut =
        KVPictureSource::open(write("cut.tif", content.replace(200, 2000, QByteArray(2000, '\xFF'))));
    if (cut) {
        EXPECT_THROW(cut->image().avg(), vips::VError);
    }
}

TEST_F(KVPictureSourceTest, CountsPagesButNotTheirSmallerCopies) {
    const auto append = [&](const QString &file, uint32_t kind, const char *mode) {
        TIFF *tiff = TIFFOpen(file.toUtf8().constData(), mode);
        TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, kind);
        writeDirectory(tiff, channels(1, false), PHOTOMETRIC_MINISBLACK, false, PLANARCONFIG_CONTIG);
        TIFFClose(tiff);
    };
    const QString pages = path("pages.tif"), pyramid = path("pyramid.tif");
    for (const char *mode : {"w", "a", "a"}) {
        append(pages, FILETYPE_PAGE, mode);
        append(pyramid, *mode == 'w' ? 0 : FILETYPE_REDUCEDIMAGE, mode);
    }
    EXPECT_EQ(KVPictureSource::open(pages)->numberOfPages(), 3);
    EXPECT_EQ(KVPictureSource::open(pyramid)->numberOfPages(), 1);
    EXPECT_EQ(KVPictureFile(QUrl::fromLocalFile(pages)).warnings,
              QStringList{"Only the first of 3 pages is converted."});
    EXPECT_EQ(KVPictureFile(QUrl::fromLocalFile(pyramid)).warnings, QStringList());
    EXPECT_EQ(KVPictureFile(QUrl::fromLocalFile(fields(path("one.png")))).warnings, QStringList());
}

TEST_F(KVPictureSourceTest, ADamagedPictureWaitsForNoOther) {
    const QString large = save(fields(64, 48).replicate(100, 100), path("large.png"));
    const QByteArray whole = KVTestCase::read(path("large.png"));
    const QString damaged = write("damaged.png", whole.first(8) + QByteArray(whole.size(), 'x'));
    const QString empty = write("empty.jpg", QByteArray::fromHex("ffd8ffe000104a464946000101000001000100ff"));
    std::atomic<bool> isDone = false;
    std::atomic<int> rounds = 0;
    std::vector<std::jthread> workers;
    for (int i = 0; i < 3; i++)
        workers.emplace_back([&] {
            // An attempt of its own that lasts as long as the others.
            const auto failed = KVPictureAttempt::failure([&] {
                while (!isDone && ++rounds)
                    EXPECT_GT(KVPictureSource(large).image().avg(), 0);
            });
            EXPECT_FALSE(failed);
        });
    while (rounds < 3)
        std::this_thread::yield();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(reason(damaged).startsWith("The picture cannot be read: "));
    const QString jpegReason = reason(empty);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    isDone = true;
    workers.clear();
    EXPECT_EQ(jpegReason, reason(empty)) << "the same as without others";
}

TEST_F(KVPictureSourceTest, RefusesAPipeInsteadOfWaitingForIt) {
    ASSERT_EQ(::mkfifo(path("pipe.png").toUtf8().constData(), 0600), 0);
    EXPECT_EQ(reason(path("pipe.png")), "The picture cannot be read: This is no regular file.");
}

TEST_F(KVPictureSourceTest, ReadsLargeProgressivePicturesRowByRow) {
    // 32 million pixels, most of them empty
    VImage picture = fields(64, 48).embed(0, 0, 8000, 4000);
    vips_image_set_blob_copy(picture.get_image(), VIPS_META_XMP_NAME, "<x/>", 4);
    const QString source = save(picture, path("large.jpg"), VImage::option()->set("interlace", true));
    const VImage read = KVPictureSource::open(source)->imageToShrink(1);
    EXPECT_FALSE(read.get_typeof("interlaced"));
    EXPECT_TRUE(read.get_typeof(VIPS_META_XMP_NAME));
    EXPECT_EQ((read - load(source)).abs().max(), 0);
    EXPECT_EQ(KVPictureSource::open(source)->imageToShrink(8).width(), 2000);

    const QByteArray content = KVTestCase::read(source);
    const auto cut = KVPictureSource::open(write("cut.jpg", content.first(content.size() / 2)));
    EXPECT_THROW((void)cut->imageToShrink(1), std::runtime_error);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW((void)KVPictureSource::open(source)->imageToShrink(1, stop.get_token()), std::runtime_error);
}
