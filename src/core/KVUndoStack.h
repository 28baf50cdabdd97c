#pragma once

#include "kvcore/KVNotificationCenter.h"

#include <QString>

#include <deque>
#include <functional>

/// Posted on the main thread, with a null object, after every change of the stack.
inline constexpr KVNotificationName<void> KVUndoStackDidChange{"KVUndoStackDidChangeNotification"};

/// What the user did last and how to take it back, newest first. Keeps the last 100 steps. Main thread only.
class KVUndoStack {
  public:
    struct Step {
        QString title;              ///< What was done, for the menu: "Remove".
        QString message;            ///< For the bar in the window: "3 conversions removed"; empty for no bar.
        std::function<bool()> undo; ///< Takes it back; false if that is no longer possible.
    };

    static KVUndoStack &shared();

    void push(Step step);
    bool canUndo() const { return !_steps.empty(); }
    /// The title of the newest step; empty if there is none.
    QString title() const { return canUndo() ? _steps.back().title : QString(); }
    /// Takes back the newest step and drops it. False if there is none or if it can no longer be taken back.
    bool undo();
    void clear();

    /// What the bar in the window shows: the message of the step that was just pushed; empty once a step was
    /// taken back.
    QString message() const { return _message; }

  private:
    static void _announce();

    std::deque<Step> _steps;
    QString _message;
};
