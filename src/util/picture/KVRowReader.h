#pragma once

#include <vips/vips8>

#include <atomic>
#include <memory>

/// Decodes the rows of one picture file for the image library, which calls it on its threads, several at
/// once.
class KVRowReader {
  public:
    virtual ~KVRowReader() = default;

    /// What the rows are made of.
    struct Layout {
        int width = 0; ///< Pixels.
        int height = 0;
        int bands = 3;
        bool has16Bits = false; ///< For a channel; else 8.
        VipsInterpretation interpretation = VIPS_INTERPRETATION_sRGB;
        double horizontalResolution = 1; ///< Pixels per millimetre.
        double verticalResolution = 1;
    };

    /// Writes the part of the picture that `region` holds. False if the file is damaged or ends too early.
    virtual bool read(VipsRegion *region) = 0;

    /// The picture that `reader` decodes when its pixels are needed. Throws the library's errors.
    static vips::VImage picture(const Layout &layout, std::unique_ptr<KVRowReader> reader);

  private:
    static int _generate(VipsRegion *region, void *sequence, void *client, void *unused, gboolean *stop);

    std::atomic<bool> _isReady = false; ///< The library's threads get a finished object.
};
