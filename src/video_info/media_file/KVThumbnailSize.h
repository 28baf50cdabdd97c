#pragma once

/// Pixels of a thumbnail's longest side: a row's 64 points on a screen of double density.
inline constexpr int KVLongestThumbnailSide = 128;
