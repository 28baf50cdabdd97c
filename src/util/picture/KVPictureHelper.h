#pragma once

#include <QString>

#include <vips/vips8>

#include <chrono>
#include <optional>
#include <stop_token>

/// Reads pictures in a child process, which may crash, hang or run out of memory without harm to the program.
/// Any thread; blocks until the child has exited. A child is killed when `stop` is requested.
namespace KVPictureHelper {

/// The picture as it is stored, with its metadata. It is held on disk, in a file without a name. Throws
/// std::runtime_error with the reason if there is none.
vips::VImage image(const QString &path, const std::stop_token &stop);

/// Why the picture cannot be decoded. Empty if it can or if there is no answer.
std::optional<QString> failureOf(const QString &path, const std::stop_token &stop);

/// How long a child may take; 60 seconds without a call. For tests.
void setMaximumDuration(std::chrono::milliseconds duration);

} // namespace KVPictureHelper
