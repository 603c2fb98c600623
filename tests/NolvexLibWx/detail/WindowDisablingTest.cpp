// SPDX-License-Identifier: MIT
#include "NolvexLib/GuiDisabler.h"
#include "support/Events.h"

#include <wx/frame.h>

#include <gtest/gtest.h>

#include <optional>

using namespace Nolvex;

TEST(WindowDisablingTest, guiDisabler_disablesTopLevelWindowsWhileItLives)
{
    auto* first = new wxFrame(nullptr, wxID_ANY, "first");
    auto* second = new wxFrame(nullptr, wxID_ANY, "second");
    // wxWidgets does not disable hidden windows, which take no input anyway.
    first->Show();
    second->Show();
    Tests::pumpEvents(20);
    second->Disable();
    {
        const GuiDisabler disabler;
        EXPECT_FALSE(first->IsEnabled());
        {
            const GuiDisabler nested;
            EXPECT_FALSE(first->IsEnabled());
        }
        EXPECT_FALSE(first->IsEnabled());
    }
    EXPECT_TRUE(first->IsEnabled());
    EXPECT_FALSE(second->IsEnabled()) << "was disabled before, stays so";
    Tests::destroyNow(first);
    Tests::destroyNow(second);
}
