// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DesktopQuestion.h"

namespace Nolvex {

// Programs read the screen themselves on Windows.
std::unique_ptr<Platform::DesktopQuestion>
Platform::askDesktop(std::chrono::milliseconds /*limit*/, const std::function<void(DesktopAnswer)>& /*done*/)
{
    return nullptr;
}

} // namespace Nolvex
