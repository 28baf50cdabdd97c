#pragma once

#include "util/KVOpenedPicture.h"

/// The one door to the image library. That brings eighty other libraries, and no start has to wait for them:
/// they are loaded at the first use. Any thread.
namespace KVPictureLibrary {

/// Loads the library and makes it ready (about 100 ms, once), so that the first picture need not wait.
void prepare();

/// The reason of an error is in the user's language.
KVResult<std::unique_ptr<KVOpenedPicture>> open(const QString &path, const std::stop_token &stop = {});

/// What stands in a picture's header.
struct Header {
    int width = 0; ///< Pixels, as the picture is looked at.
    int height = 0;
    int numberOfPages = 1; ///< Frames of an animation, pages of a document.
};

/// Reads the header without decoding the picture. Failures also go to the log.
KVResult<Header> header(const QString &path, const std::stop_token &stop = {});

/// The picture, made smaller until no side is longer than `longestSide` pixels. Failures also go to the log.
KVResult<QImage> reducedImage(const QString &path, int longestSide, const std::stop_token &stop = {});

} // namespace KVPictureLibrary
