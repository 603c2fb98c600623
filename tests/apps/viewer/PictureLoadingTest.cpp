// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureLoading.h"

#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <new>
#include <thread>

using namespace Nolvex;
using Tests::coordinates;
using Tests::pumpEvents;
using Tests::pumpUntil;
using Viewer::PictureLoading;

namespace {

struct PictureLoadingTest : testing::Test
{
    std::unique_ptr<PictureLoading> loading = std::make_unique<PictureLoading>();
    Array<PictureLoading::Result> results;
    std::promise<void> mayEnd;
    std::shared_future<void> end = mayEnd.get_future().share();

    PictureLoading::Done keep()
    {
        return [this](const PictureLoading::Result& result) { results.push_back(result); };
    }

    static PictureLoading::Read picture(int width)
    {
        return [width](const Viewer::ReadingProgress&) { return coordinates(width, 1); };
    }

    // Reads until the end is allowed, like a reader that does not look at the progress.
    PictureLoading::Read slowPicture(int width)
    {
        return [width, until = end](const Viewer::ReadingProgress&) {
            until.wait();
            return coordinates(width, 1);
        };
    }
};

} // namespace

TEST_F(PictureLoadingTest, picture_isReadOnAThreadAndHandedOverOnTheMainThread)
{
    std::atomic<std::thread::id> reader;
    std::thread::id receiver;
    loading->start(
        [&](const Viewer::ReadingProgress&) {
            reader = std::this_thread::get_id();
            return coordinates(5, 1);
        },
        [&](const PictureLoading::Result& result) {
            receiver = std::this_thread::get_id();
            results.push_back(result);
            EXPECT_FALSE(loading->isRunning());
        });
    EXPECT_TRUE(loading->isRunning());
    ASSERT_TRUE(pumpUntil([&] { return !results.empty(); }));
    EXPECT_EQ((*results[0])->size().x, 5);
    EXPECT_NE(reader.load(), std::this_thread::get_id());
    EXPECT_EQ(receiver, std::this_thread::get_id());
}

TEST_F(PictureLoadingTest, finish_waitsAndCallsOnce)
{
    loading->start(picture(5), keep());
    loading->finish();
    EXPECT_EQ(results.size(), 1U);
    pumpEvents(50);
    loading->finish();
    EXPECT_EQ(results.size(), 1U);
}

TEST_F(PictureLoadingTest, cancelled_callsNothingAndWaitsForNobody)
{
    loading->start(slowPicture(5), keep());
    loading->cancel();
    EXPECT_FALSE(loading->isRunning());
    mayEnd.set_value();
    pumpEvents(100);
    EXPECT_TRUE(results.empty());
}

TEST_F(PictureLoadingTest, cancelled_tellsTheReader)
{
    std::atomic<bool> hasNoticed = false;
    loading->start(
        [&](const Viewer::ReadingProgress& progress) -> PictureLoading::Result {
            while (progress(0.25f))
                std::this_thread::yield();
            hasNoticed = true;
            return Unexpected{String(L"stopped")};
        },
        keep());
    ASSERT_TRUE(pumpUntil([&] { return loading->progress() == 0.25f; }));
    loading->cancel();
    EXPECT_EQ(loading->progress(), 0.0f);
    EXPECT_TRUE(pumpUntil([&] { return hasNoticed.load(); }));
    EXPECT_TRUE(results.empty());
}

TEST_F(PictureLoadingTest, anotherStart_takesThePlaceOfTheFirst)
{
    loading->start(slowPicture(5), keep());
    loading->start(picture(7), keep());
    ASSERT_TRUE(pumpUntil([&] { return !results.empty(); }));
    mayEnd.set_value();
    pumpEvents(50);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ((*results[0])->size().x, 7);
}

TEST_F(PictureLoadingTest, destroyed_stopsTheReader)
{
    std::atomic<bool> hasEnded = false;
    loading->start(
        [&](const Viewer::ReadingProgress& progress) -> PictureLoading::Result {
            while (progress(0.5f))
                std::this_thread::yield();
            hasEnded = true;
            return Unexpected{String()};
        },
        keep());
    loading.reset();
    EXPECT_TRUE(hasEnded);
    pumpEvents(50);
    EXPECT_TRUE(results.empty());
}

TEST_F(PictureLoadingTest, lackOfMemory_isAnError)
{
    loading->start([](const Viewer::ReadingProgress&) -> PictureLoading::Result { throw std::bad_alloc(); },
                   keep());
    loading->finish();
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].error(), String(L"There is not enough memory for the picture."));
}

TEST_F(PictureLoadingTest, receiver_mayStartTheNextOrDestroyTheLoading)
{
    loading->start(picture(5), [this](const PictureLoading::Result&) {
        loading->start(picture(7), [this](const PictureLoading::Result& second) {
            results.push_back(second);
            loading.reset();
        });
    });
    ASSERT_TRUE(pumpUntil([&] { return loading == nullptr; }));
    EXPECT_EQ((*results[0])->size().x, 7);
}
