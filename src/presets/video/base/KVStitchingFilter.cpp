#include "presets/video/base/KVStitchingFilter.h"

#include "util/KVWholeNumber.h"

#include <cmath>

namespace {

QString text(double pixels) {
    return QString::number(KVWholeNumber(pixels));
}

KVSize sizeWithin(const KVSize &size, const KVSize &target) {
    const bool fillsHeight = size.width / size.height <= target.width / target.height;
    return KVSizeFitting::integral(fillsHeight
                                       ? KVSize{target.height / size.height * size.width, target.height}
                                       : KVSize{target.width, target.width / size.width * size.height});
}

/// "scale=width=960:height=720, pad=1280:720:160:0"
QString scalingChain(const KVSize &size, const KVSize &target) {
    const KVSize scaled = sizeWithin(size, target);
    QString chain = "scale=width=" + text(scaled.width) + ":height=" + text(scaled.height);
    if (scaled == target) return chain;
    const auto margin = [](double outer, double inner) { return text(std::floor((outer - inner) * 0.5)); };
    return chain + ", pad=" + text(target.width) + ":" + text(target.height) + ":" +
           margin(target.width, scaled.width) + ":" + margin(target.height, scaled.height);
}

} // namespace

QString KVStitchingFilter(const QList<KVSize> &sizes, const KVSize &target, bool hasAudio) {
    QString chains;
    QString inputs;
    int label = 1;
    for (qsizetype i = 0; i < sizes.size(); ++i) {
        const QString index = QString::number(i);
        if (sizes[i] == target) {
            inputs += "[" + index + ":v:0] ";
        } else {
            const QString name = "[v" + QString::number(label++) + "]";
            chains += "[" + index + ":v]" + scalingChain(sizes[i], target) + name + "; ";
            inputs += name + " ";
        }
        if (hasAudio) inputs += "[" + index + ":a:0] ";
    }
    return chains + inputs + "concat=n=" + QString::number(sizes.size()) + ":v=1" +
           (hasAudio ? ":a=1:unsafe=1 [v] [a]" : ":unsafe=1 [v]");
}
