#pragma once

#include <functional>

/// The way to the main thread: Qt's event loop. Blocks wait until an application object exists, which has to
/// live on the program's first thread.
namespace KVMainThread {

/// True on the program's first thread.
bool isCurrent();

/// Runs `block` on the main thread later; never waits. Blocks run in the order in which they were handed
/// over.
void async(std::function<void()> block);

/// Runs `block` at once when already on the main thread, else there, and waits for it.
void syncOrNow(const std::function<void()> &block);

/// Runs `block` on the main thread `seconds` from now.
void after(double seconds, std::function<void()> block);

/// Main thread only: runs the event loop until `isDone` answers true or `seconds` have passed; answers
/// `isDone()`. `isDone` is asked anew after every event that the loop handles, and no time is spent between
/// events: what another thread changes has to come through `async` to be seen at once.
bool runUntil(const std::function<bool()> &isDone, double seconds);

} // namespace KVMainThread
