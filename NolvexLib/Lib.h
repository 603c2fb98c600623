// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Function.h"

namespace Nolvex::Lib {

/// Starts the library, before anything else is called. Further calls are counted, and each needs a shutdown
/// of its own. The thread of the first call is the main thread.
NOLVEXLIB_EXPORT void startup();

/// Undoes one startup. The last shutdown destroys the functions that still wait for the main thread, without
/// running them. A shutdown without a startup does nothing.
NOLVEXLIB_EXPORT void shutdown();

/// Has the main thread run a function when it next processes its events. Functions run in the order in which
/// they were posted. Every thread may call this. Returns false and does nothing if the library is not
/// started. An empty function is a programming error (StopException).
NOLVEXLIB_EXPORT bool postToMainThread(Function<void()> function);

/// Runs the functions that were posted before the call. Functions that are posted meanwhile wait for the next
/// call. A function may call this itself, which runs the remaining functions at once. An exception of a
/// function ends the call; the remaining functions stay. Calling this on another thread than the main thread
/// is a programming error (StopException). Nothing happens if the library is not started.
NOLVEXLIB_EXPORT void processPendingEvents();

/// Sets a function that is called after each post, on the posting thread, to wake an event loop that sleeps.
/// An empty function removes it. Its exceptions reach the caller of postToMainThread, whose function waits
/// nevertheless.
NOLVEXLIB_EXPORT void setWakeUp(Function<void()> wakeUp);

} // namespace Nolvex::Lib
