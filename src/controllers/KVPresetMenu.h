#pragma once

#include "controllers/KVMenuItem.h"
#include "queues/KVConversionQueue.h"

/// The choice of a preset in the menu of rows. Main thread.
namespace KVPresetMenu {

/// The item "Preset" for rows of one queue, at least one: the queue's preset and all that can merge. What all
/// rows have is checked; what a row cannot have is disabled and says why.
KVMenuItem itemForRows(const KVConversionQueue::List &rows);

} // namespace KVPresetMenu
