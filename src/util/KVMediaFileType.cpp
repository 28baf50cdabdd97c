#include "util/KVMediaFileType.h"

#include "kvcore/KVLocalizationCenter.h"

namespace {

struct Names {
    const char *caseName;
    const char *displayName;
};

constexpr std::array names{Names{"none", "None"}, Names{"audio", "Audio"}, Names{"video", "Video"},
                           Names{"picture", "Picture"}, Names{"dvd", "DVD"}};

const Names &namesOf(KVMediaFileType type) {
    return names.at(static_cast<std::size_t>(type));
}

} // namespace

QString KVMediaFileTypes::localizedName(KVMediaFileType type) {
    return KVLocalizationCenter::localized(namesOf(type).displayName);
}

QString KVMediaFileTypes::caseName(KVMediaFileType type) {
    return QString::fromLatin1(namesOf(type).caseName);
}

std::optional<KVMediaFileType> KVMediaFileTypes::fromCaseName(const QString &name) {
    for (const KVMediaFileType type : allTypes)
        if (caseName(type) == name) return type;
    return std::nullopt;
}
