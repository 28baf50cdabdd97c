#include "util/picture/KVTIFFPlanes.h"

#include <QtGlobal>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <stdexcept>
#include <vector>

namespace {

constexpr tmsize_t maximumTileSize = tmsize_t{256} * 1024 * 1024;

class PlanesReader : public KVRowReader {
  public:
    PlanesReader(const QString &path, const Layout &layout)
        : _layout(layout)
        , _file(KVTIFFHandles::toRead(path)) {
        if (!_file) throw std::runtime_error("The file cannot be read.");
        const bool isTiled = TIFFIsTiled(_file.get());
        const auto rowsOfStrip = KVTIFFHandles::tag<uint32_t>(_file.get(), TIFFTAG_ROWSPERSTRIP);
        _tileWidth = isTiled ? KVTIFFHandles::tag<uint32_t>(_file.get(), TIFFTAG_TILEWIDTH)
                             : static_cast<uint32_t>(_layout.width);
        _tileHeight = isTiled ? KVTIFFHandles::tag<uint32_t>(_file.get(), TIFFTAG_TILELENGTH)
                              : std::min(rowsOfStrip, static_cast<uint32_t>(_layout.height));
        const tmsize_t size = isTiled ? TIFFTileSize(_file.get()) : TIFFStripSize(_file.get());
        const std::size_t rowSize = std::size_t{_tileWidth} * _bytesPerValue();
        if (_tileWidth == 0 || _tileHeight == 0 || size <= 0 || size > maximumTileSize ||
            std::size_t(size) < rowSize * _tileHeight)
            throw std::runtime_error("The header of the picture is damaged.");
        _tile.resize(std::size_t(size));
        const auto photometric = KVTIFFHandles::tag<uint16_t>(_file.get(), TIFFTAG_PHOTOMETRIC);
        _isInverted = photometric == PHOTOMETRIC_MINISWHITE;
    }

    bool read(VipsRegion *region) override {
        const std::scoped_lock lock(_mutex);
        const VipsRect &part = region->valid;
        const std::size_t pixelSize = _pixelSize();
        for (int y = part.top; y < part.top + part.height; y++) {
            const auto first = static_cast<uint32_t>(y) / _tileHeight * _tileHeight;
            if ((_pixels.empty() || first != _firstRow) && !_readTiles(first)) return false;
            const std::size_t row = static_cast<std::size_t>(y) - first;
            const std::size_t start = row * static_cast<std::size_t>(_layout.width) + std::size_t(part.left);
            std::memcpy(VIPS_REGION_ADDR(region, part.left, y), _pixels.data() + start * pixelSize,
                        static_cast<std::size_t>(part.width) * pixelSize);
        }
        return true;
    }

  private:
    std::size_t _bytesPerValue() const { return _layout.has16Bits ? 2 : 1; }
    std::size_t _pixelSize() const { return static_cast<std::size_t>(_layout.bands) * _bytesPerValue(); }

    /// The tiles of all channels that begin in this row.
    bool _readTiles(uint32_t firstRow) {
        const auto width = static_cast<uint32_t>(_layout.width),
                   height = static_cast<uint32_t>(_layout.height);
        const uint32_t rows = std::min(_tileHeight, height - firstRow);
        _pixels.resize(std::size_t{width} * rows * _pixelSize());
        _firstRow = firstRow;
        for (int band = 0; band < _layout.bands; band++)
            for (uint32_t left = 0; left < width; left += std::min(_tileWidth, width - left)) {
                if (!_readTile(left, firstRow, rows, static_cast<uint16_t>(band))) {
                    _pixels.clear();
                    return false;
                }
                _copyTile(left, std::min(_tileWidth, width - left), rows, static_cast<std::size_t>(band));
            }
        if (_isInverted) _invertColours();
        return true;
    }

    bool _readTile(uint32_t left, uint32_t firstRow, uint32_t rows, uint16_t band) {
        TIFF *file = _file.get();
        const auto size = static_cast<tmsize_t>(_tile.size());
        if (TIFFIsTiled(file)) {
            const uint32_t tile = TIFFComputeTile(file, left, firstRow, 0, band);
            return TIFFReadEncodedTile(file, tile, _tile.data(), size) == size;
        }
        const auto needed = static_cast<tmsize_t>(std::size_t{_tileWidth} * rows * _bytesPerValue());
        const uint32_t strip = TIFFComputeStrip(file, firstRow, band);
        return TIFFReadEncodedStrip(file, strip, _tile.data(), size) >= needed;
    }

    void _copyTile(uint32_t left, uint32_t columns, uint32_t rows, std::size_t band) {
        const std::size_t bytes = _bytesPerValue();
        for (std::size_t y = 0; y < rows; y++) {
            const uchar *from = _tile.data() + y * _tileWidth * bytes;
            uchar *to = _pixels.data() + (y * static_cast<std::size_t>(_layout.width) + left) * _pixelSize() +
                        band * bytes;
            for (std::size_t x = 0; x < columns; x++, from += bytes, to += _pixelSize())
                std::memcpy(to, from, bytes);
        }
    }

    /// Of grey where 0 is white; a channel of transparency behind it stays.
    void _invertColours() {
        const std::size_t bytes = _bytesPerValue();
        for (std::size_t at = 0; at < _pixels.size(); at += _pixelSize())
            for (std::size_t byte = 0; byte < bytes; byte++)
                _pixels[at + byte] = static_cast<uchar>(~_pixels[at + byte]);
    }

    const Layout _layout;
    std::mutex _mutex;
    KVTIFFHandle _file;
    uint32_t _tileWidth = 0;
    uint32_t _tileHeight = 0;
    bool _isInverted = false;
    std::vector<uchar> _tile;
    std::vector<uchar> _pixels; ///< One row of tiles or a strip, the channels of a pixel side by side.
    uint32_t _firstRow = 0;
};

std::optional<VipsInterpretation> interpretationOf(TIFF *file, int bands, bool has16Bits) {
    switch (KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_PHOTOMETRIC)) {
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_MINISWHITE:
        return has16Bits ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_B_W;
    case PHOTOMETRIC_RGB:
        if (bands < 3) return std::nullopt;
        return has16Bits ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB;
    case PHOTOMETRIC_SEPARATED:
        if (bands < 4) return std::nullopt;
        return VIPS_INTERPRETATION_CMYK;
    default:
        return std::nullopt;
    }
}

} // namespace

bool KVTIFFPlanes::needsReader(TIFF *file) {
    const bool isSeparate = KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE;
    const bool isGreyWithAlpha = KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_SAMPLESPERPIXEL) == 2;
    return isSeparate && (TIFFIsTiled(file) || isGreyWithAlpha);
}

std::optional<KVRowReader::Layout> KVTIFFPlanes::layout(TIFF *file) {
    constexpr int maximumBands = 64;
    const auto bits = KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_BITSPERSAMPLE);
    const auto sampleFormat = KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_SAMPLEFORMAT);
    if (!needsReader(file) || (bits != 8 && bits != 16) || sampleFormat != SAMPLEFORMAT_UINT)
        return std::nullopt;
    KVRowReader::Layout layout;
    const auto width = KVTIFFHandles::tag<uint32_t>(file, TIFFTAG_IMAGEWIDTH);
    const auto height = KVTIFFHandles::tag<uint32_t>(file, TIFFTAG_IMAGELENGTH);
    layout.bands = KVTIFFHandles::tag<uint16_t>(file, TIFFTAG_SAMPLESPERPIXEL);
    if (width < 1 || height < 1 || width > VIPS_MAX_COORD || height > VIPS_MAX_COORD || layout.bands < 1 ||
        layout.bands > maximumBands)
        throw std::runtime_error("The header of the picture is damaged.");
    layout.width = static_cast<int>(width);
    layout.height = static_cast<int>(height);
    layout.has16Bits = bits == 16;
    const auto interpretation = interpretationOf(file, layout.bands, layout.has16Bits);
    if (!interpretation) return std::nullopt;
    layout.interpretation = *interpretation;
    return layout;
}

std::unique_ptr<KVRowReader> KVTIFFPlanes::reader(const QString &path, const KVRowReader::Layout &layout) {
    return std::make_unique<PlanesReader>(path, layout);
}
