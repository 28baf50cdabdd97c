#pragma once

#include <QString>

/// One value on offer, with the name that shows it.
template <class Value>
struct KVValueOption {
    QString name;
    Value value;
};
