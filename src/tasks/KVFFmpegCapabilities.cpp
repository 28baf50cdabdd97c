#include "tasks/KVFFmpegCapabilities.h"

#include "tasks/KVFFmpegCapabilitiesCache.h"

#include <QRegularExpression>

bool KVFFmpegCapabilities::isKnown(const QString &option) const {
    if (options.isEmpty()) return true;
    const QString name = option.mid(1).section(':', 0, 0);
    if (options.contains(name)) return true;
    const bool hasMediumInFront = name.startsWith('v') || name.startsWith('a') || name.startsWith('s');
    return hasMediumInFront && codecOptions.contains(name.mid(1));
}

KVFFmpegCapabilities KVFFmpegCapabilities::fromHelp(const QString &help) {
    // "-ac channels", "-ac[:<stream_spec>] <channels>", "  -motion-est        <int>        E..V..."
    static const QRegularExpression optionLine(
        QStringLiteral("^ *-([A-Za-z][\\w-]*)(?:\\[:[^\\]]*\\])?(?: |$)"));
    KVFFmpegCapabilities capabilities;
    bool isCodecSection = false;
    for (const QStringView line : QStringView(help).split('\n')) {
        if (line.endsWith(QStringLiteral("AVOptions:")))
            isCodecSection = line == QStringLiteral("AVCodecContext AVOptions:");
        const auto match = optionLine.match(line);
        if (!match.hasMatch()) continue;
        capabilities.options.insert(match.captured(1));
        if (isCodecSection) capabilities.codecOptions.insert(match.captured(1));
    }
    if (capabilities.codecOptions.isEmpty()) return {};
    // Every version takes these, and no help tells of the first, nor that of 7 of the second.
    capabilities.options.unite({QStringLiteral("i"), QStringLiteral("s")});
    return capabilities;
}

const KVFFmpegCapabilities &KVFFmpegCapabilities::of(const QString &toolPath) {
    return KVFFmpegCapabilitiesCache::shared().capabilities(toolPath);
}
