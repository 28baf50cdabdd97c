#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <vector>

class KVOptionRoot;

using KVOptionList = std::vector<std::shared_ptr<KVOptionRoot>>;

/// How an option is best shown.
enum class KVOptionKind {
    number,     ///< A whole number: a slider beside a text field.
    choice,     ///< One of several named values: a pop-up.
    toggle,     ///< A check box titled with the name.
    size,       ///< A check box; while on, a width, a height and a further check box.
    percentage, ///< A check box; while on, a number and a percent sign.
};

inline constexpr int KVOptionViewsDefaultWidth = 300; ///< Points.
inline constexpr int KVOptionViewsDefaultHeight = 22;

/// One setting of a preset: its label, how it is read and how it is written. A front end walks the options of
/// a pane and shows a row for each; what it writes goes straight into the preset, with no apply step. Main
/// thread.
class KVOptionRoot {
  public:
    explicit KVOptionRoot(const QString &optionName)
        : name(optionName) {}
    virtual ~KVOptionRoot() = default;
    KVOptionRoot(const KVOptionRoot &) = delete;
    KVOptionRoot &operator=(const KVOptionRoot &) = delete;

    const QString name; ///< The label, localised, with its colon where it has one.

    virtual KVOptionKind kind() const = 0;

    /// A number as qint64; a toggle as bool; a choice as the name of the matching value, invalid where the
    /// preset holds a value that is not on offer.
    virtual QVariant value() const = 0;
    /// Writes into the preset: a number clamped to the limits (a text counts as its leading number, an empty
    /// one as 0), a toggle, or a choice by name. False, with nothing written, where there is no such choice.
    virtual bool setValue(const QVariant &value) = 0;

    /// Limits of a number.
    virtual qint64 minValue() const { return 0; }
    virtual qint64 maxValue() const { return 0; }
    /// Names of a choice, in the order in which they are offered.
    virtual QStringList allowedValueNames() const { return {}; }

    /// The further options of a size or percentage row: none while its check box is off.
    virtual KVOptionList details() const { return {}; }

    /// Height of the row in points.
    virtual int optionHeight() const { return KVOptionViewsDefaultHeight; }
};
