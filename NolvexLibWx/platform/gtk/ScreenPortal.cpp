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
    Platform::PortalRequest request(limit, withdrawal);
    const Expected<std::string, Wx::ScreenCaptureFailure> uri = request.ask(busAddress);
    // The file would stay in a folder of the user with everything that was on the screen.
    if (request.latePicture())
        static_cast<void>(Platform::takeScreenshotFile(*request.latePicture(), asked));
    if (!uri)
        return Unexpected{uri.error()};
    return Platform::takeScreenshotFile(*uri, asked);
}

void tellFailure(const Platform::ScreenPortal::Done& done) noexcept
{
    try {
        done(Unexpected{Wx::ScreenCaptureFailure::FAILED});
    } catch (...) {
        // There is no memory for the failure either, so that the question stays without an answer.
    }
}

/// Runs as the thread, which an exception must not leave, because that would end the program.
void answer(const Platform::ScreenPortal::Done& done, const std::string& busAddress,
            std::chrono::milliseconds limit, GCancellable* withdrawal) noexcept
{
    try {
        done(findAnswer(busAddress, limit, withdrawal));
    } catch (...) {
        tellFailure(done);
    }
}

} // namespace

Platform::ScreenPortal::ScreenPortal(const std::string& busAddress, std::chrono::milliseconds limit,
                                     const Done& done)
    : m_withdrawal(g_cancellable_new(), g_object_unref),
      m_thread([busAddress, limit, done, withdrawal = m_withdrawal] {
          answer(done, busAddress, limit, withdrawal.get());
      })
{}

Platform::ScreenPortal::~ScreenPortal()
{
    g_cancellable_cancel(m_withdrawal.get());
    m_thread.join();
}

} // namespace Nolvex
