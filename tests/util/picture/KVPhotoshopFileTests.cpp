#include "presets/picture/KVPictureTestCase.h"
#include "support/KVTestDocument.h"
#include "util/picture/KVPictureSource.h"

using namespace KVTestPictures;
using vips::VImage;

namespace {

class KVPhotoshopFileTest : public KVPictureTestCase {
  protected:
    static VImage pictureIn(const QString &path) {
        const auto source = KVPictureSource::open(path);
        EXPECT_TRUE(source) << path.toStdString() << ": " << source.error().reason.toStdString();
        return source ? source->image() : VImage::black(1, 1);
    }
};

VImage interpretedAs(VipsInterpretation interpretation, const VImage &picture) {
    return picture.copy(VImage::option()->set("interpretation", interpretation));
}

/// A picture with these numbers of colours and bits, every channel different.
VImage samples(int colours, int depth) {
    const VImage one = fields(62, 48).extract_band(0), other = fields(62, 48).extract_band(1);
    std::vector<VImage> bands{(one * 0.7 + other * 0.2 + 20)};
    for (int band = 1; band < colours; band++)
        bands.push_back(bands.back().rot180() * 0.5 + 17 * band);
    const VImage bytes = VImage::bandjoin(bands).cast(VIPS_FORMAT_UCHAR);
    const VipsInterpretation shallow = colours == 1   ? VIPS_INTERPRETATION_B_W
                                       : colours == 4 ? VIPS_INTERPRETATION_CMYK
                                                      : VIPS_INTERPRETATION_sRGB;
    if (depth == 8) return interpretedAs(shallow, bytes);
    const VipsInterpretation deep = colours == 1   ? VIPS_INTERPRETATION_GREY16
                                    : colours == 4 ? VIPS_INTERPRETATION_CMYK
                                                   : VIPS_INTERPRETATION_RGB16;
    return interpretedAs(deep, (bytes * 200 + 77).cast(VIPS_FORMAT_USHORT));
}

/// 0 on the left, full on the right.
VImage halfTransparent(const VImage &picture) {
    const VImage right =
        VImage::xyz(picture.width(), picture.height()).extract_band(0) >= picture.width() / 2;
    const double full = picture.format() == VIPS_FORMAT_USHORT ? 65535 : 255;
    return (right / 255 * full).cast(picture.format());
}

} // namespace

TEST_F(KVPhotoshopFileTest, ReadsEveryPixelOfGreyRGBAndCMYK) {
    for (const auto &[mode, colours] : {std::pair{KVTestDocument::grey, 1},
                                        {KVTestDocument::duotone, 1},
                                        {KVTestDocument::rgb, 3},
                                        {KVTestDocument::cmyk, 4}})
        for (const int depth : {8, 16})
            for (const bool isPacked : {false, true})
                for (const bool hasAlpha : {false, true}) {
                    VImage picture = samples(colours, depth);
                    if (hasAlpha) picture = picture.bandjoin(halfTransparent(picture));
                    const KVTestDocument document{mode, depth, isPacked, 0, {}, {}};
                    const VImage read = pictureIn(write("document.psd", document.content(picture)));
                    ASSERT_EQ(read.bands(), picture.bands()) << mode << ' ' << depth;
                    EXPECT_EQ(read.interpretation(), picture.interpretation());
                    EXPECT_EQ(read.format(), picture.format());
                    EXPECT_EQ((read - picture).abs().max(), 0)
                        << mode << ' ' << depth << isPacked << hasAlpha;
                }
}

TEST_F(KVPhotoshopFileTest, ReadsBitmapsAndPalettes) {
    const VImage grey = fields(61, 48).extract_band(0);
    const KVTestDocument bitmap{KVTestDocument::bitmap, 1, true, 0, {}, {}};
    EXPECT_EQ((pictureIn(write("bitmap.psd", bitmap.content(grey))) - grey).abs().max(), 0);

    QByteArray palette(768, '\0');
    for (const auto &[index, colour] : {std::pair{0, blue}, {255, yellow}})
        for (int band = 0; band < 3; band++)
            palette[256 * band + index] = char(colour[std::size_t(band)]);
    const KVTestDocument indexed{KVTestDocument::indexed, 8, false, 0, {}, palette};
    EXPECT_TRUE(areClose(fieldColours(pictureIn(write("indexed.psd", indexed.content(grey)))),
                         {yellow, blue, blue, yellow}, 0));
}

TEST_F(KVPhotoshopFileTest, KnowsTransparencyFromSavedSelections) {
    const VImage picture = samples(3, 8), channel = (VImage::black(62, 48) + 51).cast(VIPS_FORMAT_UCHAR);
    const VImage both = picture.bandjoin(channel);
    for (const KVTestDocument &document : {KVTestDocument{KVTestDocument::rgb, 8, false, 0, "\7Alpha 1", {}},
                                           KVTestDocument{KVTestDocument::rgb, 8, false, 2, {}, {}}}) {
        const VImage read = pictureIn(write("selection.psd", document.content(both)));
        ASSERT_EQ(read.bands(), 3);
        EXPECT_EQ((read - picture).abs().max(), 0);
    }

    // Below 0 the merged picture has transparency and is blended with white.
    const VImage blended = (picture * 0.2 + 255 * 0.8).rint().cast(VIPS_FORMAT_UCHAR);
    const KVTestDocument layered{KVTestDocument::rgb, 8, false, -1, {}, {}};
    const VImage read = pictureIn(write("layers.psd", layered.content(blended.bandjoin(channel))));
    ASSERT_EQ(read.bands(), 4);
    EXPECT_EQ(read.extract_band(3).avg(), 51);
    EXPECT_LE((read.extract_band(0, VImage::option()->set("n", 3)) - picture).abs().max(), 3);
}

TEST_F(KVPhotoshopFileTest, ReadsLabWithTransparency) {
    const VImage lab = fields(62, 48).colourspace(VIPS_INTERPRETATION_LAB);
    const VImage shallow = lab.linear({2.55, 1, 1}, {0, 128, 128}).rint().cast(VIPS_FORMAT_UCHAR),
                 deep = lab.linear({655.35, 256, 256}, {0, 32768, 32768}).rint().cast(VIPS_FORMAT_USHORT);
    for (const VImage &stored : {shallow, deep}) {
        const bool has16Bits = stored.format() == VIPS_FORMAT_USHORT;
        const KVTestDocument document{KVTestDocument::lab, has16Bits ? 16 : 8, true, 0, {}, {}};
        const VImage read =
            pictureIn(write("lab.psd", document.content(stored.bandjoin(halfTransparent(stored)))));
        EXPECT_TRUE(areClose(fieldColours(read), {red, green, blue, yellow})) << has16Bits;
        ASSERT_EQ(read.bands(), 4);
        EXPECT_EQ(read.getpoint(5, 5)[3], 0);
        EXPECT_EQ(read.getpoint(55, 5)[3], has16Bits ? 65535 : 255);
    }
}

TEST_F(KVPhotoshopFileTest, ReadsDocumentsWithABlockBehindTheirLayers) {
    const VImage picture = samples(3, 16), both = picture.bandjoin(picture.extract_band(0));
    const KVTestDocument masked{KVTestDocument::rgb, 16, false, 0, {}, {}, "FMsk", QByteArray(12, '\1')};
    EXPECT_EQ((pictureIn(write("masked.psd", masked.content(picture))) - picture).abs().max(), 0);

    // A number of layers below 0, which makes the fourth channel transparency.
    const KVTestDocument layers{KVTestDocument::rgb, 16, false,  0,
                                "\7Alpha 1",         {}, "Lr16", QByteArray(2, '\xFF')};
    EXPECT_EQ(pictureIn(write("layers.psd", layers.content(both))).bands(), 4);
}

TEST_F(KVPhotoshopFileTest, ConvertsInksWithTransparency) {
    VImage inks = VImage::black(64, 48).bandjoin({255, 255, 0}).cast(VIPS_FORMAT_UCHAR); // red
    inks = inks.bandjoin(halfTransparent(inks));
    const QString source =
        write("inks.png", KVTestDocument{KVTestDocument::cmyk, 8, true, 0, {}, {}}.content(inks));
    const VImage jpeg = convertedPicture<KVJPEGPreset>(source);
    EXPECT_TRUE(areClose({jpeg.getpoint(10, 10)}, {white}, 4));
    EXPECT_TRUE(areClose({jpeg.getpoint(50, 10)}, {{237, 28, 36}}, 30));
    const VImage png = convertedPicture<KVPNGPreset>(source);
    ASSERT_EQ(png.bands(), 4);
    EXPECT_EQ(png.getpoint(10, 10)[3], 0);
    EXPECT_EQ(png.getpoint(50, 10)[3], 255);
}

TEST_F(KVPhotoshopFileTest, RefusesDocumentsWhoseHeaderIsDamagedOrThatEndTooEarly) {
    const QByteArray whole =
        KVTestDocument{KVTestDocument::rgb, 8, true, -1, "\1a", {}}.content(samples(3, 8));
    for (qsizetype size = 4; size < whole.size(); size += 23)
        EXPECT_FALSE(KVPictureSource::open(write("cut.psd", whole.first(size)))) << size;
    for (const auto &[at, hex] : {std::pair{12, "0000"},
                                  {12, "ffff"},
                                  {14, "ffffffff"},
                                  {18, "00000000"},
                                  {26, "7fffffff"},
                                  {30, "ffffffff"}}) {
        QByteArray content = whole;
        const QByteArray bytes = QByteArray::fromHex(hex);
        EXPECT_FALSE(KVPictureSource::open(write("bad.psd", content.replace(at, bytes.size(), bytes)))) << at;
    }
}
