// SPDX-License-Identifier: MIT
#include "NolvexLib/MainThread.h"

#include "NolvexLib/Function.h"
#include "NolvexLib/Lib.h"

#include <gtest/gtest.h>

#include <thread>

namespace Nolvex {
namespace {

void runOnThread(const Function<void()>& function)
{
    std::thread(function).join();
}

TEST(MainThreadTest, isMainThread_isTrueOnlyOnTheThreadThatStarted)
{
    Lib::startup();
    EXPECT_TRUE(isMainThread());
    bool onThread = true;
    runOnThread([&] { onThread = isMainThread(); });
    EXPECT_FALSE(onThread);
    Lib::shutdown();
    EXPECT_TRUE(isMainThread());
}

TEST(MainThreadTest, isMainThread_afterASecondStartupElsewhere_isThatOfTheFirst)
{
    Lib::startup();
    runOnThread([] { Lib::startup(); });
    EXPECT_TRUE(isMainThread());
    Lib::shutdown();
    Lib::shutdown();
}

TEST(MainThreadTest, isMainThread_afterStartingAnew_isTheNewOne)
{
    bool onThread = false;
    runOnThread([&] {
        Lib::startup();
        onThread = isMainThread();
        Lib::shutdown();
    });
    EXPECT_TRUE(onThread);
    EXPECT_FALSE(isMainThread());
    Lib::startup();
    EXPECT_TRUE(isMainThread());
    Lib::shutdown();
}

} // namespace
} // namespace Nolvex
