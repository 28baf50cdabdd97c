#pragma once

/// The threads of an encoder: the processors that this process may run on times `multiplier`, `maximum` at
/// most, halved or quartered by the processor setting, and at least 1.
int KVThreadCount(int maximum, int multiplier);

namespace KVProcessInfo {
int processorCount();       ///< Processors that the machine has.
int activeProcessorCount(); ///< Processors that this process may run on.
} // namespace KVProcessInfo
