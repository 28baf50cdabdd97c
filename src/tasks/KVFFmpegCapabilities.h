#pragma once

#include <QSet>
#include <QString>

/// What the installed tool understands: the options that its full help lists.
struct KVFFmpegCapabilities {
    /// Names of options without their dash and without a stream specifier. Empty: nothing is known about the
    /// tool, and every option counts as known.
    QSet<QString> options;

    /// Those of them that every codec has: they may also be written with the letter of a medium in front
    /// ("vprofile").
    QSet<QString> codecOptions;

    bool operator==(const KVFFmpegCapabilities &) const = default;

    /// `option` as it stands in an argument list: "-c:a:0".
    bool isKnown(const QString &option) const;

    /// Reads the text of "-hide_banner -h full", of tool versions 4 to 8. A text that is no such help gives
    /// empty capabilities.
    static KVFFmpegCapabilities fromHelp(const QString &help);

    /// Those of the tool at `toolPath`. The tool is run once (about 75 ms); the answer is kept in memory and,
    /// with the tool's path, size and date, in the user's cache folder. A tool that cannot be asked has empty
    /// ones (the launch then tells what is wrong). Blocks. Any thread; the answer lives as long as the
    /// process.
    static const KVFFmpegCapabilities &of(const QString &toolPath);
};
