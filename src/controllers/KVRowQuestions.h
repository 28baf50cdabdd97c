#pragma once

#include "queues/KVConversionQueue.h"

/// The questions that come before a command on rows. Main thread.
namespace KVRowQuestions {

/// Asks before running rows are stopped, unless the user does not want that. True to go on; with no running
/// row among them at once.
bool mayStop(const KVConversionQueue::List &rows);
/// Asks before more than five files become one output. True to go on.
bool mayMerge(qsizetype numberOfFiles);
bool mayMakeDVD(qsizetype numberOfFiles);
/// Shows why a command changed nothing; does nothing for an empty reason.
void explain(const QString &reason);

qsizetype numberOfFiles(const KVConversionQueue::List &rows);

} // namespace KVRowQuestions
