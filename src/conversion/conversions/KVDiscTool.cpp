#include "conversion/conversions/KVDiscTool.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "platform/KVResources.h"

#include <QFileInfo>

KVDiscTool::KVDiscTool(const QString &name, const QString &package)
    : _package(package) {
    const auto path = KVResources::path(name);
    if (!path) KVFatalError("The resource " + name + " is missing.");
    _process.setLaunchPath(*path);
}

std::shared_ptr<KVFileHandle> KVDiscTool::launch() {
    auto handle = _process.setStandardError(KVProcess::Stream::pipe);
    const auto launched = _process.launch();
    if (!launched) {
        const QFileInfo tool(_process.launchPath());
        _output = tool.exists()
                      ? launched.error().reason
                      : KVLocalizationCenter::localized("%@ is not installed. Install the package \"%@\".",
                                                        {tool.fileName(), _package});
        return nullptr;
    }
    if (_wasKilled) _process.kill();
    return handle;
}

void KVDiscTool::read(KVFileHandle &handle, const std::function<void(const QString &)> &handleChunk) {
    while (_process.isRunning()) {
        const QByteArray chunk = handle.availableData();
        if (chunk.isEmpty()) return; // nothing more can come
        if (!chunk.isValidUtf8()) continue;
        const QString text = QString::fromUtf8(chunk);
        _output += text;
        handleChunk(text);
    }
}

int KVDiscTool::waitUntilExit() {
    _process.waitUntilExit();
    return _process.terminationStatus();
}

void KVDiscTool::kill() {
    _wasKilled = true;
    _process.kill();
}
