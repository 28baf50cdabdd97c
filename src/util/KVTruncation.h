#pragma once

#include <QtGlobal>

/// `value` as a whole number, truncated toward zero. One that is undefined, infinite or does not fit 64 bits
/// is a fatal fault; `what` names it in the message.
qint64 KVTruncated(double value, const char *what);
