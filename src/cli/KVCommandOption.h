#pragma once

#include <QString>

/// One option of a subcommand.
struct KVCommandOption {
    QString name;      ///< Without the dashes.
    QString valueName; ///< What the help calls its value; empty for a switch.
    QString help;
    bool isRepeatable = false;
};

/// One word of the command line that is no option.
struct KVCommandArgument {
    QString text;           ///< For a word that is no UTF-8, with its other bytes written "\xNN".
    bool isReadable = true; ///< False for such a word: it cannot be used as a name.
};
