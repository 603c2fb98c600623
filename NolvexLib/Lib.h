// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Function.h"

namespace Nolvex::Lib {

/// Before everything else. May be called again, each time with a shutdown of its own; the thread of the first
/// call is the main thread.
NOLVEXLIB_EXPORT void startup();

/// The last one, as many as there were startups, destroys what still waits for the main thread without
/// running it. One too many does nothing.
NOLVEXLIB_EXPORT void shutdown();

/// Has a function run by the main thread when it next processes its events; in the order posted. Callable
/// from every thread. False, and nothing happens, unless the library is started. An empty function is a
/// programming error (StopException).
NOLVEXLIB_EXPORT bool postToMainThread(Function<void()> function);

/// Runs what was posted before the call; what is posted meanwhile waits for the next one. Functions may call
/// this themselves: what is left then runs inside. What a function raises ends the call; the functions behind
/// it stay. From another than the main thread it is a programming error (StopException); nothing happens
/// unless the library is started.
NOLVEXLIB_EXPORT void processPendingEvents();

/// `wakeUp` is called after each post, on the posting thread, so that a loop that sleeps learns of it; empty
/// takes it away. What it raises reaches the one who posted, whose function waits nevertheless.
NOLVEXLIB_EXPORT void setWakeUp(Function<void()> wakeUp);

} // namespace Nolvex::Lib
