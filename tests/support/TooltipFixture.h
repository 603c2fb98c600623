// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/Tooltip.h"
#include "support/FrameFixture.h"

#include <wx/uiaction.h>

namespace Nolvex::Tests {

/// A frame that contains a tooltip owner of 200 x 100. The mouse starts away from both.
struct TooltipFixture : FrameFixture
{
    static constexpr int SHORT_DELAY = 60; // milliseconds

    wxWindow* owner = new wxPanel(panel, wxID_ANY, wxPoint(50, 50), wxSize(200, 100));
    wxUIActionSimulator mouse;

    TooltipFixture() { showFrame(); }

    Wx::Tooltip* make(const String& text, int delay = SHORT_DELAY) const
    {
        auto* tooltip = new Wx::Tooltip(owner, text);
        tooltip->setDelay(delay);
        return tooltip;
    }

    void moveTo(int x, int y)
    {
        mouse.MouseMove(owner->ClientToScreen(wxPoint(x, y)));
        pumpEvents(20);
    }

    void rest(Wx::Tooltip* tooltip, int x = 40, int y = 30)
    {
        moveTo(x - 2, y);
        moveTo(x, y);
        ASSERT_TRUE(pumpUntil([&] { return tooltip->IsShown(); }));
        pumpEvents(); // until the screen shows it
    }

    void leave()
    {
        mouse.MouseMove(panel->ClientToScreen(wxPoint(20, 20)));
        pumpEvents(60);
    }
};

} // namespace Nolvex::Tests
