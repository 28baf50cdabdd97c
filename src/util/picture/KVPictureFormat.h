#pragma once

/// What a kind of picture file can hold.
struct KVPictureFormat {
    double maximumSide; ///< Pixels.
    bool holdsTransparency;
    bool holdsProfile; ///< A colour profile; without one the colours have to be sRGB.
    bool holds16Bits;  ///< For a channel; else 8.
    bool holdsCMYK;
};
