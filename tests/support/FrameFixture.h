// SPDX-License-Identifier: MIT
#pragma once

#include "support/Events.h"

#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/uiaction.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

namespace Nolvex::Tests {

/// The base of tests that need a frame. It makes a hidden frame that is filled by a panel and destroys the
/// frame after the test, when no window may hold the mouse capture any more.
struct FrameFixture : testing::Test
{
    explicit FrameFixture(const wxString& title = L"test", const wxSize& size = {400, 300},
                          long style = wxDEFAULT_FRAME_STYLE)
        : frame(new wxFrame(nullptr, wxID_ANY, title, wxPoint(100, 100), size, style)),
          panel(new wxPanel(frame))
    {}

    // A test that failed in the middle of a press leaves no pressed button to the next test.
    ~FrameFixture() override
    {
        if (wxGetMouseState().LeftIsDown())
            wxUIActionSimulator().MouseUp();
        destroyFrame();
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    }

    /// Moves the mouse away and brings the frame to the front. Returns when the panel has been painted and,
    /// if a window manager activates frames at all, the frame is active.
    void showFrame() const
    {
        bool painted = false;
        const auto onPaint = [&painted](wxPaintEvent& event) {
            painted = true;
            event.Skip();
        };
        panel->Bind(wxEVT_PAINT, onPaint);
        frame->Show();
        frame->Raise();
        wxUIActionSimulator().MouseMove(5, 5);
        panel->Refresh();
        EXPECT_TRUE(pumpUntil([&painted] { return painted; }));
        panel->Unbind(wxEVT_PAINT, onPaint);
        waitForActivation();
    }

    /// Does nothing when the test has destroyed the frame itself.
    void destroyFrame() const
    {
        if (frame)
            destroyNow(frame);
    }

    wxWeakRef<wxFrame> frame;
    wxPanel* panel;

private:
    // Without a window manager no frame is ever active. Where one frame was, the next one will be, however
    // busy the machine is. Input gets lost before that, and also while a window that was shown earlier
    // becomes active once more for a moment.
    void waitForActivation() const
    {
        static bool activates = false;
        constexpr int STABLE_TIME = 50; // milliseconds
        constexpr int USUAL_TIME = 250;
        constexpr int LONGEST_TIME = 5000;
        const bool active = pumpUntilStable([this] { return frame->IsActive(); }, STABLE_TIME,
                                            activates ? LONGEST_TIME : USUAL_TIME);
        activates = activates || active;
    }
};

} // namespace Nolvex::Tests
