#include "util/picture/KVPictureRendering.h"

#include "presets/picture/KVPictureTestCase.h"

#include <tiffio.h>

using namespace KVTestPictures;
using vips::VImage;

namespace {

class KVPictureRenderingTest : public KVPictureTestCase {};

/// The four fields as they are looked at with this tag.
VImage upright(int orientation) {
    VImage picture = fields(80, 40);
    picture.set(VIPS_META_ORIENTATION, orientation);
    return picture.autorot();
}

/// With tags that are read as EXIF data as well.
QString taggedTIFF(int orientation, const QString &path) {
    VImage picture = fields(80, 40);
    picture.set(VIPS_META_ORIENTATION, orientation);
    save(picture, path);
    TIFF *file = TIFFOpen(path.toUtf8().constData(), "r+");
    TIFFSetField(file, TIFFTAG_ARTIST, "A. Painter");
    TIFFSetField(file, TIFFTAG_DATETIME, "2020:01:02 03:04:05");
    TIFFSetField(file, TIFFTAG_SOFTWARE, "Brush 1");
    TIFFRewriteDirectory(file);
    TIFFClose(file);
    return path;
}

/// With an eXIf chunk before or behind the pixels.
QString taggedPNG(int orientation, bool isBehind, const QString &path) {
    QFile file(save(fields(80, 40), path));
    EXPECT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray chunk = "eXIf" + QByteArray::fromHex("4d4d002a00000008000101120003000000010000000000000000");
    chunk[4 + 19] = char(orientation);
    const QByteArray tagged = withChunk(file.readAll(), chunk, isBehind);
    EXPECT_TRUE(file.seek(0) && file.write(tagged) == tagged.size());
    return path;
}

} // namespace

TEST_F(KVPictureRenderingTest, TurnsThePictureUprightAndForgetsTheTag) {
    const std::vector<std::vector<Colour>> seen{{red, green, blue, yellow}, {green, red, yellow, blue},
                                                {yellow, blue, green, red}, {blue, yellow, red, green},
                                                {red, blue, green, yellow}, {blue, red, yellow, green},
                                                {yellow, green, blue, red}, {green, yellow, red, blue}};
    const QByteArray xmp = "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf tiff:Orientation=\"6\"/></x:xmpmeta>";
    for (const int percentage : {100, 50})
        for (int orientation = 1; orientation <= 8; orientation++) {
            VImage picture = fields(80, 40);
            picture.set(VIPS_META_ORIENTATION, orientation);
            vips_image_set_blob_copy(picture.get_image(), VIPS_META_XMP_NAME, xmp.constData(),
                                     std::size_t(xmp.size()));
            const QString source = save(picture, path("turned.jpg"), VImage::option()->set("Q", 95));
            KVPNGPreset png;
            png.hasPercentageScaling = true;
            png.setScalingPercentage(percentage);

            const VImage output = load(converted(png, source));
            const int longSide = 80 * percentage / 100, shortSide = longSide / 2;
            EXPECT_EQ(output.width(), orientation >= 5 ? shortSide : longSide) << orientation;
            EXPECT_EQ(output.height(), orientation >= 5 ? longSide : shortSide) << orientation;
            EXPECT_TRUE(areClose(fieldColours(output), seen[std::size_t(orientation - 1)], 20))
                << orientation;
            EXPECT_TRUE(!output.get_typeof(VIPS_META_ORIENTATION) ||
                        output.get_int(VIPS_META_ORIENTATION) == 1);
            EXPECT_TRUE(textOf(output, VIPS_META_XMP_NAME)
                            .contains(orientation > 1 ? "Orientation=\"1\"" : "Orientation=\"6\""));
        }
}

TEST_F(KVPictureRenderingTest, TurnsPicturesWhoseTagsStandElsewhere) {
    const auto wanted = [](int orientation) { return fieldColours(upright(orientation)); };
    for (int orientation = 1; orientation <= 8; orientation++) {
        const QStringList sources{taggedTIFF(orientation, path("tags.tif")),
                                  taggedPNG(orientation, false, path("before.png")),
                                  taggedPNG(orientation, true, path("behind.png"))};
        for (const QString &source : sources) {
            const KVSize seen = orientation >= 5 ? KVSize{40, 80} : KVSize{80, 40};
            EXPECT_EQ(sizeOf(source), seen) << source.toStdString() << orientation;
            for (const VImage &output :
                 {convertedPicture<KVTIFFPreset>(source), convertedPicture<KVBMPPreset>(source),
                  convertedPicture<KVGIFPreset>(source), convertedPicture<KVJPEGPreset>(source),
                  convertedPicture<KVPNGPreset>(source)}) {
                EXPECT_EQ((KVSize{double(output.width()), double(output.height())}), seen);
                EXPECT_TRUE(areClose(fieldColours(output), wanted(orientation), 20))
                    << source.toStdString() << orientation << output.get_string("vips-loader");
                EXPECT_TRUE(!output.get_typeof(VIPS_META_ORIENTATION) ||
                            output.get_int(VIPS_META_ORIENTATION) == 1);
            }
        }
        const VImage jpeg = convertedPicture<KVJPEGPreset>(sources.first());
        ASSERT_TRUE(jpeg.get_typeof("exif-ifd0-Artist"));
        EXPECT_TRUE(QByteArray(jpeg.get_string("exif-ifd0-Artist")).startsWith("A. Painter"));
    }
}

TEST_F(KVPictureRenderingTest, KeepsTheColourProfileOrConvertsByIt) {
    const VImage wide = fields().icc_transform("p3", VImage::option()->set("input_profile", "srgb"));
    const QString source = save(wide, path("wide.tiff"));
    const QByteArray profile = textOf(wide, VIPS_META_ICC_NAME);
    ASSERT_FALSE(profile.isEmpty());
    ASSERT_FALSE(areClose(fieldColours(wide), {red, green, blue, yellow}));

    for (const VImage &kept : {convertedPicture<KVJPEGPreset>(source), convertedPicture<KVPNGPreset>(source),
                               convertedPicture<KVTIFFPreset>(source)}) {
        EXPECT_EQ(textOf(kept, VIPS_META_ICC_NAME), profile);
        EXPECT_TRUE(areClose(fieldColours(kept), fieldColours(wide)));
    }
    for (const VImage &changed :
         {convertedPicture<KVBMPPreset>(source), convertedPicture<KVGIFPreset>(source)})
        EXPECT_TRUE(areClose(fieldColours(changed), {red, green, blue, yellow}));
}

TEST_F(KVPictureRenderingTest, KeepsWhatTheCameraWrote) {
    const std::map<const char *, const char *> written{
        {"exif-ifd0-Model", "Lens, 1 (Lens, 1, ASCII, 8 components, 8 bytes)"},
        {"exif-ifd2-DateTimeOriginal",
         "2020:01:02 03:04:05 (2020:01:02 03:04:05, ASCII, 20 components, 20 bytes)"},
        {"exif-ifd2-SubSecTimeOriginal", "42 (42, ASCII, 3 components, 3 bytes)"},
        {"exif-ifd2-ExposureTime", "1/200 (1/200 sec., Rational, 1 components, 8 bytes)"},
        {"exif-ifd2-ISOSpeedRatings", "400 (400, Short, 1 components, 2 bytes)"},
        {"exif-ifd2-Flash", "16 (Flash did not fire, compulsory flash mode, Short, 1 components, 2 bytes)"},
        {"exif-ifd3-GPSLatitude", "50/1 30/1 1/4 (50, 30, 0.2, Rational, 3 components, 24 bytes)"},
        {"exif-ifd3-GPSLatitudeRef", "N (N, ASCII, 2 components, 2 bytes)"}};
    VImage picture = fields();
    for (const auto &[field, value] : written)
        picture.set(field, value);
    const QString source = save(picture, path("photo.jpg"));
    const QString asTIFF = converted(*KVPreset::make<KVTIFFPreset>(), source);
    const std::map<const char *, VImage> outputs{
        {"JPEG", convertedPicture<KVJPEGPreset>(source)},
        {"PNG", convertedPicture<KVPNGPreset>(source)},
        {"JPEG of TIFF", convertedPicture<KVJPEGPreset>(asTIFF)},
        {"PNG of TIFF of TIFF",
         convertedPicture<KVPNGPreset>(converted(*KVPreset::make<KVTIFFPreset>(), asTIFF))}};
    for (const auto &[name, output] : outputs)
        for (const auto &[field, value] : written) {
            ASSERT_TRUE(output.get_typeof(field)) << name << ": " << field;
            EXPECT_STREQ(output.get_string(field), value) << name << ": " << field;
        }
    EXPECT_TRUE(areClose(fieldColours(load(asTIFF)), {red, green, blue, yellow}));
}

TEST_F(KVPictureRenderingTest, LaysTransparencyOnWhiteOrKeepsIt) {
    const VImage opacity = fields().extract_band(0); // 255 above left and below right, else 0
    const VImage picture = fields().bandjoin(opacity);
    const QString source = save(picture, path("glass.png"));
    const std::vector<Colour> onWhite{red, white, white, yellow};

    for (const VImage &flat :
         {convertedPicture<KVJPEGPreset>(source), convertedPicture<KVBMPPreset>(source)}) {
        EXPECT_EQ(flat.bands(), 3);
        EXPECT_TRUE(areClose(fieldColours(flat), onWhite));
    }
    for (const VImage &kept : {convertedPicture<KVPNGPreset>(source), convertedPicture<KVTIFFPreset>(source),
                               convertedPicture<KVGIFPreset>(source)}) {
        ASSERT_EQ(kept.bands(), 4);
        EXPECT_TRUE(areClose(fieldColours(kept.flatten(VImage::option()->set("background", 255))), onWhite));
    }
}

TEST_F(KVPictureRenderingTest, ColoursOfTransparentPixelsDoNotBleed) {
    const VImage half = fields(65, 48).extract_band(0) > 0;
    const VImage picture = half.ifthenelse(Colour{255, 0, 0}, Colour{0, 0, 255})
                               .bandjoin(half)
                               .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    KVPNGPreset png;
    png.hasPercentageScaling = true;
    png.setScalingPercentage(40);
    const VImage output = load(converted(png, save(picture, path("edge.png"))));
    const VImage isVisible = output.extract_band(3) > 0;
    const VImage blueOfVisible = isVisible.ifthenelse(output.extract_band(2), 0);
    EXPECT_EQ(blueOfVisible.max(), 0);
    EXPECT_LT(output.extract_band(3).min(), 255);
}

TEST_F(KVPictureRenderingTest, Keeps16BitsWhereTheFormatHasThem) {
    const VImage deep = (fields().cast(VIPS_FORMAT_USHORT) * 200 + 77)
                            .cast(VIPS_FORMAT_USHORT)
                            .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_RGB16));
    const QString source = save(deep, path("deep.png"));
    for (const VImage &output :
         {convertedPicture<KVPNGPreset>(source), convertedPicture<KVTIFFPreset>(source)}) {
        EXPECT_EQ(output.format(), VIPS_FORMAT_USHORT);
        EXPECT_EQ((output - deep).abs().max(), 0);
    }
    for (const VImage &output :
         {convertedPicture<KVJPEGPreset>(source), convertedPicture<KVBMPPreset>(source),
          convertedPicture<KVGIFPreset>(source)}) {
        EXPECT_EQ(output.format(), VIPS_FORMAT_UCHAR);
        EXPECT_TRUE(
            areClose(fieldColours(output), {{199, 0, 0}, {0, 199, 0}, {0, 0, 199}, {199, 199, 0}}, 4));
    }
}

TEST_F(KVPictureRenderingTest, ConvertsInksToLightByTheirProfileOrTheBuiltInOne) {
    const VImage muted = (fields() * 0.25 + 100).cast(VIPS_FORMAT_UCHAR); // what inks can show
    const VImage inks = muted.icc_transform("cmyk", VImage::option()->set("input_profile", "srgb"));
    VImage unprofiled = inks.copy();
    unprofiled.remove(VIPS_META_ICC_NAME);
    for (const VImage &picture : {inks, unprofiled})
        for (const char *name : {"inks.tiff", "inks.jpg"}) {
            const QString source = save(picture, path(name));
            for (const VImage &output :
                 {convertedPicture<KVJPEGPreset>(source), convertedPicture<KVPNGPreset>(source),
                  convertedPicture<KVBMPPreset>(source), convertedPicture<KVGIFPreset>(source)}) {
                EXPECT_EQ(output.interpretation(), VIPS_INTERPRETATION_sRGB) << name;
                EXPECT_TRUE(areClose(fieldColours(output), fieldColours(muted), 20)) << name;
            }
            const VImage kept = convertedPicture<KVTIFFPreset>(source);
            EXPECT_EQ(kept.interpretation(), VIPS_INTERPRETATION_CMYK);
            EXPECT_LT((kept - picture).abs().max(), 30) << name;
        }
}

TEST_F(KVPictureRenderingTest, TakesTheFirstFrameOfAnAnimation) {
    VImage frames = fields(40, 40).join(fields(40, 40).invert(), VIPS_DIRECTION_VERTICAL);
    frames.set(VIPS_META_PAGE_HEIGHT, 40);
    const QString source = save(frames, path("moving.gif"));
    ASSERT_EQ(load(source).get_int(VIPS_META_N_PAGES), 2);
    for (const VImage &output :
         {convertedPicture<KVGIFPreset>(source), convertedPicture<KVTIFFPreset>(source)}) {
        EXPECT_EQ(output.height(), 40);
        EXPECT_TRUE(!output.get_typeof(VIPS_META_N_PAGES) || output.get_int(VIPS_META_N_PAGES) == 1);
        EXPECT_TRUE(areClose(fieldColours(output), {red, green, blue, yellow}));
    }
}
