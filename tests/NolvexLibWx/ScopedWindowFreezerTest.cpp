// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScopedWindowFreezer.h"

#include "support/Events.h"

#include <wx/frame.h>
#include <wx/panel.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::ScopedWindowFreezer;

static_assert(!std::is_copy_constructible_v<ScopedWindowFreezer>);
static_assert(!std::is_convertible_v<wxWindow*, ScopedWindowFreezer>);

TEST(ScopedWindowFreezerTest, freezesWhileItLives)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "frozen");
    auto* panel = new wxPanel(frame);
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
    Tests::destroyNow(frame);
}

TEST(ScopedWindowFreezerTest, windowDestroyedMeanwhile_isLeftAlone)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "frozen");
    auto* panel = new wxPanel(frame);
    frame->Show();
    {
        const ScopedWindowFreezer freezer(panel);
        panel->Destroy();
        EXPECT_TRUE(frame->GetChildren().empty());
    }
    EXPECT_FALSE(frame->IsFrozen());
    Tests::destroyNow(frame);
}

TEST(ScopedWindowFreezerTest, ofNoWindow_doesNothing)
{
    const ScopedWindowFreezer freezer(nullptr);
}
