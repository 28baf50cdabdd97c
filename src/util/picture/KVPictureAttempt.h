#pragma once

#include <QString>

#include <functional>
#include <optional>

/// Why an operation of the image library failed. The library keeps one text for all failures in the program,
/// from whatever thread: it is only used if no other attempt ran meanwhile. No attempt waits for another one.
namespace KVPictureAttempt {

/// Calls `attempt` and returns the reason if the library throws. If the library's text may belong to another
/// attempt, `reasonElsewhere` is asked instead; it may be slow, and empty. Other exceptions pass through. Any
/// thread; never within an attempt.
std::optional<QString> failure(const std::function<void()> &attempt,
                               const std::function<QString()> &reasonElsewhere = {});

/// Some readers only warn of what makes them fail: then the first warning of the attempt is the reason.
void noteWarning(const QString &text);

} // namespace KVPictureAttempt
