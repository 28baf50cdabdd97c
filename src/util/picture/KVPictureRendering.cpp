#include "util/picture/KVPictureRendering.h"

#include "util/KVTempDirectory.h"
#include "util/picture/KVPictureSource.h"

#include <QFile>
#include <QTemporaryFile>

#include <algorithm>
#include <stdexcept>
#include <vector>

using vips::VImage;

namespace {

/// What has to be held at once is held in memory up to this size, beyond on disc.
constexpr std::uint64_t maximumBytesInMemory = std::uint64_t{64} * 1024 * 1024;

bool has16Bits(const VImage &picture) {
    return picture.format() == VIPS_FORMAT_USHORT;
}

bool isGrey(const VImage &picture) {
    return picture.interpretation() == VIPS_INTERPRETATION_B_W ||
           picture.interpretation() == VIPS_INTERPRETATION_GREY16;
}

bool isCMYK(const VImage &picture) {
    return picture.interpretation() == VIPS_INTERPRETATION_CMYK;
}

double fullValue(const VImage &picture) {
    return has16Bits(picture) ? 65535 : 255;
}

VImage interpretedAs(const VImage &picture, VipsInterpretation interpretation) {
    return picture.copy(VImage::option()->set("interpretation", interpretation));
}

VImage withoutField(const VImage &picture, const char *field) {
    VImage changed = picture.copy();
    changed.remove(field);
    return changed;
}

/// Grey, RGB or CMYK with 8 or 16 bits and at most one channel of transparency.
VImage inKnownColours(VImage picture) {
    switch (const VipsInterpretation interpretation = picture.guess_interpretation(); interpretation) {
    case VIPS_INTERPRETATION_B_W:
    case VIPS_INTERPRETATION_GREY16:
    case VIPS_INTERPRETATION_sRGB:
    case VIPS_INTERPRETATION_RGB16:
    case VIPS_INTERPRETATION_CMYK:
        picture = interpretedAs(picture, interpretation);
        break;
    case VIPS_INTERPRETATION_MULTIBAND:
    case VIPS_INTERPRETATION_RGB:
        picture =
            interpretedAs(picture, picture.bands() < 3 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB);
        break;
    default:
        picture = withoutField(picture.colourspace(VIPS_INTERPRETATION_RGB16), VIPS_META_ICC_NAME);
    }
    const int colours = isGrey(picture) ? 1 : isCMYK(picture) ? 4 : 3;
    if (picture.bands() > colours + 1)
        picture = picture.extract_band(0, VImage::option()->set("n", colours + 1));
    const bool is16 = has16Bits(picture) || picture.interpretation() == VIPS_INTERPRETATION_RGB16 ||
                      picture.interpretation() == VIPS_INTERPRETATION_GREY16;
    return picture.cast(is16 ? VIPS_FORMAT_USHORT : VIPS_FORMAT_UCHAR);
}

VImage onWhite(const VImage &picture) {
    const double full = fullValue(picture);
    const double white = isCMYK(picture) ? 0 : full; // no ink
    return picture.flatten(VImage::option()->set("background", std::vector{white})->set("max_alpha", full));
}

VImage scaled(const VImage &picture, int width, int height) {
    if (picture.width() == width && picture.height() == height) return picture;
    const double horizontal = static_cast<double>(width) / picture.width();
    const double vertical = static_cast<double>(height) / picture.height();
    const auto resized = [&](const VImage &part) {
        return part.resize(horizontal,
                           VImage::option()->set("vscale", vertical)->set("kernel", VIPS_KERNEL_LANCZOS3));
    };
    if (!picture.has_alpha()) return resized(picture);

    // What is transparent has a colour as well: it must not bleed into its neighbours.
    const double full = fullValue(picture);
    const VImage weighted = picture.premultiply(VImage::option()->set("max_alpha", full));
    return resized(weighted).unpremultiply(VImage::option()->set("max_alpha", full)).cast(picture.format());
}

bool hasFittingProfile(const VImage &picture) {
    if (!picture.get_typeof(VIPS_META_ICC_NAME)) return false;
    std::size_t size = 0;
    const void *profile = picture.get_blob(VIPS_META_ICC_NAME, &size);
    return vips_icc_is_compatible_profile(picture.get_image(), profile, size);
}

VImage convertedToSRGB(const VImage &picture, int depth) {
    auto *options = VImage::option()
                        ->set("embedded", true)
                        ->set("intent", VIPS_INTENT_RELATIVE)
                        ->set("black_point_compensation", true)
                        ->set("depth", depth);
    if (isCMYK(picture)) options->set("input_profile", "cmyk"); // where it brings none of its own
    return picture.icc_transform("srgb", options);
}

VImage inColoursOf(const KVPictureFormat &format, VImage picture) {
    const int depth = has16Bits(picture) && format.holds16Bits ? 16 : 8;
    if (picture.get_typeof(VIPS_META_ICC_NAME) && !hasFittingProfile(picture))
        picture = withoutField(picture, VIPS_META_ICC_NAME);
    if (isCMYK(picture) ? !format.holdsCMYK
                        : !format.holdsProfile && picture.get_typeof(VIPS_META_ICC_NAME) != 0)
        picture = convertedToSRGB(picture, depth);
    if (has16Bits(picture) && depth == 8)
        picture = picture.colourspace(isGrey(picture) ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB);
    return picture.cast(depth == 16 ? VIPS_FORMAT_USHORT : VIPS_FORMAT_UCHAR);
}

/// The picture with all its pixels at hand, in any order.
VImage heldAtOnce(const VImage &picture, const std::stop_token &stop) {
    const std::stop_callback end(stop, [&] { vips_image_set_kill(picture.get_image(), TRUE); });
    if (VIPS_IMAGE_SIZEOF_IMAGE(picture.get_image()) <= maximumBytesInMemory) return picture.copy_memory();
    QTemporaryFile file(KVTempDirectoryPath() + "/picture-XXXXXX.v");
    if (!file.open()) throw std::runtime_error(file.errorString().toStdString());
    const QByteArray name = QFile::encodeName(file.fileName());
    picture.write_to_file(name.constData());
    return VImage::new_from_file(name.constData()); // keeps the file open; its name goes now
}

/// Other programs would turn the picture once more by what the XMP text says.
VImage withUprightXMP(VImage picture) {
    if (!picture.get_typeof(VIPS_META_XMP_NAME)) return picture;
    std::size_t size = 0;
    const void *xmp = picture.get_blob(VIPS_META_XMP_NAME, &size);
    QByteArray text(static_cast<const char *>(xmp), qsizetype(size));
    for (const char *before : {"tiff:Orientation=\"", "tiff:Orientation='", "tiff:Orientation>"})
        if (const qsizetype at = text.indexOf(before);
            at >= 0 && at + qsizetype(strlen(before)) < text.size())
            text[at + qsizetype(strlen(before))] = '1';
    vips_image_set_blob_copy(picture.get_image(), VIPS_META_XMP_NAME, text.constData(),
                             static_cast<std::size_t>(text.size()));
    return picture;
}

VImage upright(const VImage &picture, const std::stop_token &stop) {
    const int orientation = KVPictureSource::orientation(picture);
    if (orientation == 1) return picture;
    const bool isOnlyMirrored = orientation == 2; // row by row
    return withUprightXMP((isOnlyMirrored ? picture : heldAtOnce(picture, stop)).autorot());
}

/// Without what was true of the source's file alone: its preview, its animation, its palette.
VImage withFittingMetadata(const VImage &picture) {
    VImage changed = picture.copy();
    for (const char *field : {"jpeg-thumbnail-data", "n-pages", "page-height", "delay", "gif-delay", "loop",
                              "gif-loop", "gif-palette", "background", "interlaced", "palette-bit-depth"})
        changed.remove(field);
    return changed;
}

} // namespace

VImage KVPictureRendering::render(const KVPictureSource &source, const KVSize &uprightSize,
                                  const KVPictureFormat &format, const std::stop_token &stop) {
    const bool isTurned = KVPictureSource::orientation(source.image()) >= 5;
    const int width = static_cast<int>(isTurned ? uprightSize.height : uprightSize.width);
    const int height = static_cast<int>(isTurned ? uprightSize.width : uprightSize.height);
    const double factor = std::min(static_cast<double>(source.image().width()) / width,
                                   static_cast<double>(source.image().height()) / height);

    VImage picture = inKnownColours(source.imageToShrink(factor, stop));
    if (!format.holdsTransparency && picture.has_alpha()) picture = onWhite(picture);
    picture = scaled(picture, width, height);
    picture = inColoursOf(format, picture);
    picture = upright(picture, stop);
    return withFittingMetadata(picture);
}
