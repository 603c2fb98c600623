// SPDX-License-Identifier: MIT
#include "apps/viewer/BackgroundTask.h"

#include "support/Events.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <new>
#include <thread>

using namespace Nolvex;
using Tests::pumpEvents;
using Tests::pumpUntil;

namespace {

using Task = Viewer::BackgroundTask<int>;

struct BackgroundTaskTest : testing::Test
{
    std::unique_ptr<Task> task = std::make_unique<Task>();
    Array<Optional<int>> results;
    std::promise<void> mayEnd;
    std::shared_future<void> end = mayEnd.get_future().share();

    Task::Done keep()
    {
        return [this](const Optional<int>& result) { results.push_back(result); };
    }

    static Task::Work quickly(int number)
    {
        return [number](const Viewer::Progress&) { return number; };
    }

    // Works until the end is allowed, without a look at the progress.
    Task::Work slowly(int number)
    {
        return [number, until = end](const Viewer::Progress&) {
            until.wait();
            return number;
        };
    }
};

} // namespace

TEST_F(BackgroundTaskTest, work_isDoneOnAThreadAndHandedOverOnTheMainThread)
{
    std::atomic<std::thread::id> reader;
    std::thread::id receiver;
    task->start(
        [&](const Viewer::Progress&) {
            reader = std::this_thread::get_id();
            return 5;
        },
        [&](const Optional<int>& result) {
            receiver = std::this_thread::get_id();
            results.push_back(result);
            EXPECT_FALSE(task->isRunning());
        });
    EXPECT_TRUE(task->isRunning());
    ASSERT_TRUE(pumpUntil([&] { return !results.empty(); }));
    EXPECT_EQ(results[0], 5);
    EXPECT_NE(reader.load(), std::this_thread::get_id());
    EXPECT_EQ(receiver, std::this_thread::get_id());
}

TEST_F(BackgroundTaskTest, finish_waitsAndCallsOnce)
{
    task->start(quickly(5), keep());
    task->finish();
    EXPECT_EQ(results.size(), 1U);
    pumpEvents(50);
    task->finish();
    EXPECT_EQ(results.size(), 1U);
}

TEST_F(BackgroundTaskTest, cancelled_callsNothingAndWaitsForNobody)
{
    task->start(slowly(5), keep());
    task->cancel();
    EXPECT_FALSE(task->isRunning());
    mayEnd.set_value();
    pumpEvents(100);
    EXPECT_TRUE(results.empty());
}

TEST_F(BackgroundTaskTest, cancelled_tellsTheWork)
{
    std::atomic<bool> hasNoticed = false;
    task->start(
        [&](const Viewer::Progress& progress) -> int {
            while (progress(0.25f))
                std::this_thread::yield();
            hasNoticed = true;
            return 0;
        },
        keep());
    ASSERT_TRUE(pumpUntil([&] { return task->progress() == 0.25f; }));
    task->cancel();
    EXPECT_EQ(task->progress(), 0.0f);
    EXPECT_TRUE(pumpUntil([&] { return hasNoticed.load(); }));
    EXPECT_TRUE(results.empty());
}

TEST_F(BackgroundTaskTest, anotherStart_takesThePlaceOfTheFirst)
{
    task->start(slowly(5), keep());
    task->start(quickly(7), keep());
    ASSERT_TRUE(pumpUntil([&] { return !results.empty(); }));
    mayEnd.set_value();
    pumpEvents(50);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0], 7);
}

TEST_F(BackgroundTaskTest, destroyed_stopsTheWork)
{
    std::atomic<bool> hasEnded = false;
    task->start(
        [&](const Viewer::Progress& progress) -> int {
            while (progress(0.5f))
                std::this_thread::yield();
            hasEnded = true;
            return 0;
        },
        keep());
    task.reset();
    EXPECT_TRUE(hasEnded);
    pumpEvents(50);
    EXPECT_TRUE(results.empty());
}

TEST_F(BackgroundTaskTest, lackOfMemory_givesNothing)
{
    task->start([](const Viewer::Progress&) -> int { throw std::bad_alloc(); }, keep());
    task->finish();
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0], std::nullopt);
}

TEST_F(BackgroundTaskTest, receiver_mayStartTheNextOrDestroyTheLoading)
{
    task->start(quickly(5), [this](const Optional<int>&) {
        task->start(quickly(7), [this](const Optional<int>& second) {
            results.push_back(second);
            task.reset();
        });
    });
    ASSERT_TRUE(pumpUntil([&] { return task == nullptr; }));
    EXPECT_EQ(results[0], 7);
}
