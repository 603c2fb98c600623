// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/platform/DesktopQuestion.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>

using GCancellable = struct _GCancellable;

namespace Nolvex::Platform {

/// Asks the portal of the desktop (org.freedesktop.portal.Screenshot) for a picture. A thread of its own
/// talks to the portal and reads the picture, so that the thread of the windows never waits, and nothing of
/// the question is left behind in the event loop of the host.
class ScreenPortal : public DesktopQuestion
{
public:
    using Done = std::function<void(DesktopAnswer)>;

    /// `busAddress` is the address of the session bus. Calls `done` on the thread of the question, and once
    /// more with FAILED if `done` throws. Throws std::system_error if the system has no thread left.
    ScreenPortal(const std::string& busAddress, std::chrono::milliseconds limit, const Done& done);
    /// Waits for a picture that is being decoded, and otherwise no longer than a moment for the portal to
    /// read that the question is withdrawn. The file of a picture that arrives in this moment is removed.
    ~ScreenPortal() override;

private:
    const std::shared_ptr<GCancellable> m_withdrawal;
    std::thread m_thread;
};

} // namespace Nolvex::Platform
