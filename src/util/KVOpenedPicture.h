#pragma once

#include "kvcore/KVError.h"
#include "util/KVSizeFitting.h"
#include "util/picture/KVImageFileType.h"

#include <QImage>
#include <QVariantMap>

#include <memory>
#include <optional>
#include <stop_token>

class KVHiddenOutput;

inline const QString KVPictureErrorDomain = QStringLiteral("KVPictureErrorDomain");

/// A picture file that has been opened: its header is known, nothing is decoded. Any thread, one at a time.
class KVOpenedPicture {
  public:
    virtual ~KVOpenedPicture() = default;

    /// Pixels, as the picture is looked at.
    virtual KVSize uprightSize() const = 0;
    /// Frames of an animation, pages of a document.
    virtual int numberOfPages() const = 0;

    /// Made smaller until no side is longer than `longestSide` pixels.
    virtual KVResult<QImage> reducedImage(int longestSide, const std::stop_token &stop) const = 0;

    /// Why no file of this kind can hold a picture of this size, in the user's language.
    virtual std::optional<KVError> objectionTo(const KVSize &size, KVImageFileType type) const = 0;
    /// Scales to `size` and encodes, told by the keys of KVImageFileType.h, until `stop` is requested.
    /// Answers what went wrong; whether it was the output, the output knows.
    virtual std::optional<QString> write(const KVSize &size, KVImageFileType type,
                                         const QVariantMap &properties, KVHiddenOutput &output,
                                         const std::stop_token &stop) const = 0;
};

/// What works with the image library. It stands in a shared library of its own.
class KVPictureModule {
  public:
    /// The shared library's one function gives it.
    static constexpr const char *doorName = "kvPictureModule";
    using Door = KVPictureModule *();

    virtual ~KVPictureModule() = default;

    /// Makes the image library ready; later calls do nothing.
    virtual void prepare() = 0;
    /// The reason of the error is in the user's language. The rare kinds that a helper program reads take
    /// longer, until `stop` is requested.
    virtual KVResult<std::unique_ptr<KVOpenedPicture>> open(const QString &path,
                                                            const std::stop_token &stop) = 0;
};
