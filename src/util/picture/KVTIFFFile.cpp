#include "util/picture/KVTIFFFile.h"

#include "util/picture/KVTIFFHandle.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <vector>

using vips::VImage;

namespace {

template <class Number>
Number tag(TIFF *file, uint32_t name) {
    Number value = 0;
    TIFFGetFieldDefaulted(file, name, &value);
    return value;
}

/// The open file behind an image, for as long as the image lives.
class Strips {
  public:
    explicit Strips(const QString &path)
        : _file(KVTIFFHandles::toRead(path)) {
        const std::scoped_lock lock(_mutex); // the library's threads see a finished object
        char reason[1024] = "The file cannot be read.";
        if (!_file || !TIFFRGBAImageBegin(&_decoder, _file.get(), 1, reason))
            throw std::runtime_error(reason);
        // The pixels come as they are stored; the picture is turned by its tag like every other.
        _decoder.orientation = _decoder.req_orientation = ORIENTATION_TOPLEFT;
        const uint32_t rows = TIFFIsTiled(_file.get()) ? tag<uint32_t>(_file.get(), TIFFTAG_TILELENGTH)
                                                       : tag<uint32_t>(_file.get(), TIFFTAG_ROWSPERSTRIP);
        _rowsOfStrip = std::clamp<uint32_t>(rows, 1, std::max<uint32_t>(_decoder.height, 1));
    }
    ~Strips() {
        if (_file) TIFFRGBAImageEnd(&_decoder);
    }
    Strips(const Strips &) = delete;
    Strips &operator=(const Strips &) = delete;

    TIFF *file() const { return _file.get(); }
    uint32_t width() const { return _decoder.width; }
    uint32_t height() const { return _decoder.height; }

    /// Writes this part of the picture; false where the file is damaged or too short.
    bool read(VipsRegion *region) {
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

/// Called by the library, on its threads, for a part of the image.
int generateStrips(VipsRegion *region, void *, void *client, void *, gboolean *) {
    if (static_cast<Strips *>(client)->read(region)) return 0;
    vips_error("tiff", "%s", "The picture is damaged or ends too early.");
    return -1;
}

/// The facts beside the pixels that a conversion keeps.
void copyFacts(TIFF *file, VipsImage *image) {
    vips_image_set_int(image, VIPS_META_ORIENTATION, tag<uint16_t>(file, TIFFTAG_ORIENTATION));
    uint32_t size = 0;
    void *profile = nullptr;
    if (TIFFGetField(file, TIFFTAG_ICCPROFILE, &size, &profile) && size > 0)
        vips_image_set_blob_copy(image, VIPS_META_ICC_NAME, profile, size);
}

/// Pixels per millimetre; 1 where the file tells of no unit.
double resolution(TIFF *file, uint32_t name) {
    const auto value = static_cast<double>(tag<float>(file, name));
    const auto unit = tag<uint16_t>(file, TIFFTAG_RESOLUTIONUNIT);
    if (!(value > 0) || (unit != RESUNIT_INCH && unit != RESUNIT_CENTIMETER)) return 1;
    return value / (unit == RESUNIT_INCH ? 25.4 : 10);
}

} // namespace

bool KVTIFFFile::holdsLumaAndChroma(const QString &path) {
    const KVTIFFHandle file = KVTIFFHandles::toRead(path);
    if (!file || tag<uint16_t>(file.get(), TIFFTAG_PHOTOMETRIC) != PHOTOMETRIC_YCBCR) return false;
    const auto compression = tag<uint16_t>(file.get(), TIFFTAG_COMPRESSION);
    return compression != COMPRESSION_JPEG && compression != COMPRESSION_OJPEG;
}

VImage KVTIFFFile::image(const QString &path) {
    auto strips = std::make_unique<Strips>(path);
    if (strips->width() > VIPS_MAX_COORD || strips->height() > VIPS_MAX_COORD)
        throw std::runtime_error("The header of the picture is damaged.");

    const VImage image(vips_image_new());
    VipsImage *raw = image.get_image();
    vips_image_init_fields(raw, static_cast<int>(strips->width()), static_cast<int>(strips->height()), 3,
                           VIPS_FORMAT_UCHAR, VIPS_CODING_NONE, VIPS_INTERPRETATION_sRGB,
                           resolution(strips->file(), TIFFTAG_XRESOLUTION),
                           resolution(strips->file(), TIFFTAG_YRESOLUTION));
    copyFacts(strips->file(), raw);
    if (vips_image_pipelinev(raw, VIPS_DEMAND_STYLE_THINSTRIP, nullptr) != 0 ||
        vips_image_generate(raw, nullptr, generateStrips, nullptr, strips.get(), nullptr) != 0)
        throw vips::VError();
    const auto deleteStrips = [](gpointer owned) { delete static_cast<Strips *>(owned); };
    g_object_set_data_full(G_OBJECT(raw), "kalvora-strips", strips.release(), deleteStrips);
    return image.sequential();
}
