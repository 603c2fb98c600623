// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NativeWindows.h"
#include "support/FrameFixture.h"
#include "support/TaskbarCalls.h"

#include <thread>

namespace Nolvex::Tests {
namespace {

using Wx::TaskbarProgress;

// The task bar of the system, and real windows. What it shows cannot be read back on every system.
using TaskbarProgressWindowTest = FrameFixture;

TEST_F(TaskbarProgressWindowTest, ofAShownFrame_canBeChangedByEveryThread)
{
    showFrame();
    TaskbarProgress progress(Wx::getWindowNativeHandle(frame));
    showEverything(progress);
    std::thread([&progress] { showEverything(progress); }).join();
    pumpEvents();
    EXPECT_TRUE(frame->IsShown());
}

TEST_F(TaskbarProgressWindowTest, outlivesItsWindow)
{
    showFrame();
    TaskbarProgress progress(Wx::getWindowNativeHandle(frame));
    progress.setProgress(0.5f);
    destroyFrame();
    showEverything(progress);
    pumpEvents();
    EXPECT_FALSE(frame);
}

TEST_F(TaskbarProgressWindowTest, ofAHiddenFrameAndOfAControl_survivesEveryCall)
{
    TaskbarProgress ofFrame(Wx::getWindowNativeHandle(frame));
    TaskbarProgress ofPanel(Wx::getWindowNativeHandle(panel));
    showEverything(ofFrame);
    showEverything(ofPanel);
    pumpEvents();
    EXPECT_FALSE(frame->IsShown());
}

} // namespace
} // namespace Nolvex::Tests
