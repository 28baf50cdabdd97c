#pragma once

#include "util/KVSizeFitting.h"

#include <QList>
#include <QString>

/// The filter that joins the pictures of several inputs into "[v]" and, with audio, their sound into "[a]".
/// `sizes` are those of the inputs in order; one that differs from `target` is scaled into it and padded.
QString KVStitchingFilter(const QList<KVSize> &sizes, const KVSize &target, bool hasAudio);
