#pragma once

#include "controllers/KVFileIntake.h"

/// The application's root object: takes files in and does what the commands on all queues ask. Knows no
/// widget, so that the command line uses it as it is. Main thread, except where KVFileIntake says otherwise.
class KVKalvoraAppDelegate : public KVFileIntake {
  public:
    /// Makes one conversion of all waiting ones, in each queue that has two or more and whose preset can
    /// merge.
    void mergeAll();
};
