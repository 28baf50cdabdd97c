#pragma once

#include <QString>
#include <QVariantMap>

#include <tl/expected.hpp>

/// An error of the media layer: nothing is thrown across folders, an operation that can fail answers a
/// KVResult.
struct KVError {
    QString domain;
    int code = 0;
    QString reason;       ///< Why it failed, in the user's language.
    QVariantMap userInfo; ///< Further facts, by the keys below.

    /// The fixed word of `KVErrorKindKey`; empty if there is none.
    QString kind() const;

    bool operator==(const KVError &) const = default;
};

/// Key of `KVError::userInfo`: what the failure is about, such as the whole text that a tool printed.
inline const QString NSAffectedObjectsErrorKey = QStringLiteral("NSAffectedObjectsErrorKey");

/// Key of `KVError::userInfo`: a fixed word by which code recognises an error. The reason is for the user and
/// depends on the language.
inline const QString KVErrorKindKey = QStringLiteral("KVErrorKind");

/// Domain of errors that the operating system reports; the code is the value of `errno`.
inline const QString KVPOSIXErrorDomain = QStringLiteral("KVPOSIXErrorDomain");

template <class T>
using KVResult = tl::expected<T, KVError>;

/// An error of KVPOSIXErrorDomain for `errnoValue`, its reason "<what>: <the system's text>".
KVError KVPOSIXError(const QString &what, int errnoValue);
