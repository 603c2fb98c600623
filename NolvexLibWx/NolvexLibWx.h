// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <cstdint>

namespace Nolvex::LibWx {

/// What `startup` does with the application object once the toolkit is up.
enum class ApplicationType : std::int32_t
{
    /// The library's programs: the application's `CallOnInit` is called, its result ignored.
    APPLICATION = 0,
    /// A plug-in in a foreign process: initialised like an application.
    PLUGIN = 1,
    /// The host initialises its application object itself.
    HOST_INITIALISED = 2,
};

// All functions are for the host's GUI thread; nothing here is synchronised.

/// Counted start. The first call brings up the core library, the toolkit with its image handlers and sockets,
/// and a timer that runs the toolkit's idle processing every two seconds; later calls only count.
///
/// Uses the host's application object when there is one and makes a "NolvexApp" when there is none. A host
/// with an object of its own starts the toolkit, if it does that itself, by the counted `wxInitialize`, never
/// by `wxEntry`.
///
/// Throws Exception, with everything undone and nothing counted, when the toolkit cannot start (no display).
/// A `type` outside the enumeration is a StopException, raised when the toolkit is up already; nothing is
/// counted then either.
NOLVEXLIBWX_EXPORT void startup(ApplicationType type);

/// Counted stop. The call that brings the count to exactly 0 tears everything down in reverse; windows must
/// be gone. Without a matching `startup` the count becomes negative, and the next `startup` only brings it
/// back to 0.
NOLVEXLIBWX_EXPORT void shutdown() noexcept;

/// True while the count is above 0.
NOLVEXLIBWX_EXPORT bool isStarted();

// Between startup and the last shutdown only: the functions below use the application object unasked.

/// Runs the toolkit's main loop until `stopEventLoop`; returns its exit code.
NOLVEXLIBWX_EXPORT int runEventLoop();

/// Ends `runEventLoop`.
NOLVEXLIBWX_EXPORT void stopEventLoop();

/// Processes the toolkit's pending events: what CallAfter and QueueEvent left.
NOLVEXLIBWX_EXPORT void processWxWidgetsPendingEvents();

/// Processes the toolkit's pending events, then the core library's (`Lib::postToMainThread`). A host with a
/// loop of its own calls it regularly.
NOLVEXLIBWX_EXPORT void processAllPendingEvents();

} // namespace Nolvex::LibWx
