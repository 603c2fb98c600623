// SPDX-License-Identifier: MIT
// Tests in a process of its own how the library stops while the portal of the desktop is being asked.
#include "../FakePortal.h"
#include "../WaitUntil.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/ScreenCaptureRequest.h"
#include "NolvexLibWx/detail/ScreenQuestion.h"

#include <wx/utils.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <utility>

using namespace Nolvex;
using namespace std::chrono_literals;
using LibWx::ApplicationType;
using Tests::FakePortal;
using Tests::waitUntil;
using Wx::ScreenCaptureRequest;
using Wx::Detail::ScreenQuestion;

namespace {

/// Asks the portal of the session bus, although programs may read the screen of the test.
ScreenCaptureRequest askPortal(ScreenQuestion::Done done)
{
    Wx::Detail::Screen screen = Wx::Detail::screenOfSystem();
    screen.isReadable = [] { return false; };
    return ScreenCaptureRequest(
        ScreenQuestion::open({{0, 0}, {9, 9}}, 60s, std::move(done), std::move(screen)));
}

} // namespace

TEST(OpenPortalQuestionTest, shutdown_closesTheQuestionAndEndsItsThread)
{
    const Tests::PrivateBus bus;
    std::atomic<bool> isAsked = false;
    const FakePortal portal(bus.address(), [&isAsked](FakePortal::Call call) {
        call.giveHandle(call.handle());
        call.waitUntilRead();
        isAsked = true;
    });
    LibWx::startup(ApplicationType::APPLICATION);
    wxSetEnv("DBUS_SESSION_BUS_ADDRESS", wxString::FromUTF8(bus.address()));
    bool isAnswered = false;
    const ScreenCaptureRequest request =
        askPortal([&isAnswered](const Wx::ScreenCaptureResult&) { isAnswered = true; });
    ASSERT_TRUE(waitUntil([&] { return isAsked.load(); }));
    const auto start = std::chrono::steady_clock::now();
    LibWx::shutdown();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s) << "does not wait for the user";
    EXPECT_FALSE(request.isOpen());
    EXPECT_TRUE(waitUntil([&] { return portal.closed().size() == 1; }));

    LibWx::startup(ApplicationType::APPLICATION);
    LibWx::processAllPendingEvents();
    EXPECT_FALSE(isAnswered);
    LibWx::shutdown();
}
