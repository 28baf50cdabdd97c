#pragma once

#include "kvcore/KVError.h"

#include <QHash>
#include <QSet>
#include <QString>

/// What the installed tool understands: the options that its full help lists.
struct KVFFmpegCapabilities {
    /// Options without their dash and without a stream specifier; the value tells whether a value follows.
    QHash<QString, bool> options;

    bool isKnown(const QString &option) const;

    /// Reads the text of "-hide_banner -h full", of tool versions 4 to 8.
    static KVFFmpegCapabilities fromHelp(const QString &help);

    /// Those of the tool at `toolPath`. The tool is run once (about 75 ms); the answer is kept in memory and,
    /// with the tool's path, size and date, in the user's cache folder. With a tool that cannot be asked
    /// everything counts as known (the launch then tells what is wrong). Blocks. Any thread.
    static const KVFFmpegCapabilities &of(const QString &toolPath);
};
