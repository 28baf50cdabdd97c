#include "kvcore/KVError.h"

#include <cstring>

QString KVError::kind() const {
    return userInfo.value(KVErrorKindKey).toString();
}

KVError KVPOSIXError(const QString &what, int errnoValue) {
    return {KVPOSIXErrorDomain,
            errnoValue,
            QStringLiteral("%1: %2").arg(what, QString::fromLocal8Bit(std::strerror(errnoValue))),
            {}};
}
