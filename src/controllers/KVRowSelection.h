#pragma once

#include "controllers/KVConversionTableRow.h"

/// Several rows of the queue table at once: their menu and their actions, without a widget. Holds nothing but
/// the conversions. Main thread only.
class KVRowSelection {
  public:
    using List = KVConversionQueue::List;

    /// In the order of the table.
    KVRowSelection(List conversions, std::shared_ptr<KVConversionRowServices> services);

    const List &conversions() const { return _conversions; }
    bool isEmpty() const { return _conversions.isEmpty(); }

    /// For one row its own menu; for several what can be done with all or some of them.
    KVMenu menu() const;

    /// Starts the waiting rows: at once as many as may run together, the others when these have ended.
    void start() const;
    void pause() const;
    void resume() const;
    /// Tries the failed rows again, started in the same way.
    void tryAgain() const;
    /// Adds the files of the ended rows again as new rows, and removes the ended ones.
    void addAgain() const;
    /// Removes all rows. Asks first if one of them is executing and the preference says so.
    void remove() const;
    /// Moves the rows that are of the first one's type together by one place; `direction` is -1 or 1.
    void move(int direction) const;
    /// Makes one row of all of them.
    void merge() const;

  private:
    List _inState(KVConversionState state) const;
    List _failed() const;
    KVMenu _stateItems() const;
    KVMenu _presetItems() const;
    KVMenuItem _mergeItem() const;
    template <void (KVRowSelection::*action)() const>
    KVMenuItem _item(const char *title) const;

    List _conversions;
    std::shared_ptr<KVConversionRowServices> _services;
};
