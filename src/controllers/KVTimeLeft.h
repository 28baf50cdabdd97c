#pragma once

#include "queues/KVConversionQueue.h"

#include <vector>

/// The time that the work of all queues still takes, as the text of the overall progress. Knows no widget.
namespace KVTimeLeft {

/// A row that runs, is paused or waits.
struct Row {
    bool isWaiting = false;
    double secondsOfMedia = 0; ///< Duration of all files; 0 if it is not known, as of pictures.
    double secondsLeft = 0;    ///< Of a row that has started; infinite or undefined values are possible.
    double progress = 0;       ///< Of the present task, from 0 to 1.
    int numberOfTasks = 1;
};

/// What one queue does.
struct Queue {
    bool isWorking = false;  ///< Waiting rows will be started.
    int numberOfWorkers = 1; ///< Rows that run at once; at least 1.
    std::vector<Row> rows;   ///< Without finished rows, in the order of their turns.
};

/// The largest time left of all rows if none waits. Otherwise "About 5 min for all 8 files" if all waiting
/// rows will be started and the speed of the rows that run is known; "Current files: 34 sec, 3 more waiting"
/// if not.
QString text(const std::vector<Queue> &queues);

/// The same for the program's own queues. Main thread.
QString text();

/// How long the queue works until its last row is done, if every waiting row is converted as fast, for its
/// duration, as those that run now. Empty if that is not known.
std::optional<double> estimate(const Queue &queue);

} // namespace KVTimeLeft
