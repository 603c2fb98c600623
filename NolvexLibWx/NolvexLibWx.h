// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <cstdint>

namespace Nolvex::LibWx {

/// What `startup` does with the application object when wxWidgets has been initialised.
enum class ApplicationType : std::int32_t
{
    /// A program made of the library: `startup` calls the application's `CallOnInit` and ignores the result.
    APPLICATION = 0,
    /// A plug-in in a foreign process, which is initialised like an application.
    PLUGIN = 1,
    /// The host initialises its application object itself; `startup` does not call `CallOnInit`.
    HOST_INITIALISED = 2,
};

// The functions are called on the host's GUI thread. They take no locks.

/// Counted start. The first call starts the core library and wxWidgets, with its image handlers and sockets,
/// and a timer that runs wxWidgets' idle processing every two seconds. Later calls only count.
///
/// The host's application object is used if there is one; otherwise a "NolvexApp" is made. A host with an
/// object of its own may have initialised wxWidgets by the counted `wxInitialize`, but not by `wxEntry`.
///
/// Throws Exception if wxWidgets cannot start, because there is no display. Nothing is counted then, and
/// everything is undone, but wxWidgets deletes the application object, also the host's.
/// A `type` outside the enumeration is a StopException, which is thrown when wxWidgets has already been
/// initialised. Nothing is counted then, and a host that goes on has to uninitialise wxWidgets itself.
NOLVEXLIBWX_EXPORT void startup(ApplicationType type);

/// Counted stop. The call that brings the count to exactly 0 stops everything in reverse order; all windows
/// must be gone. A call without a matching `startup` makes the count negative, and the next `startup` only
/// brings it back to 0.
NOLVEXLIBWX_EXPORT void shutdown() noexcept;

/// True while the count is above 0.
NOLVEXLIBWX_EXPORT bool isStarted();

// The functions below use the application object without looking whether there is one. They may be called
// between `startup` and the last `shutdown`.

/// Runs wxWidgets' main loop until `stopEventLoop` is called, and returns its exit code. Threads that wait
/// for the main thread to show a message dialog are released when the outermost loop ends.
NOLVEXLIBWX_EXPORT int runEventLoop();

/// Ends `runEventLoop`, and before it the message dialog that the main thread shows for another thread.
NOLVEXLIBWX_EXPORT void stopEventLoop();

/// Processes wxWidgets' pending events, which CallAfter and QueueEvent have queued.
NOLVEXLIBWX_EXPORT void processWxWidgetsPendingEvents();

/// Processes wxWidgets' pending events, then those of the core library (`Lib::postToMainThread`). A host with
/// a loop of its own calls this function regularly.
NOLVEXLIBWX_EXPORT void processAllPendingEvents();

} // namespace Nolvex::LibWx
