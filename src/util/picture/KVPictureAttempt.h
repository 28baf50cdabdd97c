#pragma once

#include <QString>

#include <functional>
#include <optional>

/// What the image library has to say where it fails. It keeps one text for all that fails in the program,
/// from whatever thread: pictures that fail at the same time would tell of each other's faults.
namespace KVPictureAttempt {

/// Calls `attempt`, and where the library throws in it, answers the reason. Where other pictures failed
/// meanwhile, `attempt` is called once more, while no other one runs; so it has to be able to start anew.
/// Exceptions that are not the library's pass through. Any thread; never within an attempt.
std::optional<QString> failure(const std::function<void()> &attempt);

/// Some readers only warn of what makes them fail: then the first warning of the attempt is the reason.
void noteWarning(const QString &text);

} // namespace KVPictureAttempt
