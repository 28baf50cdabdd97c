#pragma once

#include <QByteArray>

#include <vips/vips8>

/// A Photoshop document that holds one picture, for tests.
struct KVTestDocument {
    enum Mode { bitmap = 0, grey = 1, indexed = 2, rgb = 3, cmyk = 4, duotone = 8, lab = 9 };

    Mode mode = rgb;
    int depth = 8; ///< Of the picture below, 8 or 16; 1 and 32 are made of 8.
    bool isPacked = false;
    int numberOfLayers = 0; ///< Without their content.
    QByteArray channelNames;
    QByteArray palette;
    QByteArray blockKey{}; ///< Of four letters; empty: without the block behind the layers.
    QByteArray block{};

    /// The bands of `picture` are the channels, inks as the library has them.
    QByteArray content(const vips::VImage &picture) const;
};
