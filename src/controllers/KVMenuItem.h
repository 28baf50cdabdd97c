#pragma once

#include <QString>

#include <functional>
#include <vector>

/// One entry of a menu, without a widget.
struct KVMenuItem {
    QString title = {};
    std::function<void()> action = {}; ///< Empty for a separator, a submenu and a disabled item.
    std::vector<KVMenuItem> submenu = {};
    QString toolTip = {};
    bool isOn = false;
    bool isEnabled = true;
    bool isSeparator = false;

    static KVMenuItem separator() {
        KVMenuItem item;
        item.isSeparator = true;
        return item;
    }
    static KVMenuItem disabled(const QString &title) {
        KVMenuItem item{.title = title};
        item.isEnabled = false;
        return item;
    }
    /// Disables the item and shows why as its tooltip; does nothing for an empty reason.
    void disableBecause(const QString &reason) {
        if (reason.isEmpty()) return;
        isEnabled = false;
        toolTip = reason;
    }
};

using KVMenu = std::vector<KVMenuItem>;
