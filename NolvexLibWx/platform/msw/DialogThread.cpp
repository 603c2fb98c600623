// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DialogThread.h"

#include <mutex>

namespace Nolvex {

bool Platform::showOffMainThread(WaitingCalls& /*mainThreadCalls*/, const Function<void()>& show)
{
    // wxMessageDialog keeps a list of the dialogs of all threads and does not lock the list. The mutex is
    // recursive because a window of this thread may show a second dialog while the first is on the screen.
    static std::recursive_mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    show();
    return true;
}

} // namespace Nolvex
