// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DialogThread.h"

#include "NolvexLib/Mutex.h"

namespace Nolvex {

bool Platform::showOffMainThread(WaitingCalls& /*mainThreadCalls*/, const Function<void()>& show)
{
    // wxMessageDialog keeps a list of the dialogs of all threads and does not lock it.
    static Mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    show();
    return true;
}

} // namespace Nolvex
