// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/WaitingCalls.h"

namespace Nolvex::Platform {

/// Calls a function that shows a modal dialog, for a thread other than the main thread, and returns when the
/// dialog has ended. The dialogs of several threads are shown one after another. Windows has windows on every
/// thread, so the calling thread calls the function. On GTK the main thread does, by `mainThreadCalls`, which
/// may be closed; the function then returns false and has not called `show`.
bool showOffMainThread(WaitingCalls& mainThreadCalls, const Function<void()>& show);

} // namespace Nolvex::Platform
