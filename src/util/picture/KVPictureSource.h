#pragma once

#include "util/KVOpenedPicture.h"

#include <vips/vips8>

#include <stop_token>

/// A picture file that has been opened: its header is known, nothing is decoded. The kind is told by the
/// content, never by the name. Of several frames or pages it is the first.
///
/// For sources that work with the image library directly; its errors are exceptions and stay among them.
class KVPictureSource {
  public:
    /// Larger pictures are refused as soon as their header is read: 20,000 x 20,000 passes, a few kilobytes
    /// that claim to be billions of pixels do not.
    static constexpr qint64 maximumPixels = 500'000'000;

    /// The reason of the error is in the user's language. Any thread. Takes seconds for the rare kinds that a
    /// helper program reads, which ends when `stop` is requested.
    static KVResult<KVPictureSource> open(const QString &path, const std::stop_token &stop = {});

    /// The same, but throws the library's errors and std::runtime_error.
    explicit KVPictureSource(const QString &path, const std::stop_token &stop = {});

    /// Why the helper program cannot decode the file, in English. Empty if it can.
    static QString reasonElsewhere(const QString &path, const std::stop_token &stop);

    /// True where a picture of this size may be read or made.
    static bool isWithinLimit(const KVSize &size);
    /// "... cannot be read" for that reason, in the user's language.
    static KVError unreadable(const QString &detail);
    /// "... is too large" for the size, in the user's language.
    static KVError tooLarge(const KVSize &size);
    /// The format of a result allows no side longer than `maximumSide` pixels; in the user's language.
    static KVError tooLong(const KVSize &size, double maximumSide);

    const QString &path() const { return _path; }

    /// Pixels, as the picture is looked at.
    KVSize uprightSize() const;

    /// Frames of an animation, pages of a document. Reads the headers of all pages.
    int numberOfPages() const;

    /// The picture as it is stored, to be read once from top to bottom.
    const vips::VImage &image() const { return _image; }

    /// The same, already smaller where the reader can make it so at less cost. `factor` is by how much the
    /// caller will shrink it; it leaves at least half of that to the caller's better filter. Throws the
    /// library's errors, also where `stop` is requested.
    vips::VImage imageToShrink(double factor, const std::stop_token &stop = {}) const;

    /// From 1 to 8: how the stored picture is turned or mirrored.
    static int orientation(const vips::VImage &image);

  private:
    vips::VImage _read();

    QString _path;
    bool _isTIFF = false;
    bool _isJPEG = false;
    vips::VImage _image;
};
