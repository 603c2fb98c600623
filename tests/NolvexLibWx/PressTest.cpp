// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Press.h"

#include "support/FrameFixture.h"
#include "support/Gestures.h"

using namespace Nolvex;
using namespace Nolvex::Tests;
using Wx::Press;

namespace {

constexpr auto MOUSE = Press::Means::MOUSE;
constexpr auto KEYBOARD = Press::Means::KEYBOARD;
const wxPoint INSIDE(10, 10);

// A control that records the course of its press.
struct Control : wxPanel
{
    Control(wxWindow* parent, Press::WhenDisabled whenDisabled)
        : wxPanel(parent, wxID_ANY, wxPoint(20, 20), wxSize(60, 40)), press(this, whenDisabled)
    {
        Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { press.begin(MOUSE); });
        Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) { outcome = press.release(event.GetPosition()); });
        Bind(wxEVT_MOTION, [this](wxMouseEvent& event) { lastSeen = event.GetPosition(); });
        Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { cancelled = press.cancel(); });
    }

    Press press;
    Press::Outcome outcome = Press::Outcome::NONE;
    wxPoint lastSeen;
    bool cancelled = false;
};

struct PressTest : FrameFixture
{
    PressTest() { showFrame(); }

    Control* make(Press::WhenDisabled whenDisabled = Press::WhenDisabled::ENDS) const
    {
        auto* control = new Control(panel, whenDisabled);
        pumpEvents(20);
        return control;
    }
};

} // namespace

TEST_F(PressTest, construction_pressesNothing)
{
    Control* control = make();
    EXPECT_FALSE(control->press.isHeld());
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::NONE);
    EXPECT_EQ(control->press.releaseKey(), Press::Outcome::NONE);
    EXPECT_FALSE(control->press.cancel());
}

TEST_F(PressTest, mouse_isCapturedUntilTheRelease)
{
    Control* control = make();
    control->press.begin(MOUSE);
    EXPECT_TRUE(control->press.isHeldBy(MOUSE));
    EXPECT_FALSE(control->press.isHeldBy(KEYBOARD));
    EXPECT_EQ(wxWindow::GetCapture(), control);
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::COMPLETED);
    EXPECT_FALSE(control->press.isHeld());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::NONE);
}

TEST_F(PressTest, releasedOutside_isCancelled)
{
    Control* control = make();
    for (const wxPoint& outside : {wxPoint(-1, 0), wxPoint(0, -1), wxPoint(60, 0), wxPoint(0, 40)}) {
        control->press.begin(MOUSE);
        EXPECT_EQ(control->press.release(outside), Press::Outcome::CANCELLED);
    }
    for (const wxPoint& corner : {wxPoint(0, 0), wxPoint(59, 39)}) {
        control->press.begin(MOUSE);
        EXPECT_EQ(control->press.release(corner), Press::Outcome::COMPLETED);
    }
}

TEST_F(PressTest, keyboard_capturesNothingAndIsNotReleasedByTheMouse)
{
    Control* control = make();
    control->press.begin(KEYBOARD);
    EXPECT_TRUE(control->press.isHeldBy(KEYBOARD));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::NONE);
    EXPECT_EQ(control->press.releaseKey(), Press::Outcome::COMPLETED);
    EXPECT_FALSE(control->press.isHeld());
}

TEST_F(PressTest, mouseAfterKey_goesOnByTheMouse)
{
    Control* control = make();
    control->press.begin(KEYBOARD);
    control->press.begin(MOUSE);
    EXPECT_EQ(control->press.releaseKey(), Press::Outcome::NONE);
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::COMPLETED);
}

TEST_F(PressTest, keyAfterMouse_givesTheMouseBack)
{
    Control* control = make();
    control->press.begin(MOUSE);
    control->press.begin(KEYBOARD);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::NONE);
    EXPECT_EQ(control->press.releaseKey(), Press::Outcome::COMPLETED);
}

TEST_F(PressTest, releaseWithoutPress_leavesTheMouseToItsHolder)
{
    Control* control = make();
    control->CaptureMouse();
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::NONE);
    EXPECT_EQ(wxWindow::GetCapture(), control);
    control->ReleaseMouse();
}

TEST_F(PressTest, cancelled_givesTheMouseBack)
{
    Control* control = make();
    control->press.begin(MOUSE);
    EXPECT_TRUE(control->press.cancel());
    EXPECT_FALSE(control->press.isHeld());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::NONE);
}

TEST_F(PressTest, mouseFreedBefore_stillCountsWhenItIsReleased)
{
    Control* control = make();
    control->press.begin(MOUSE);
    control->press.freeMouse();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_TRUE(control->press.isHeld());
    EXPECT_EQ(control->press.release(INSIDE), Press::Outcome::COMPLETED);
}

TEST_F(PressTest, captureAgain_withoutPress_capturesNothing)
{
    Control* control = make();
    control->press.captureAgain();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    control->press.begin(MOUSE);
    control->press.freeMouse();
    control->press.captureAgain();
    EXPECT_EQ(wxWindow::GetCapture(), control);
    control->press.cancel();
}

TEST_F(PressTest, disabled_isCancelled)
{
    Control* control = make();
    pressMouseAt(control, INSIDE);
    ASSERT_TRUE(control->press.isHeld());
    panel->Disable();
    EXPECT_TRUE(pumpUntil([control] { return control->cancelled; }));
    EXPECT_FALSE(control->press.isHeld());
    releaseMouse();
    EXPECT_EQ(control->outcome, Press::Outcome::NONE);
}

// A spinner follows the mouse while one of its arrows is pressed, wherever the mouse goes.
TEST_F(PressTest, mouseDraggedAway_isSeenUntilItIsReleased)
{
    Control* control = make();
    pressMouseAt(control, INSIDE);
    moveMouse(control, {200, 150});
    EXPECT_EQ(control->lastSeen, wxPoint(200, 150));
    releaseMouse();
    EXPECT_EQ(control->outcome, Press::Outcome::CANCELLED);
    control->lastSeen = {};
    moveMouse(control, {201, 151});
    EXPECT_EQ(control->lastSeen, wxPoint());
}

TEST_F(PressTest, otherButton_canEndAPress)
{
    Control* control = make();
    control->Bind(wxEVT_RIGHT_UP, [control](wxMouseEvent&) { control->cancelled = control->press.cancel(); });
    pressMouseAt(control, INSIDE);
    wxUIActionSimulator().MouseClick(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(pumpUntil([control] { return control->cancelled; }));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    releaseMouse();
    EXPECT_EQ(control->outcome, Press::Outcome::NONE);
}
