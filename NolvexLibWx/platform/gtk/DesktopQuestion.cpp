// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DesktopQuestion.h"

#include "NolvexLibWx/platform/gtk/ScreenPortal.h"
#include "NolvexLibWx/platform/gtk/SessionBus.h"

#include <string>
#include <system_error>

namespace Nolvex {

std::unique_ptr<Platform::DesktopQuestion>
Platform::askDesktop(std::chrono::milliseconds limit, const std::function<void(DesktopAnswer)>& done)
{
    const std::string address = sessionBusAddress();
    if (address.empty())
        return nullptr;
    try {
        return std::make_unique<ScreenPortal>(address, limit, done);
    } catch (const std::system_error&) {
        return nullptr; // the system has no thread left
    }
}

} // namespace Nolvex
