// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/ScreenPortal.h"

#include "NolvexLibWx/platform/gtk/PortalRequest.h"
#include "NolvexLibWx/platform/gtk/ScreenshotFile.h"

#include <gio/gio.h>

namespace Nolvex {

namespace {

Platform::DesktopAnswer findAnswer(const std::string& busAddress, std::chrono::milliseconds limit,
                                   GCancellable* withdrawal)
{
    const auto asked = std::chrono::system_clock::now();
    const Expected<std::string, Wx::ScreenCaptureFailure> uri =
        Platform::PortalRequest(limit, withdrawal).ask(busAddress);
    if (!uri)
        return Unexpected{uri.error()};
    return Platform::takeScreenshotFile(*uri, asked);
}

} // namespace

Platform::ScreenPortal::ScreenPortal(const std::string& busAddress, std::chrono::milliseconds limit,
                                     const Done& done)
    : m_withdrawal(g_cancellable_new(), g_object_unref),
      m_thread([busAddress, limit, done, withdrawal = m_withdrawal] {
          done(findAnswer(busAddress, limit, withdrawal.get()));
      })
{}

Platform::ScreenPortal::~ScreenPortal()
{
    g_cancellable_cancel(m_withdrawal.get());
    m_thread.join();
}

} // namespace Nolvex
