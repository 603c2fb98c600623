// SPDX-License-Identifier: MIT
#pragma once

#include "FakePortal.h"
#include "NolvexLib/Array.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/platform/gtk/ScreenPortal.h"
#include "PngFiles.h"
#include "WaitUntil.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace Nolvex::Tests {

/// No test takes this long.
inline constexpr auto LONG = std::chrono::seconds(60);

/// Receives the answers on the thread of a question.
class PortalAnswers
{
public:
    Platform::ScreenPortal::Done receiver()
    {
        return [this](Platform::DesktopAnswer answer) {
            const std::lock_guard lock(m_mutex);
            m_answers.push_back(std::move(answer));
            m_changed.notify_all();
        };
    }

    /// Returns nullopt if there is no answer for a long time.
    Optional<Platform::DesktopAnswer> first()
    {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait_for(lock, std::chrono::seconds(20), [this] { return !m_answers.empty(); }))
            return {};
        return m_answers.front();
    }

    Platform::DesktopAnswer last()
    {
        const std::lock_guard lock(m_mutex);
        return m_answers.back();
    }

    std::size_t count()
    {
        const std::lock_guard lock(m_mutex);
        return m_answers.size();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    Array<Platform::DesktopAnswer> m_answers;
};

/// Asks the portal that the test plays, on a bus of its own.
struct PortalFixture : testing::Test
{
    TemporaryFolder folder;
    PrivateBus bus;
    PortalAnswers answers;
    std::string caller;
    std::string handle;
    std::unique_ptr<FakePortal> portal;
    std::unique_ptr<Platform::ScreenPortal> question;

    void answerBy(FakePortal::Answer answer)
    {
        portal = std::make_unique<FakePortal>(bus.address(), std::move(answer));
    }

    void ask(std::chrono::milliseconds limit = LONG)
    {
        question = std::make_unique<Platform::ScreenPortal>(bus.address(), limit, answers.receiver());
    }

    void expectFailure(Wx::ScreenCaptureFailure failure)
    {
        const Optional<Platform::DesktopAnswer> answer = answers.first();
        ASSERT_TRUE(answer) << "no answer";
        ASSERT_FALSE(*answer);
        EXPECT_EQ(answer->error(), failure);
        question.reset();
        EXPECT_EQ(answers.count(), 1u);
    }

    void expectPicture()
    {
        const Optional<Platform::DesktopAnswer> answer = answers.first();
        ASSERT_TRUE(answer) << "no answer";
        ASSERT_TRUE(*answer) << static_cast<int>(answer->error());
        EXPECT_EQ((*answer)->size, (Pixel{4, 2}));
        question.reset();
        EXPECT_EQ(answers.count(), 1u);
    }

    std::string pictureUri() { return uriOf(folder.file(L"shot.png", encodePng(4, 2))); }

    std::string pictureValues() { return "(uint32 0, {'uri': <'" + pictureUri() + "'>})"; }

    void expectFailureOf(const std::string& values, Wx::ScreenCaptureFailure failure)
    {
        answerBy([values](FakePortal::Call call) {
            call.giveHandle(call.handle());
            call.respond(call.handle(), values);
        });
        ask();
        expectFailure(failure);
        EXPECT_TRUE(portal->closed().empty()) << "a question that was answered needs no closing";
    }

    /// Asks a portal that only returns a handle, and returns when the question has read the handle.
    void askInVain(std::chrono::milliseconds limit = LONG)
    {
        std::atomic<bool> isAsked = false;
        answerBy([this, &isAsked](FakePortal::Call call) {
            caller = call.caller();
            handle = call.handle();
            call.giveHandle(handle);
            call.waitUntilRead();
            isAsked = true;
        });
        ask(limit);
        ASSERT_TRUE(waitUntil([&] { return isAsked.load(); }));
    }

    /// Lets the portal, asked in vain, give a picture in the moment in which the question is withdrawn.
    void answerWhenClosing(const Io::Path& picture)
    {
        portal->whenClosing([this, uri = uriOf(picture)] {
            portal->respond(caller, handle, "(uint32 0, {'uri': <'" + uri + "'>})");
        });
    }
};

} // namespace Nolvex::Tests
