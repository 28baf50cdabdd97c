#include "tasks/KVFFmpegCapabilitiesCache.h"

#include "kvcore/KVLog.h"
#include "platform/KVProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

#include <chrono>
#include <condition_variable>
#include <thread>

#include <sys/stat.h>

namespace {

/// Far more than any tool needs for its help.
constexpr std::chrono::seconds patience{10};

/// Kills a process that has not ended in time.
class Watchdog {
  public:
    explicit Watchdog(KVProcess &process)
        : _thread([this, &process] {
            std::unique_lock lock(_mutex);
            if (!_ended.wait_for(lock, patience, [this] { return _hasEnded; })) process.kill();
        }) {}
    ~Watchdog() {
        {
            const std::scoped_lock lock(_mutex);
            _hasEnded = true;
        }
        _ended.notify_all();
        _thread.join();
    }

  private:
    std::mutex _mutex;
    std::condition_variable _ended;
    bool _hasEnded = false;
    std::thread _thread; // last: it uses the others
};

QJsonArray sorted(const QSet<QString> &names) {
    QStringList list(names.begin(), names.end());
    list.sort();
    return QJsonArray::fromStringList(list);
}

QSet<QString> nameSet(const QJsonValue &array) {
    QSet<QString> names;
    for (const auto &name : array.toArray())
        if (name.isString()) names.insert(name.toString());
    return names;
}

} // namespace

KVFFmpegCapabilitiesCache &KVFFmpegCapabilitiesCache::shared() {
    static auto &cache = *new KVFFmpegCapabilitiesCache;
    return cache;
}

const KVFFmpegCapabilities &KVFFmpegCapabilitiesCache::capabilities(const QString &toolPath) {
    const std::scoped_lock lock(_mutex); // whoever asks meanwhile waits for the one answer
    const auto tool = _toolAt(toolPath);
    if (!tool) return _known[Tool()];
    if (const auto known = _known.find(*tool); known != _known.end()) return known->second;
    if (auto kept = _read(*tool)) return _known[*tool] = std::move(*kept);

    const KVFFmpegCapabilities &answer = _known[*tool] = _ask(*tool);
    if (!answer.options.isEmpty()) _write(*tool, answer);
    return answer;
}

QString KVFFmpegCapabilitiesCache::filePath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           "/kalvora/ffmpeg-options.json";
}

std::optional<KVFFmpegCapabilitiesCache::Tool> KVFFmpegCapabilitiesCache::_toolAt(const QString &path) {
    // The resource is a link: what it leads to is what an update of the system changes.
    const QString real = QFileInfo(path).canonicalFilePath();
    struct stat status {};
    if (real.isEmpty() || ::stat(QFile::encodeName(real).constData(), &status) != 0) return std::nullopt;
    const qint64 modified = qint64(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
    return Tool{real, qint64(status.st_size), modified};
}

KVFFmpegCapabilities KVFFmpegCapabilitiesCache::_ask(const Tool &tool) {
    KVProcess process;
    process.setLaunchPath(tool.path);
    process.setArguments({"-hide_banner", "-h", "full"});
    process.setEnvironment({});
    process.setStandardError(KVProcess::Stream::nullDevice);
    const auto output = process.setStandardOutput(KVProcess::Stream::pipe);
    if (!process.launch()) return {};
    const Watchdog watchdog(process);
    QByteArray help;
    for (QByteArray part = output->availableData(); !part.isEmpty(); part = output->availableData())
        help += part;
    process.waitUntilExit();
    auto capabilities = KVFFmpegCapabilities::fromHelp(QString::fromUtf8(help));
    KVLog(QStringLiteral("%1 lists %2 options").arg(tool.path).arg(capabilities.options.size()));
    return capabilities;
}

std::optional<KVFFmpegCapabilities> KVFFmpegCapabilitiesCache::_read(const Tool &tool) {
    QFile file(filePath());
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QJsonObject kept = QJsonDocument::fromJson(file.readAll()).object();
    // The numbers are kept as texts: nanoseconds do not fit into a JSON number.
    const Tool keptTool{kept["path"].toString(), kept["size"].toString().toLongLong(),
                        kept["modified"].toString().toLongLong()};
    KVFFmpegCapabilities capabilities{nameSet(kept["options"]), nameSet(kept["codecOptions"])};
    if (keptTool != tool || capabilities.options.isEmpty() || capabilities.codecOptions.isEmpty())
        return std::nullopt;
    return capabilities;
}

void KVFFmpegCapabilitiesCache::_write(const Tool &tool, const KVFFmpegCapabilities &capabilities) {
    const QJsonObject kept{{"path", tool.path},
                           {"size", QString::number(tool.size)},
                           {"modified", QString::number(tool.modified)},
                           {"options", sorted(capabilities.options)},
                           {"codecOptions", sorted(capabilities.codecOptions)}};
    QDir().mkpath(QFileInfo(filePath()).path());
    QSaveFile file(filePath());
    const QByteArray content = QJsonDocument(kept).toJson(QJsonDocument::Compact);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        KVLog("Could not keep the tool's options: " + file.errorString());
}
