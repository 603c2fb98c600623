// SPDX-License-Identifier: MIT
// Tests how a question to the portal ends without an answer.
#include "PortalFixture.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <future>
#include <new>

using namespace Nolvex;
using namespace std::chrono_literals;
using Platform::DesktopAnswer;
using Platform::ScreenPortal;
using std::chrono::steady_clock;
using Tests::encodePng;
using Tests::FakePortal;
using Tests::LONG;
using Tests::uriOf;
using Tests::waitUntil;
using Wx::ScreenCaptureFailure;

using ScreenPortalEndTest = Tests::PortalFixture;

namespace {

// The portal returns the handle of a question earlier, even on a busy computer.
constexpr auto LIMIT_AFTER_THE_HANDLE = 2s;

// A socket that never accepts a connection, like a bus that hangs.
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

TEST_F(ScreenPortalEndTest, userWhoDoesNotDecide_isTimedOutAndTheQuestionIsClosed)
{
    answerBy([](FakePortal::Call call) { call.giveHandle(call.handle()); });
    ask(LIMIT_AFTER_THE_HANDLE);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
    EXPECT_TRUE(waitUntil([&] { return portal->closed().size() == 1; }));
}

TEST_F(ScreenPortalEndTest, questionUnderAnotherHandle_isClosedThere)
{
    const std::string other = FakePortal::otherHandle(4);
    answerBy([other](FakePortal::Call call) { call.giveHandle(other); });
    ask(LIMIT_AFTER_THE_HANDLE);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
    EXPECT_TRUE(waitUntil([&] { return portal->closed() == Array<std::string>{other}; }));
}

TEST_F(ScreenPortalEndTest, portalThatNeverReturnsAHandle_isTimedOut)
{
    answerBy([](FakePortal::Call) {});
    ask(200ms);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
}

TEST_F(ScreenPortalEndTest, limitBelowZero_isZero)
{
    answerBy([](FakePortal::Call call) { call.giveHandle(call.handle()); });
    ask(-5ms);
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
}

TEST_F(ScreenPortalEndTest, longestLimit_isLong)
{
    answerBy([this](FakePortal::Call call) { call.respondWithUri(pictureUri()); });
    ask(std::chrono::milliseconds::max());
    expectPicture();
}

TEST_F(ScreenPortalEndTest, withdrawnQuestion_isClosedAndDoesNotWaitForTheUser)
{
    askInVain();
    const auto start = steady_clock::now();
    question.reset();
    EXPECT_LT(steady_clock::now() - start, 5s);
    EXPECT_TRUE(waitUntil([&] { return portal->closed().size() == 1; }));
}

TEST_F(ScreenPortalEndTest, pictureThatArrivesAfterTheWithdrawal_isRemoved)
{
    askInVain();
    answerWhenClosing(folder.file(L"shot.png", encodePng(4, 2)));
    question.reset();
    EXPECT_EQ(portal->closed().size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(folder.file(L"shot.png").native()));
    EXPECT_EQ(answers.count(), 1u);
}

TEST_F(ScreenPortalEndTest, pictureThatArrivesAfterTheLimit_isRemoved)
{
    askInVain(LIMIT_AFTER_THE_HANDLE);
    answerWhenClosing(folder.file(L"shot.png", encodePng(4, 2)));
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
    EXPECT_FALSE(std::filesystem::exists(folder.file(L"shot.png").native()));
}

TEST_F(ScreenPortalEndTest, otherFileThatIsNamedAfterTheWithdrawal_stays)
{
    askInVain();
    const Io::Path file = folder.file(L"letter.txt", "not a picture");
    answerWhenClosing(file);
    question.reset();
    EXPECT_EQ(portal->closed().size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(file.native()));
}

TEST_F(ScreenPortalEndTest, receiverThatThrows_isToldOfAFailureOnce)
{
    answerBy([this](FakePortal::Call call) { call.respondWithUri(pictureUri()); });
    const ScreenPortal::Done receiver = answers.receiver();
    question = std::make_unique<ScreenPortal>(bus.address(), LONG, [&](const DesktopAnswer& answer) {
        receiver(answer);
        throw std::bad_alloc();
    });
    ASSERT_TRUE(waitUntil([&] { return answers.count() == 2; }));
    question.reset();
    EXPECT_EQ(answers.count(), 2u);
    EXPECT_TRUE(*answers.first());
    EXPECT_EQ(answers.last().error(), ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalEndTest, portalThatHangs_doesNotDelayTheWithdrawal)
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

TEST_F(ScreenPortalEndTest, portalThatDies_isAFailure)
{
    askInVain();
    portal.reset();
    expectFailure(ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalEndTest, busThatDies_isAFailure)
{
    askInVain();
    bus.kill();
    expectFailure(ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalEndTest, busThatHangs_isTimedOut)
{
    const SilentListener listener(folder.file(L"bus"));
    question = std::make_unique<ScreenPortal>("unix:path=" + folder.file(L"bus").native().string(), 200ms,
                                              answers.receiver());
    expectFailure(ScreenCaptureFailure::TIMED_OUT);
}

TEST_F(ScreenPortalEndTest, busThatHangs_doesNotDelayTheWithdrawal)
{
    const SilentListener listener(folder.file(L"bus"));
    const auto start = steady_clock::now();
    question = std::make_unique<ScreenPortal>("unix:path=" + folder.file(L"bus").native().string(), LONG,
                                              answers.receiver());
    question.reset();
    EXPECT_LT(steady_clock::now() - start, 5s);
}

TEST_F(ScreenPortalEndTest, questionsWithdrawnAtAnyMoment_leaveNothingBehind)
{
    answerBy([this](FakePortal::Call call) { call.respondWithUri(uriOf(folder.file(L"gone.png"))); });
    for (int i = 0; i < 60; ++i) {
        ask();
        std::this_thread::sleep_for(std::chrono::microseconds(100 * i));
        question.reset();
    }
    EXPECT_LE(answers.count(), 60u);
}
