#include "util/picture/KVPictureHelper.h"

#include "kvcore/KVFileDescriptor.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "platform/KVChild.h"
#include "platform/KVResources.h"
#include "util/KVTempDirectory.h"

#include <QFile>
#include <QTemporaryFile>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <stdexcept>

#include <unistd.h>

using vips::VImage;

namespace {

constexpr const char *programName = "kalvora-picture";
constexpr quint64 maximumSeconds = 60;
std::atomic<std::chrono::milliseconds> maximumDuration{std::chrono::seconds(maximumSeconds)};

/// Sanitizers reserve terabytes of address space.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr quint64 maximumAddressSpace = 0;
#else
constexpr quint64 maximumAddressSpace = quint64{2} * 1024 * 1024 * 1024;
#endif

/// The program's own environment, but libraries start no threads: each takes address space.
QList<QByteArray> environmentOfHelper() {
    QList<QByteArray> variables;
    for (char **variable = ::environ; *variable; variable++)
        variables.append(*variable);
    variables.removeIf([](const QByteArray &variable) {
        return variable.startsWith("OMP_NUM_THREADS=") || variable.startsWith("MAGICK_THREAD_LIMIT=");
    });
    return variables << "OMP_NUM_THREADS=1"
                     << "MAGICK_THREAD_LIMIT=1";
}

/// What the child has printed; short.
QString textIn(const KVFileDescriptor &file) {
    QByteArray text(4096, '\0');
    const ssize_t size = ::pread(file.get(), text.data(), std::size_t(text.size()), 0);
    return QString::fromUtf8(text.first(std::max<ssize_t>(size, 0))).simplified();
}

struct Outcome {
    bool hasWorked = false;
    QString reason; ///< Empty if it worked.
};

Outcome failed(const QString &reason) {
    KVLog(QString(programName) + ": " + reason);
    return {false, reason};
}

Outcome run(const QList<QByteArray> &arguments, const std::stop_token &stop) {
    const KVFileDescriptor output = KVNamelessTempFile();
    if (!output.isValid()) return failed(KVPOSIXError(KVTempDirectoryPath(), errno).reason);
    KVChildPlan plan;
    plan.path = QFile::encodeName(KVResources::helperPath(programName));
    plan.arguments = arguments;
    plan.environment = environmentOfHelper();
    plan.standardOutput = output.get();
    plan.silencesError = true;
    plan.limits = {maximumAddressSpace, maximumSeconds};
    const auto child = KVChild::start(plan);
    if (!child)
        return failed(KVLocalizationCenter::localized("The helper program \"%@\" does not start: %@",
                                                      {QString(programName), child.error().reason}));

    const std::stop_callback end(stop, [&] { (*child)->send(SIGKILL); });
    const bool isInTime = (*child)->waitUntilExit(maximumDuration.load());
    if (!isInTime) {
        (*child)->send(SIGKILL);
        (*child)->waitUntilExit();
    }
    const int status = (*child)->status();
    if (stop.stop_requested()) return failed("It was cancelled.");
    if (isInTime && status == 0) return {true, {}};
    if (!isInTime || status == 128 + SIGXCPU)
        return failed(KVLocalizationCenter::localized("Reading it took too long."));
    const QString text = textIn(output);
    if (status == 1 && !text.isEmpty()) return failed(text);
    return failed(
        KVLocalizationCenter::localized("The helper program that reads it crashed or ran out of memory."));
}

} // namespace

VImage KVPictureHelper::image(const QString &path, const std::stop_token &stop) {
    QTemporaryFile file(KVTempDirectoryPath() + "/picture-XXXXXX.v");
    if (!file.open()) throw std::runtime_error(file.errorString().toStdString());
    const QByteArray name = QFile::encodeName(file.fileName());
    const Outcome outcome = run({QFile::encodeName(path), name}, stop);
    if (!outcome.hasWorked) throw std::runtime_error(outcome.reason.toStdString());
    return VImage::new_from_file(name.constData()); // keeps the file open; its name is removed now
}

std::optional<QString> KVPictureHelper::failureOf(const QString &path, const std::stop_token &stop) {
    const Outcome outcome = run({QFile::encodeName(path)}, stop);
    if (outcome.hasWorked) return std::nullopt;
    return outcome.reason;
}

void KVPictureHelper::setMaximumDuration(std::chrono::milliseconds duration) {
    maximumDuration = duration;
}
