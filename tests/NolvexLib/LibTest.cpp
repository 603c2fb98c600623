// SPDX-License-Identifier: MIT
#include "NolvexLib/Lib.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/MainThread.h"
#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <thread>

namespace Nolvex {
namespace {

void runOnThread(const Function<void()>& function)
{
    std::thread(function).join();
}

// Runs with the library stopped.
class LibTest : public testing::Test
{
public:
    ~LibTest() override { Lib::setWakeUp({}); }

protected:
    Function<void()> appending(int number)
    {
        return [this, number] { m_order.push_back(number); };
    }

    Array<int> m_order;
};

// Runs with the library started.
class StartedLibTest : public LibTest
{
public:
    ~StartedLibTest() override { Lib::shutdown(); }

protected:
    StartedLibTest() { Lib::startup(); }
};

TEST_F(LibTest, postToMainThread_whileNotStarted_isRefused)
{
    EXPECT_FALSE(Lib::postToMainThread(appending(1)));
    Lib::startup();
    Lib::processPendingEvents();
    EXPECT_TRUE(m_order.empty());
    Lib::shutdown();
    EXPECT_FALSE(Lib::postToMainThread(appending(2)));
}

TEST_F(LibTest, processPendingEvents_whileNotStarted_doesNothing)
{
    EXPECT_NO_THROW(Lib::processPendingEvents());
    runOnThread([] { EXPECT_NO_THROW(Lib::processPendingEvents()); });
}

TEST_F(LibTest, shutdown_countsStartups)
{
    Lib::startup();
    Lib::startup();
    Lib::shutdown();
    EXPECT_TRUE(Lib::postToMainThread(appending(1)));
    Lib::processPendingEvents();
    EXPECT_EQ(m_order, (Array<int>{1}));
    Lib::shutdown();
    EXPECT_FALSE(Lib::postToMainThread(appending(2)));
}

TEST_F(LibTest, shutdown_onceTooOften_changesNothing)
{
    Lib::shutdown();
    Lib::startup();
    EXPECT_TRUE(Lib::postToMainThread(appending(1)));
    Lib::shutdown();
}

TEST_F(LibTest, shutdown_destroysWhatWaitsWithoutRunningItOrHoldingTheLock)
{
    Lib::startup();
    bool isRefused = false;
    std::shared_ptr<void> onDestruction(
        &isRefused, [](void* flag) { *static_cast<bool*>(flag) = !Lib::postToMainThread([] {}); });
    bool wasRun = false;
    EXPECT_TRUE(Lib::postToMainThread([&wasRun, held = std::move(onDestruction)] { wasRun = true; }));
    Lib::shutdown();
    EXPECT_TRUE(isRefused);
    EXPECT_FALSE(wasRun);
}

TEST_F(StartedLibTest, processPendingEvents_runsInTheOrderPosted)
{
    for (const int number : {1, 2, 3})
        EXPECT_TRUE(Lib::postToMainThread(appending(number)));
    EXPECT_TRUE(m_order.empty());
    Lib::processPendingEvents();
    EXPECT_EQ(m_order, (Array<int>{1, 2, 3}));
    Lib::processPendingEvents();
    EXPECT_EQ(m_order.size(), 3u);
}

TEST_F(StartedLibTest, processPendingEvents_leavesWhatIsPostedMeanwhileForTheNextTime)
{
    int runs = 0;
    Function<void()> again;
    again = [&] {
        ++runs;
        Lib::postToMainThread(again);
    };
    Lib::postToMainThread(again);
    Lib::processPendingEvents();
    EXPECT_EQ(runs, 1);
    Lib::processPendingEvents();
    EXPECT_EQ(runs, 2);
    again = nullptr;
}

TEST_F(StartedLibTest, processPendingEvents_insideAFunction_runsWhatIsLeftInOrder)
{
    Lib::postToMainThread([this] {
        m_order.push_back(1);
        Lib::postToMainThread(appending(3));
        Lib::processPendingEvents();
        m_order.push_back(4);
    });
    Lib::postToMainThread(appending(2));
    Lib::processPendingEvents();
    EXPECT_EQ(m_order, (Array<int>{1, 2, 3, 4}));
}

TEST_F(StartedLibTest, processPendingEvents_ofFunctionThatRaises_passesItOnAndKeepsTheRest)
{
    Lib::postToMainThread(appending(1));
    Lib::postToMainThread([] { throw Exception("failed"); });
    Lib::postToMainThread(appending(2));
    Lib::postToMainThread([] { Detail::throwStopException("test", 1); });
    Lib::postToMainThread(appending(3));
    EXPECT_THROW(Lib::processPendingEvents(), Exception);
    EXPECT_EQ(m_order, (Array<int>{1}));
    EXPECT_THROW(Lib::processPendingEvents(), StopException);
    EXPECT_EQ(m_order, (Array<int>{1, 2}));
    Lib::processPendingEvents();
    EXPECT_EQ(m_order, (Array<int>{1, 2, 3}));
}

TEST_F(StartedLibTest, processPendingEvents_afterShutdownInside_runsNoMore)
{
    Lib::postToMainThread([] { Lib::shutdown(); });
    Lib::postToMainThread(appending(1));
    Lib::processPendingEvents();
    EXPECT_TRUE(m_order.empty());
}

TEST_F(StartedLibTest, processPendingEvents_onAnotherThread_isAProgrammingError)
{
    Lib::postToMainThread(appending(1));
    runOnThread([] { EXPECT_THROW(Lib::processPendingEvents(), StopException); });
    EXPECT_TRUE(m_order.empty());
}

TEST_F(StartedLibTest, postToMainThread_ofEmptyFunction_isAProgrammingError)
{
    EXPECT_THROW(Lib::postToMainThread({}), StopException);
}

TEST_F(StartedLibTest, postToMainThread_fromManyThreads_losesNothingAndKeepsTheirOrder)
{
    constexpr int THREADS = 4;
    constexpr int EVENTS = 20000;
    std::atomic<int> ready = 0;
    std::atomic<int> running = THREADS;
    std::array<Array<int>, THREADS> received;
    Array<std::thread> threads;
    for (std::size_t t = 0; t < THREADS; ++t) {
        threads.emplace_back([&ready, &running, &list = received.at(t)] {
            for (++ready; ready < THREADS;)
                std::this_thread::yield();
            for (int i = 0; i < EVENTS; ++i)
                Lib::postToMainThread([&list, i] { list.push_back(i); });
            --running;
        });
    }
    while (running > 0)
        Lib::processPendingEvents();
    for (std::thread& thread : threads)
        thread.join();
    Lib::processPendingEvents();
    Array<int> expected;
    for (int i = 0; i < EVENTS; ++i)
        expected.push_back(i);
    for (const Array<int>& list : received)
        EXPECT_EQ(list, expected);
}

TEST_F(StartedLibTest, setWakeUp_isCalledOnThePostingThreadWhenTheEventIsThere)
{
    std::thread::id calledOn;
    Lib::setWakeUp([&] { calledOn = std::this_thread::get_id(); });
    std::thread::id postedOn;
    runOnThread([&] {
        Lib::postToMainThread(appending(1));
        postedOn = std::this_thread::get_id();
    });
    EXPECT_EQ(calledOn, postedOn);
    Lib::setWakeUp([] { Lib::processPendingEvents(); });
    Lib::postToMainThread(appending(2));
    EXPECT_EQ(m_order, (Array<int>{1, 2}));
}

TEST_F(StartedLibTest, setWakeUp_thatRaises_reachesThePosterAndTheEventStays)
{
    Lib::setWakeUp([] { throw Exception("asleep"); });
    EXPECT_THROW(Lib::postToMainThread(appending(1)), Exception);
    Lib::processPendingEvents();
    EXPECT_EQ(m_order, (Array<int>{1}));
}

TEST_F(LibTest, setWakeUp_forRefusedEvent_isNotCalled)
{
    bool isCalled = false;
    Lib::setWakeUp([&] { isCalled = true; });
    EXPECT_FALSE(Lib::postToMainThread(appending(1)));
    EXPECT_FALSE(isCalled);
}

// This test runs in its own process, in which the library was never started.
TEST(MainThreadDeathTest, isMainThread_beforeTheFirstStartup_isFalse)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::_Exit(isMainThread() ? 1 : 7), testing::ExitedWithCode(7), "");
}

} // namespace
} // namespace Nolvex
