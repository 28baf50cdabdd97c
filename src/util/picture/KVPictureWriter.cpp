#include "util/picture/KVPictureWriter.h"

#include "util/KVHiddenOutput.h"
#include "util/picture/KVBitmapWriter.h"
#include "util/picture/KVTIFFMetadata.h"

#include <array>
#include <cmath>

using vips::VImage;

namespace {

constexpr KVPictureFormat formats[] = {
    // by KVImageFileType: maximum side, transparency, profile, 16 bits, CMYK
    {10'000'000, true, true, true, true},     // TIFF
    {10'000'000, false, false, false, false}, // BMP
    {65535, true, false, false, false},       // GIF
    {65500, false, true, false, false},       // JPEG
    {10'000'000, true, true, true, false},    // PNG
};

// Larger files need 64-bit offsets, which older programs do not read.
constexpr std::uint64_t maximumClassicTIFF = 4'000'000'000;

gint64 writeOutput(VipsTargetCustom *, const void *data, gint64 size, gpointer output) {
    return static_cast<KVHiddenOutput *>(output)->write(data, size);
}
gint64 readOutput(VipsTargetCustom *, void *data, gint64 size, gpointer output) {
    return static_cast<KVHiddenOutput *>(output)->read(data, size);
}
gint64 seekOutput(VipsTargetCustom *, gint64 offset, int whence, gpointer output) {
    return static_cast<KVHiddenOutput *>(output)->seek(offset, whence);
}

vips::VTarget targetFor(KVHiddenOutput &output) {
    VipsTargetCustom *target = vips_target_custom_new();
    g_signal_connect(target, "write", G_CALLBACK(writeOutput), &output);
    g_signal_connect(target, "read", G_CALLBACK(readOutput), &output);
    g_signal_connect(target, "seek", G_CALLBACK(seekOutput), &output);
    return vips::VTarget(VIPS_TARGET(target));
}

} // namespace

const KVPictureFormat &KVPictureWriter::format(KVImageFileType type) {
    return formats[static_cast<std::size_t>(type)];
}

void KVPictureWriter::write(const VImage &picture, KVImageFileType type, const QVariantMap &properties,
                            KVHiddenOutput &output) {
    const vips::VTarget target = targetFor(output);
    switch (type) {
    case KVImageFileType::tiff: {
        const bool isLarge = VIPS_IMAGE_SIZEOF_IMAGE(picture.get_image()) > maximumClassicTIFF;
        picture.tiffsave_target(target, VImage::option()->set("bigtiff", isLarge));
        KVTIFFMetadata::append(picture, output);
        break;
    }
    case KVImageFileType::bmp:
        KVBitmapWriter::write(picture, output);
        break;
    case KVImageFileType::gif:
        picture.gifsave_target(target);
        break;
    case KVImageFileType::jpeg: {
        const double quality = properties.value(NSImageCompressionFactor).toDouble() * 100;
        picture.jpegsave_target(target,
                                VImage::option()->set("Q", std::clamp(int(std::lround(quality)), 1, 100)));
        break;
    }
    case KVImageFileType::png:
        picture.pngsave_target(
            target, VImage::option()->set("interlace", properties.value(NSImageInterlaced).toBool()));
        break;
    }
}
