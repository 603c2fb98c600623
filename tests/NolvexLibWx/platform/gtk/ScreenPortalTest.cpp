// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/ScreenPortal.h"

#include "FakePortal.h"
#include "NolvexLib/Optional.h"
#include "PngFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <memory>
#include <mutex>

using namespace Nolvex;
using namespace std::chrono_literals;
using Platform::DesktopAnswer;
using Platform::ScreenPortal;
using std::chrono::steady_clock;
using Tests::encodePng;
using Tests::FakePortal;
using Tests::uriOf;
using Wx::ScreenCaptureFailure;

namespace {

constexpr auto LONG = 60s;

// Receives the answers on the thread of a question.
class Answers
{
public:
    ScreenPortal::Done receiver()
    {
        return [this](DesktopAnswer answer) {
            const std::lock_guard lock(m_mutex);
            m_answers.push_back(std::move(answer));
            m_changed.notify_all();
        };
    }

    /// Returns nullopt if there is no answer for a long time.
    Optional<DesktopAnswer> first()
    {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait_for(lock, 20s, [this] { return !m_answers.empty(); }))
            return {};
        return m_answers.front();
    }

    std::size_t count()
    {
        const std::lock_guard lock(m_mutex);
        return m_answers.size();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    Array<DesktopAnswer> m_answers;
};

template<class Condition>
bool waitUntil(Condition condition)
{
    const auto end = steady_clock::now() + 20s;
    while (!condition() && steady_clock::now() < end)
        std::this_thread::yield();
    return condition();
}

struct ScreenPortalTest : testing::Test
{
    Tests::TemporaryFolder folder;
    Tests::PrivateBus bus;
    Answers answers;
    std::unique_ptr<FakePortal> portal;
    std::unique_ptr<ScreenPortal> question;

    void answerBy(FakePortal::Answer answer)
    {
        portal = std::make_unique<FakePortal>(bus.address(), std::move(answer));
    }

    void ask(std::chrono::milliseconds limit = LONG)
    {
        question = std::make_unique<ScreenPortal>(bus.address(), limit, answers.receiver());
    }

    void expectFailure(ScreenCaptureFailure failure)
    {
        const Optional<DesktopAnswer> answer = answers.first();
        ASSERT_TRUE(answer) << "no answer";
        ASSERT_FALSE(*answer);
        EXPECT_EQ(answer->error(), failure);
        question.reset();
        EXPECT_EQ(answers.count(), 1u);
    }

    void expectPicture()
    {
        const Optional<DesktopAnswer> answer = answers.first();
        ASSERT_TRUE(answer) << "no answer";
        ASSERT_TRUE(*answer) << static_cast<int>(answer->error());
        EXPECT_EQ((*answer)->size, (Pixel{4, 2}));
        question.reset();
        EXPECT_EQ(answers.count(), 1u);
    }

    std::string pictureUri() { return uriOf(folder.file(L"shot.png", encodePng(4, 2))); }

    std::string pictureValues() { return "(uint32 0, {'uri': <'" + pictureUri() + "'>})"; }

    void expectFailureOf(const std::string& values, ScreenCaptureFailure failure)
    {
        answerBy([values](FakePortal::Call call) {
            call.giveHandle(call.handle());
            call.respond(call.handle(), values);
        });
        ask();
        expectFailure(failure);
        EXPECT_TRUE(portal->closed().empty()) << "a question that was answered needs no closing";
    }
};

// A listener that accepts nobody, like a bus that hangs.
class SilentListener
{
public:
    explicit SilentListener(const Io::Path& file) : m_socket(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        file.native().native().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(m_socket, 5), 0);
    }

    ~SilentListener() { close(m_socket); }

    SilentListener(const SilentListener&) = delete;
    SilentListener& operator=(const SilentListener&) = delete;

private:
    int m_socket;
};

} // namespace

TEST_F(ScreenPortalTest, picture_arrivesAndItsFileIsRemoved)
{
    std::atomic<bool> isPlain = false;
    answerBy([this, &isPlain](FakePortal::Call call) {
        isPlain = call.isPlain();
        call.respondWithUri(pictureUri());
    });
    ask();
    expectPicture();
    EXPECT_TRUE(isPlain);
    EXPECT_EQ(portal->calls(), 1);
    EXPECT_TRUE(portal->closed().empty());
    EXPECT_FALSE(std::filesystem::exists(folder.file(L"shot.png").native()));
}

TEST_F(ScreenPortalTest, refusalByTheUser_isRefused)
{
    expectFailureOf("(uint32 1, @a{sv} {})", ScreenCaptureFailure::REFUSED);
}

TEST_F(ScreenPortalTest, refusalWithAPicture_isRefusedAndThePictureStays)
{
    const Io::Path file = folder.file(L"shot.png", encodePng(4, 2));
    expectFailureOf("(uint32 1, {'uri': <'" + uriOf(file) + "'>})", ScreenCaptureFailure::REFUSED);
    EXPECT_TRUE(std::filesystem::exists(file.native()));
}

TEST_F(ScreenPortalTest, otherEnd_isAFailure)
{
    expectFailureOf("(uint32 2, @a{sv} {})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, unknownCode_isAFailure)
{
    expectFailureOf("(uint32 77, {'uri': <'file:///tmp/a.png'>})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, missingAddress_isAFailure)
{
    expectFailureOf("(uint32 0, @a{sv} {})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, addressOfAnotherType_isAFailure)
{
    expectFailureOf("(uint32 0, {'uri': <7>})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, answerOfAnotherType_isAFailure)
{
    expectFailureOf("('file:///tmp/a.png',)", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, emptyAnswer_isAFailure)
{
    expectFailureOf("()", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, addressThatIsNoFile_isAFailure)
{
    expectFailureOf("(uint32 0, {'uri': <'https://example.org/a.png'>})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, fileThatIsGone_isAFailure)
{
    expectFailureOf("(uint32 0, {'uri': <'" + uriOf(folder.file(L"gone.png")) + "'>})",
                    ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, secondAnswer_isIgnored)
{
    answerBy([this](FakePortal::Call call) {
        call.respondWithUri(pictureUri());
        call.respond(call.handle(), "(uint32 1, @a{sv} {})");
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answerBeforeTheHandle_counts)
{
    answerBy([this](FakePortal::Call call) {
        call.respond(call.handle(), pictureValues());
        call.giveHandle(call.handle());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answerUnderAnotherHandle_counts)
{
    answerBy([this](FakePortal::Call call) {
        const std::string other = std::string(FakePortal::PATH) + "/request/old/4";
        call.giveHandle(other);
        call.respond(other, pictureValues());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answerUnderAnotherHandleBeforeTheHandle_counts)
{
    answerBy([this](FakePortal::Call call) {
        const std::string other = std::string(FakePortal::PATH) + "/request/old/4";
        call.respond(other, pictureValues());
        call.giveHandle(other);
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answersToOtherQuestions_areIgnored)
{
    answerBy([this](FakePortal::Call call) {
        for (int i = 0; i < 40; ++i)
            call.respond(std::string(FakePortal::PATH) + "/request/other/" + std::to_string(i),
                         "(uint32 1, @a{sv} {})");
        call.giveHandle(call.handle());
        call.respond(std::string(FakePortal::PATH) + "/request/other/7", "(uint32 1, @a{sv} {})");
        call.respond(call.handle(), pictureValues());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answersOfOtherPrograms_areIgnored)
{
    const FakePortal impostor(
        bus.address(), [](FakePortal::Call) {}, "org.example.Impostor");
    answerBy([this, &impostor](FakePortal::Call call) {
        call.giveHandle(call.handle());
        g_dbus_connection_emit_signal(impostor.connection(), call.caller().c_str(), call.handle().c_str(),
                                      "org.freedesktop.portal.Request", "Response",
                                      g_variant_new_parsed("(uint32 1, @a{sv} {})"), nullptr);
        g_dbus_connection_flush_sync(impostor.connection(), nullptr, nullptr);
        call.respond(call.handle(), pictureValues());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, busWithoutAPortal_isUnavailable)
{
    ask();
    expectFailure(ScreenCaptureFailure::UNAVAILABLE);
}

TEST_F(ScreenPortalTest, portalWithoutScreenshots_isUnavailable)
{
    for (const char* error :
         {"org.freedesktop.DBus.Error.UnknownMethod", "org.freedesktop.DBus.Error.UnknownInterface",
          "org.freedesktop.DBus.Error.UnknownObject"}) {
        Answers unknown;
        portal.reset();
        answerBy([error](FakePortal::Call call) { call.fail(error); });
        const ScreenPortal asked(bus.address(), LONG, unknown.receiver());
        const Optional<DesktopAnswer> answer = unknown.first();
        ASSERT_TRUE(answer);
        ASSERT_FALSE(*answer);
        EXPECT_EQ(answer->error(), ScreenCaptureFailure::UNAVAILABLE) << error;
    }
}

TEST_F(ScreenPortalTest, callThatIsNotAllowed_isRefused)
{
    answerBy([](FakePortal::Call call) { call.fail("org.freedesktop.portal.Error.NotAllowed"); });
    ask();
    expectFailure(ScreenCaptureFailure::REFUSED);
}

TEST_F(ScreenPortalTest, callThatFails_isAFailure)
{
    answerBy([](FakePortal::Call call) { call.fail("org.freedesktop.portal.Error.Failed"); });
    ask();
    expectFailure(ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, noBus_isUnavailable)
{
    for (const std::string& address : {std::string("unix:path=/nonexistent/bus"), std::string("nonsense"),
                                       std::string("unix:abstract=nolvex-nobody-listens-here")}) {
        Answers none;
        const ScreenPortal asked(address, LONG, none.receiver());
        const Optional<DesktopAnswer> answer = none.first();
        ASSERT_TRUE(answer);
        ASSERT_FALSE(*answer);
        EXPECT_EQ(answer->error(), ScreenCaptureFailure::UNAVAILABLE) << address;
    }
}

TEST_F(ScreenPortalTest, userWhoDoesNotDecide_isTimedOutAndTheQuestionIsClosed)
{
    answerBy([](FakePortal::Call call) { call.giveHandle(call.handle()); });
    ask(200ms);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
    EXPECT_EQ(portal->closed().size(), 1u);
}

TEST_F(ScreenPortalTest, questionUnderAnotherHandle_isClosedThere)
{
    const std::string other = std::string(FakePortal::PATH) + "/request/old/4";
    answerBy([other](FakePortal::Call call) { call.giveHandle(other); });
    ask(200ms);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
    EXPECT_EQ(portal->closed(), (Array<std::string>{other}));
}

TEST_F(ScreenPortalTest, portalThatNeverReturnsAHandle_isTimedOut)
{
    answerBy([](FakePortal::Call) {});
    ask(200ms);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
}

TEST_F(ScreenPortalTest, limitBelowZero_isZero)
{
    answerBy([](FakePortal::Call call) { call.giveHandle(call.handle()); });
    ask(-5ms);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
}

TEST_F(ScreenPortalTest, longestLimit_isLong)
{
    answerBy([this](FakePortal::Call call) { call.respondWithUri(pictureUri()); });
    ask(std::chrono::milliseconds::max());
    expectPicture();
}

TEST_F(ScreenPortalTest, withdrawnQuestion_isClosedAndDoesNotWaitForTheUser)
{
    std::atomic<bool> isAsked = false;
    answerBy([&isAsked](FakePortal::Call call) {
        call.giveHandle(call.handle());
        isAsked = true;
    });
    ask();
    ASSERT_TRUE(waitUntil([&] { return isAsked.load(); }));
    const auto start = steady_clock::now();
    question.reset();
    EXPECT_LT(steady_clock::now() - start, 5s);
    EXPECT_EQ(portal->closed().size(), 1u);
}

TEST_F(ScreenPortalTest, portalThatHangs_doesNotDelayTheWithdrawal)
{
    std::promise<void> mayGoOn;
    std::atomic<bool> isAsked = false;
    answerBy([&](FakePortal::Call call) {
        call.giveHandle(call.handle());
        isAsked = true;
        mayGoOn.get_future().wait();
    });
    ask();
    ASSERT_TRUE(waitUntil([&] { return isAsked.load(); }));
    const auto start = steady_clock::now();
    question.reset();
    EXPECT_LT(steady_clock::now() - start, 5s);
    mayGoOn.set_value();
}

TEST_F(ScreenPortalTest, portalThatDies_isAFailure)
{
    std::atomic<bool> isAsked = false;
    answerBy([&isAsked](FakePortal::Call call) {
        call.giveHandle(call.handle());
        isAsked = true;
    });
    ask();
    ASSERT_TRUE(waitUntil([&] { return isAsked.load(); }));
    portal.reset();
    expectFailure(ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, busThatDies_isAFailure)
{
    std::atomic<bool> isAsked = false;
    answerBy([&isAsked](FakePortal::Call call) {
        call.giveHandle(call.handle());
        isAsked = true;
    });
    ask();
    ASSERT_TRUE(waitUntil([&] { return isAsked.load(); }));
    bus.stop();
    expectFailure(ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, busThatHangs_isTimedOut)
{
    const SilentListener listener(folder.file(L"bus"));
    question = std::make_unique<ScreenPortal>("unix:path=" + folder.file(L"bus").native().string(), 200ms,
                                              answers.receiver());
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
}

TEST_F(ScreenPortalTest, busThatHangs_doesNotDelayTheWithdrawal)
{
    const SilentListener listener(folder.file(L"bus"));
    const auto start = steady_clock::now();
    question =
        std::make_unique<ScreenPortal>("unix:path=" + folder.file(L"bus").native().string(), LONG, answers.receiver());
    question.reset();
    EXPECT_LT(steady_clock::now() - start, 5s);
}

TEST_F(ScreenPortalTest, questionsWithdrawnAtAnyMoment_leaveNothingBehind)
{
    answerBy([this](FakePortal::Call call) { call.respondWithUri(uriOf(folder.file(L"gone.png"))); });
    for (int i = 0; i < 60; ++i) {
        ask();
        std::this_thread::sleep_for(std::chrono::microseconds(100 * i));
        question.reset();
    }
    EXPECT_LE(answers.count(), 60u);
}

TEST_F(ScreenPortalTest, severalQuestions_getTheirOwnAnswers)
{
    answerBy([this, index = 0](FakePortal::Call call) mutable {
        if (index++ % 2 == 0)
            call.respondWithUri(uriOf(folder.file(L"shot" + std::to_wstring(index), encodePng(4, 2))));
        else
            call.fail("org.freedesktop.portal.Error.NotAllowed");
    });
    std::array<Answers, 6> all;
    Array<std::unique_ptr<ScreenPortal>> questions;
    for (Answers& own : all)
        questions.push_back(std::make_unique<ScreenPortal>(bus.address(), LONG, own.receiver()));
    int pictures = 0;
    for (Answers& own : all) {
        const Optional<DesktopAnswer> answer = own.first();
        ASSERT_TRUE(answer);
        pictures += *answer ? 1 : 0;
    }
    EXPECT_EQ(pictures, 3);
}
