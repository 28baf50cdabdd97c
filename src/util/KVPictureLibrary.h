#pragma once

#include "kvcore/KVError.h"

#include <QImage>
#include <QString>

#include <optional>

/// The one door to the image library: makes it ready at the first use (about 50 ms, once) and answers simple
/// questions about pictures. Any thread.
namespace KVPictureLibrary {

/// Has to be called before anything else of the library is used directly. The library keeps no images between
/// calls, and its warnings go to the log.
void prepare();

/// What the library has to say about the latest failure, without line ends; forgotten with this call.
QString takeErrorText();

/// What stands in a picture's header.
struct Header {
    int width = 0; ///< Pixels, as the picture is looked at.
    int height = 0;
    int numberOfPages = 1; ///< Frames of an animation, pages of a document.
};

/// Reads the header without decoding the picture. The reason of an error is in the user's language.
KVResult<Header> header(const QString &path);

/// The picture, made smaller until no side is longer than `longestSide` pixels; nothing where it cannot be
/// read.
std::optional<QImage> reducedImage(const QString &path, int longestSide);

} // namespace KVPictureLibrary
