#pragma once

#include "cli/KVConsole.h"

#include <QList>

#include <chrono>
#include <memory>

class KVConversion;

/// Paints the progress of a run on the terminal: one line for each running conversion and one for the whole.
/// Painted at a modest pace, and only when something happened. Main thread.
class KVProgressDisplay : public std::enable_shared_from_this<KVProgressDisplay> {
  public:
    explicit KVProgressDisplay(KVConsole &console);

    void add(const std::shared_ptr<KVConversion> &conversion);
    void remove(const std::shared_ptr<KVConversion> &conversion);
    void setCounts(qsizetype finished, qsizetype all, bool isMoreToCome);

    /// Something changed: paints now, or as soon as the pace allows.
    void update();
    /// Takes the lines off the terminal for good.
    void end();

  private:
    using Clock = std::chrono::steady_clock;

    void _paint();
    QString _lineOf(const KVConversion &conversion) const;
    QString _totalLine() const;

    KVConsole &_console;
    const Clock::time_point _start = Clock::now();
    Clock::time_point _lastPainted;
    bool _isPaintScheduled = false;
    bool _isEnded = false;
    QList<std::shared_ptr<KVConversion>> _running;
    qsizetype _finished = 0;
    qsizetype _all = 0;
    bool _isMoreToCome = false;
};
