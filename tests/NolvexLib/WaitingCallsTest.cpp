// SPDX-License-Identifier: MIT
#include "NolvexLib/WaitingCalls.h"

#include "NolvexLib/Array.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

using namespace Nolvex;

namespace {

/// Stands for the main thread: waits to be woken and makes the calls.
class MainLoop
{
public:
    void wake()
    {
        const std::lock_guard lock(m_mutex);
        ++m_wakeUps;
        m_woken.notify_one();
    }

    /// Returns false if nothing has woken the loop for a long time.
    bool serveOnce(WaitingCalls& calls)
    {
        std::unique_lock lock(m_mutex);
        if (!m_woken.wait_for(lock, std::chrono::seconds(20), [this] { return m_wakeUps > 0; }))
            return false;
        --m_wakeUps;
        lock.unlock();
        calls.serveNext();
        return true;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_woken;
    int m_wakeUps = 0;
};

struct WaitingCallsTest : testing::Test
{
    void open()
    {
        calls.open([this] { loop.wake(); });
    }

    MainLoop loop;
    WaitingCalls calls;
};

} // namespace

TEST_F(WaitingCallsTest, closedAtFirst_refusesCalls)
{
    EXPECT_FALSE(calls.call([] { FAIL(); }));
}

TEST_F(WaitingCallsTest, call_isMadeByTheServingThread)
{
    open();
    std::thread::id caller;
    bool made = false;
    std::thread thread([&] { made = calls.call([&] { caller = std::this_thread::get_id(); }); });
    EXPECT_TRUE(loop.serveOnce(calls));
    thread.join();
    EXPECT_TRUE(made);
    EXPECT_EQ(caller, std::this_thread::get_id());
}

TEST_F(WaitingCallsTest, callsOfManyThreads_areMadeOneAfterAnother)
{
    constexpr int THREADS = 8;
    constexpr int CALLS = 50;
    open();
    int running = 0;
    int made = 0;
    const auto ask = [&] {
        for (int i = 0; i < CALLS; ++i) {
            EXPECT_TRUE(calls.call([&] {
                EXPECT_EQ(++running, 1);
                ++made;
                --running;
            }));
        }
    };
    Array<std::thread> threads;
    for (int i = 0; i < THREADS; ++i)
        threads.emplace_back(ask);
    while (made < THREADS * CALLS && loop.serveOnce(calls)) {
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(made, THREADS * CALLS);
}

TEST_F(WaitingCallsTest, callAskedForDuringACall_isMadeAfterwards)
{
    open();
    std::string order;
    std::thread second;
    std::thread first([&] {
        calls.call([&] {
            order += "first begins, ";
            second = std::thread([&] { calls.call([&] { order += ", second"; }); });
            // This is what happens when the first call runs an event loop.
            EXPECT_TRUE(loop.serveOnce(calls));
            order += "first ends";
        });
    });
    EXPECT_TRUE(loop.serveOnce(calls));
    EXPECT_TRUE(loop.serveOnce(calls));
    first.join();
    second.join();
    EXPECT_EQ(order, "first begins, first ends, second");
}

TEST_F(WaitingCallsTest, close_releasesTheWaitingThreads)
{
    constexpr int THREADS = 4;
    std::atomic<int> asked = 0;
    std::atomic<int> released = 0;
    calls.open([&] { ++asked; });
    Array<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&] {
            if (!calls.call([] { FAIL(); }))
                ++released;
        });
    }
    while (asked < THREADS)
        std::this_thread::yield();
    calls.close();
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(released, THREADS);
    calls.serveNext();
}

TEST_F(WaitingCallsTest, closedDuringACall_letsTheCallEnd)
{
    open();
    bool made = false;
    std::thread thread([&] { made = calls.call([&] { calls.close(); }); });
    EXPECT_TRUE(loop.serveOnce(calls));
    thread.join();
    EXPECT_TRUE(made);
    EXPECT_FALSE(calls.call([] { FAIL(); }));
}

TEST_F(WaitingCallsTest, openedAgain_acceptsCalls)
{
    open();
    calls.close();
    open();
    bool made = false;
    std::thread thread([&] { made = calls.call([] {}); });
    EXPECT_TRUE(loop.serveOnce(calls));
    thread.join();
    EXPECT_TRUE(made);
}

TEST_F(WaitingCallsTest, exceptionOfTheFunction_isThrownOnTheCallingThread)
{
    open();
    std::string what;
    std::thread thread([&] {
        try {
            calls.call([] { throw std::runtime_error("no memory"); });
        } catch (const std::runtime_error& error) {
            what = error.what();
        }
    });
    EXPECT_TRUE(loop.serveOnce(calls));
    thread.join();
    EXPECT_EQ(what, "no memory");
}

TEST_F(WaitingCallsTest, wakeUpThatThrows_leavesNoCallBehind)
{
    calls.open([] { throw std::runtime_error("no loop"); });
    EXPECT_THROW(calls.call([] { FAIL(); }), std::runtime_error);
    calls.serveNext();
}
