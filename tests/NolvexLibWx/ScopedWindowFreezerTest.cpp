// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScopedWindowFreezer.h"

#include "support/FrameFixture.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::ScopedWindowFreezer;

static_assert(!std::is_copy_constructible_v<ScopedWindowFreezer>);
static_assert(!std::is_convertible_v<wxWindow*, ScopedWindowFreezer>);

namespace {

struct ScopedWindowFreezerTest : Tests::FrameFixture
{};

} // namespace

TEST_F(ScopedWindowFreezerTest, freezesWhileItLives)
{
    frame->Show();
    {
        const ScopedWindowFreezer freezer(panel);
        EXPECT_TRUE(panel->IsFrozen());
        EXPECT_FALSE(frame->IsFrozen());
        {
            const ScopedWindowFreezer nested(panel);
        }
        EXPECT_TRUE(panel->IsFrozen()) << "still frozen by the outer one";
    }
    EXPECT_FALSE(panel->IsFrozen());
}

TEST_F(ScopedWindowFreezerTest, windowDestroyedMeanwhile_isLeftAlone)
{
    frame->Show();
    {
        const ScopedWindowFreezer freezer(panel);
        panel->Destroy();
        EXPECT_TRUE(frame->GetChildren().empty());
    }
    EXPECT_FALSE(frame->IsFrozen());
}

TEST_F(ScopedWindowFreezerTest, ofNoWindow_doesNothing)
{
    const ScopedWindowFreezer freezer(nullptr);
}
