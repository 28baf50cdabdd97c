#include "util/picture/KVTIFFFile.h"

#include "util/picture/KVRowReader.h"
#include "util/picture/KVTIFFHandle.h"
#include "util/picture/KVTIFFPlanes.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <vector>

using vips::VImage;

namespace {

/// The open file behind an image, for as long as the image lives.
class Strips : public KVRowReader {
  public:
    explicit Strips(const QString &path)
        : _file(KVTIFFHandles::toRead(path)) {
        char reason[1024] = "The file cannot be read.";
        if (!_file || !TIFFRGBAImageBegin(&_decoder, _file.get(), 1, reason))
            throw std::runtime_error(reason);
        // The pixels come as they are stored; the picture is turned by its tag like every other.
        _decoder.orientation = _decoder.req_orientation = ORIENTATION_TOPLEFT;
        const uint32_t rows = TIFFIsTiled(_file.get())
                                  ? KVTIFFHandles::tag<uint32_t>(_file.get(), TIFFTAG_TILELENGTH)
                                  : KVTIFFHandles::tag<uint32_t>(_file.get(), TIFFTAG_ROWSPERSTRIP);
        _rowsOfStrip = std::clamp<uint32_t>(rows, 1, std::max<uint32_t>(_decoder.height, 1));
    }
    ~Strips() override {
        if (_file) TIFFRGBAImageEnd(&_decoder);
    }
    Strips(const Strips &) = delete;
    Strips &operator=(const Strips &) = delete;

    uint32_t width() const { return _decoder.width; }
    uint32_t height() const { return _decoder.height; }

    /// Writes this part of the picture; false where the file is damaged or too short.
    bool read(VipsRegion *region) override {
        const std::scoped_lock lock(_mutex);
        const VipsRect &part = region->valid;
        for (int y = part.top; y < part.top + part.height; y++) {
            const uint32_t *row = _row(static_cast<uint32_t>(y));
            if (!row) return false;
            VipsPel *to = VIPS_REGION_ADDR(region, part.left, y);
            for (int x = part.left; x < part.left + part.width; x++) {
                *to++ = TIFFGetR(row[x]);
                *to++ = TIFFGetG(row[x]);
                *to++ = TIFFGetB(row[x]);
            }
        }
        return true;
    }

  private:
    const uint32_t *_row(uint32_t y) {
        const uint32_t first = y - y % _rowsOfStrip;
        if (_pixels.empty() || first != _firstRow) {
            const uint32_t count = std::min(_rowsOfStrip, height() - first);
            _pixels.resize(std::size_t{width()} * _rowsOfStrip);
            _decoder.row_offset = static_cast<int>(first);
            if (!TIFFRGBAImageGet(&_decoder, _pixels.data(), width(), count)) {
                _pixels.clear();
                return nullptr;
            }
            _firstRow = first;
        }
        return _pixels.data() + std::size_t{width()} * (y - first);
    }

    std::mutex _mutex;
    KVTIFFHandle _file;
    TIFFRGBAImage _decoder{};
    uint32_t _rowsOfStrip = 1;
    uint32_t _firstRow = 0;
    std::vector<uint32_t> _pixels; ///< The strip that begins there.
};

/// The facts beside the pixels that a conversion keeps.
void copyFacts(TIFF *file, VipsImage *image) {
    vips_image_set_int(image, VIPS_META_ORIENTATION, KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_ORIENTATION));
    uint32_t size = 0;
    void *profile = nullptr;
    if (TIFFGetField(file, TIFFTAG_ICCPROFILE, &size, &profile) && size > 0)
        vips_image_set_blob_copy(image, VIPS_META_ICC_NAME, profile, size);
}

/// Pixels per millimetre; 1 where the file tells of no unit.
double resolution(TIFF *file, uint32_t name) {
    const auto value = static_cast<double>(KVTIFFHandles::tag<float>(file, name));
    const auto unit = KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_RESOLUTIONUNIT);
    if (!(value > 0) || (unit != RESUNIT_INCH && unit != RESUNIT_CENTIMETER)) return 1;
    return value / (unit == RESUNIT_INCH ? 25.4 : 10);
}

bool holdsLumaAndChroma(TIFF *file) {
    if (KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_PHOTOMETRIC) != PHOTOMETRIC_YCBCR) return false;
    const auto compression = KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_COMPRESSION);
    return compression != COMPRESSION_JPEG; // which the image library reads
}

/// True if colours are stored multiplied by what the channel of transparency says.
bool isPremultiplied(TIFF *file) {
    uint16_t count = 0;
    const uint16_t *kinds = nullptr;
    return TIFFGetField(file, TIFFTAG_EXTRASAMPLES, &count, &kinds) != 0 && count > 0 &&
           kinds[0] == EXTRASAMPLE_ASSOCALPHA;
}

/// False for a smaller copy of a page and for a mask.
bool isPage(TIFF *file) {
    return (KVTIFFHandles::tag<uint32_t>(file, TIFFTAG_SUBFILETYPE) &
            (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) == 0;
}

} // namespace

bool KVTIFFFile::canOnlyBeReadHere(const QString &path) {
    const KVTIFFHandle file = KVTIFFHandles::toRead(path);
    return file && (holdsLumaAndChroma(file.get()) || KVTIFFPlanes::needsReader(file.get()));
}

bool KVTIFFFile::isOldStyleJPEG(const QString &path) {
    const KVTIFFHandle file = KVTIFFHandles::toRead(path);
    return file && KVTIFFHandles::tag<uint16_t>(file.get(), TIFFTAG_COMPRESSION) == COMPRESSION_OJPEG;
}

bool KVTIFFFile::holdsDeepFloats(const QString &path) {
    const KVTIFFHandle file = KVTIFFHandles::toRead(path);
    return file && KVTIFFHandles::tag<uint16_t>(file.get(), TIFFTAG_BITSPERSAMPLE) >= 32 &&
           KVTIFFHandles::tag<uint16_t>(file.get(), TIFFTAG_SAMPLEFORMAT) == SAMPLEFORMAT_IEEEFP;
}

VImage KVTIFFFile::image(const QString &path) {
    const KVTIFFHandle file = KVTIFFHandles::toRead(path);
    if (!file) throw std::runtime_error("The file cannot be read.");
    KVRowReader::Layout layout;
    std::unique_ptr<KVRowReader> reader;
    if (const auto planes = KVTIFFPlanes::layout(file.get())) {
        layout = *planes;
        reader = KVTIFFPlanes::reader(path, layout);
    } else {
        auto strips = std::make_unique<Strips>(path);
        layout.width = static_cast<int>(std::min<uint32_t>(strips->width(), INT_MAX));
        layout.height = static_cast<int>(std::min<uint32_t>(strips->height(), INT_MAX));
        reader = std::move(strips);
    }
    if (layout.width > VIPS_MAX_COORD || layout.height > VIPS_MAX_COORD)
        throw std::runtime_error("The header of the picture is damaged.");
    layout.horizontalResolution = resolution(file.get(), TIFFTAG_XRESOLUTION);
    layout.verticalResolution = resolution(file.get(), TIFFTAG_YRESOLUTION);
    VImage image = KVRowReader::picture(layout, std::move(reader));
    if (image.has_alpha() && isPremultiplied(file.get()))
        image = image.unpremultiply(VImage::option()->set("max_alpha", layout.has16Bits ? 65535 : 255))
                    .rint()
                    .cast(image.format());
    copyFacts(file.get(), image.get_image());
    return image.sequential();
}

int KVTIFFFile::numberOfPages(const QString &path) {
    const KVTIFFHandle file = KVTIFFHandles::toRead(path);
    int pages = 0;
    if (file) do
            if (isPage(file.get())) pages++;
        while (TIFFReadDirectory(file.get()));
    return std::max(pages, 1);
}
