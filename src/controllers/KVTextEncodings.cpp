#include "controllers/KVTextEncodings.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/video/base/KVSubtitlesFile.h"

#include <QHash>

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

struct Script {
    const char *encoding; ///< As ICU spells it, without regard to case.
    const char *name;
};

// What an encoding is used for; encodings that are not listed show their bare name.
constexpr std::array scripts{
    Script{"UTF-8", "Unicode"},
    Script{"UTF-16", "Unicode"},
    Script{"UTF-16BE", "Unicode"},
    Script{"UTF-16LE", "Unicode"},
    Script{"UTF-32", "Unicode"},
    Script{"US-ASCII", "Western"},
    Script{"ISO-8859-1", "Western"},
    Script{"ISO-8859-15", "Western"},
    Script{"windows-1252", "Western"},
    Script{"macintosh", "Western"},
    Script{"ISO-8859-2", "Central European"},
    Script{"windows-1250", "Central European"},
    Script{"ISO-8859-5", "Cyrillic"},
    Script{"windows-1251", "Cyrillic"},
    Script{"KOI8-R", "Cyrillic"},
    Script{"KOI8-U", "Cyrillic"},
    Script{"IBM866", "Cyrillic"},
    Script{"x-mac-cyrillic", "Cyrillic"},
    Script{"ISO-8859-7", "Greek"},
    Script{"windows-1253", "Greek"},
    Script{"ISO-8859-9", "Turkish"},
    Script{"windows-1254", "Turkish"},
    Script{"ISO-8859-8", "Hebrew"},
    Script{"windows-1255", "Hebrew"},
    Script{"ISO-8859-6", "Arabic"},
    Script{"windows-1256", "Arabic"},
    Script{"ISO-8859-4", "Baltic"},
    Script{"ISO-8859-13", "Baltic"},
    Script{"windows-1257", "Baltic"},
    Script{"windows-1258", "Vietnamese"},
    Script{"TIS-620", "Thai"},
    Script{"windows-874", "Thai"},
    Script{"GB2312", "Simplified Chinese"},
    Script{"GBK", "Simplified Chinese"},
    Script{"GB18030", "Simplified Chinese"},
    Script{"Big5", "Traditional Chinese"},
    Script{"Shift_JIS", "Japanese"},
    Script{"EUC-JP", "Japanese"},
    Script{"ISO-2022-JP", "Japanese"},
    Script{"EUC-KR", "Korean"},
};

QString localizedNameOf(const QString &encoding) {
    const auto script = std::ranges::find_if(scripts, [&](const Script &entry) {
        return encoding.compare(QLatin1String(entry.encoding), Qt::CaseInsensitive) == 0;
    });
    if (script == scripts.end()) return encoding;
    return QStringLiteral("%1 (%2)").arg(KVLocalizationCenter::localized(script->name), encoding);
}

/// The names by which encodings are known on the network; those that have none are of no use in a file of
/// subtitles.
QStringList encodingNames() {
    QStringList names;
    for (int32_t index = 0; index < ucnv_countAvailable(); ++index) {
        UErrorCode status = U_ZERO_ERROR;
        const char *name = ucnv_getStandardName(ucnv_getAvailableName(index), "MIME", &status);
        if (U_SUCCESS(status) && name) names.append(QString::fromLatin1(name));
    }
    for (const Script &script : scripts)
        if (!names.contains(QLatin1String(script.encoding), Qt::CaseInsensitive))
            names.append(QString::fromLatin1(script.encoding));
    return names;
}

/// The lines with characters beyond ASCII; time codes and markup say nothing about the encoding. The whole
/// text if it does not consist of such bytes.
QByteArray tellingLines(const QByteArray &text) {
    if (text.contains('\0') || text.contains('\x1b')) return text; // UTF-16, ISO-2022
    QByteArray lines;
    for (const QByteArray &line : text.split('\n'))
        if (std::ranges::any_of(line, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; }))
            lines += line + '\n';
    return lines.isEmpty() ? text : lines;
}

/// How sure detection is, from 0 to 100, by lower-cased name.
QHash<QString, int> likelihoods(const QByteArray &wholeText) {
    const QByteArray text = tellingLines(wholeText);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&status),
                                                                              &ucsdet_close);
    ucsdet_setText(detector.get(), text.constData(), static_cast<int32_t>(text.size()), &status);
    int32_t count = 0;
    const UCharsetMatch **matches = ucsdet_detectAll(detector.get(), &count, &status);
    QHash<QString, int> likelihoods;
    for (int32_t index = 0; U_SUCCESS(status) && index < count; ++index) {
        const QString name = QString::fromLatin1(ucsdet_getName(matches[index], &status)).toLower();
        likelihoods[name] = std::max(likelihoods[name], int(ucsdet_getConfidence(matches[index], &status)));
    }
    return likelihoods;
}

} // namespace

QList<KVTextEncoding> KVTextEncodingsThatDecode(const QByteArray &text, bool isWhole,
                                                const std::function<bool()> &isUnwanted) {
    const QHash<QString, int> likely = likelihoods(text);
    QList<KVTextEncoding> encodings;
    for (const QString &name : encodingNames()) {
        if (isUnwanted && isUnwanted()) return {};
        if (isWhole ? !KVSubtitlesFile::decoded(text, name) : !KVSubtitlesFile::decodedBeginning(text, name))
            continue;
        encodings.append({name, localizedNameOf(name), likely.value(name.toLower())});
    }
    std::ranges::sort(encodings, [](const auto &a, const auto &b) {
        return QString::localeAwareCompare(a.localizedName, b.localizedName) < 0;
    });
    return encodings;
}

QList<KVTextEncoding> KVTextEncodingsByLikelihood(const QByteArray &text) {
    const QHash<QString, int> likely = likelihoods(text);
    QList<KVTextEncoding> encodings;
    for (const QString &name : encodingNames())
        if (const int likelihood = likely.value(name.toLower()); likelihood > 0)
            encodings.append({name, localizedNameOf(name), likelihood});
    std::ranges::stable_sort(encodings, std::ranges::greater(), &KVTextEncoding::likelihood);
    return encodings;
}
