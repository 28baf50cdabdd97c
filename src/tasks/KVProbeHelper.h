#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

/// Probes files in the helper program `kalvora-probe`, which is linked with libavformat. It is started at the
/// first call and used again, so that a probe takes about a millisecond, where starting `ffmpeg` takes 50 or
/// more. At most four run at once; each exits after ten seconds without work, or with this program. Any
/// thread.
namespace KVProbeHelper {

/// Returns what `ffmpeg -i PATH` prints about the file at the absolute path. Blocks. Empty if the helper is
/// missing, crashed or took longer than five seconds; the next call starts another one.
std::optional<QByteArray> probe(const QString &path);

/// Ends the helpers that have nothing to do.
void endIdleHelpers();

/// How long one probe may take. For tests.
void setMaximumDuration(std::chrono::milliseconds duration);

} // namespace KVProbeHelper
