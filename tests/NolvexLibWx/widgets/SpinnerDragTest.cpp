// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Spinner.h"

#include "SpinnerFixture.h"

#include <wx/display.h>

#include <cmath>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

// Behaves as on a system that refuses to move the pointer.
struct FixedPointerSpinner : OpenSpinner
{
    using OpenSpinner::OpenSpinner;

    void WarpPointer(int /*x*/, int /*y*/) override {}
};

struct SpinnerDragTest : SpinnerFixture
{
    // Returns the length of a drag that changes the value by this number of steps.
    static int pixels(int steps) { return steps * Wx::scaleByDpi(1); }

    static void dragTo(int screenY)
    {
        wxUIActionSimulator().MouseMove(wxGetMousePosition().x, screenY);
        pumpEvents(GESTURE_TIME);
    }

    static void dragBy(int distance) { dragTo(wxGetMousePosition().y + distance); }

    bool isHovered(bool up) const
    {
        const Wx::StaticBitmap* const arrow = up ? spinner->upArrow() : spinner->downArrow();
        return arrow->bitmap().IsSameAs(Wx::Spinner::arrowPicture(up, Wx::Spinner::ArrowLook::HOVERED));
    }

    wxRect pressOnMonitor(unsigned index, bool up) const
    {
        const wxRect monitor = wxDisplay(index).GetGeometry();
        const wxWindow* const arrow = up ? spinner->upArrow() : spinner->downArrow();
        frame->Move(monitor.x + 60, monitor.y + 80);
        // The frame reports its new place before it is there.
        EXPECT_TRUE(pumpUntil([&] {
            moveMouse(arrow, {5, 4});
            return isHovered(up) && monitor.Contains(wxGetMousePosition());
        }));
        pressMouse();
        EXPECT_EQ(wxWindow::GetCapture(), arrow);
        return monitor;
    }
};

} // namespace

TEST_F(SpinnerDragTest, draggingUp_raisesByTheStepAUnit)
{
    make(0, 100, 50, 0, 1);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - pixels(10));
    EXPECT_EQ(spinner->value(), 60.0f);
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 + pixels(5));
    EXPECT_EQ(spinner->value(), 45.0f);
    // The release of a drag is no step.
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP, 4);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 60.000000", "value 45.000000", "end"}));
}

TEST_F(SpinnerDragTest, motionWithoutAPress_changesNothing)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 1);
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerDragTest, motionThatStaysInPlace_isNoDrag)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    EXPECT_TRUE(spinner->repeatTimer().IsRunning());
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP, 4);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 2.000000", "end"}));
}

TEST_F(SpinnerDragTest, rightClickInADrag_restoresTheValueAtThePress_andEndsIt)
{
    make(0, 100, 4, 0);
    spinner->setValue(50, false);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - pixels(3));
    takeReports();
    sendMouse(spinner->upArrow(), wxEVT_RIGHT_UP, 4);
    EXPECT_EQ(takeReports(), (Reports{"value 50.000000", "end"}));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SpinnerDragTest, motionBeforeThePress_isTheStartOfTheDrag)
{
    make(0, 100, 50, 0, 1);
    sendMouse(spinner->upArrow(), wxEVT_ENTER_WINDOW, 7);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 7);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 7 - pixels(3));
    EXPECT_EQ(spinner->value(), 53.0f);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
}

TEST_F(SpinnerDragTest, sidewaysMotion_isADragToo)
{
    make(0, 100, 50, 0, 1);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 5);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP, 4);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 50.000000", "end"}));
}

TEST_F(SpinnerDragTest, smallSteps_addUp)
{
    make(0, 100, 50, 0, 0.25f);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    for (int i = 1; i <= 8; ++i)
        sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - pixels(i));
    EXPECT_EQ(spinner->value(), 52.0f);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
}

TEST_F(SpinnerDragTest, valueSetInItsOwnCallback_doesNotStopTheDrag)
{
    make(0, 100, 50, 0, 1);
    spinner->callOnValueChange(
        [this](float value) { spinner->setValue(std::round(value / 10) * 10, false); });
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    for (int i = 1; i <= 12; ++i)
        sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - pixels(i));
    EXPECT_EQ(spinner->value(), 60.0f);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
}

TEST_F(SpinnerDragTest, motionInsideTheCallback_countsOnce)
{
    make(0, 100, 50, 0, 1);
    bool first = true;
    spinner->callOnValueChange([&](float) {
        if (std::exchange(first, false))
            sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - pixels(3));
    });
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - pixels(2));
    EXPECT_EQ(takeReports(), (Reports{"start", "value 53.000000", "value 52.000000"}));
    EXPECT_EQ(spinner->value(), 53.0f);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
}

TEST_F(SpinnerDragTest, realDrag_followsThePointer_beyondTheSpinner)
{
    make(-1000, 1000, 0, 0, 1);
    moveMouse(spinner->upArrow(), {5, 4});
    pressMouse();
    dragBy(-pixels(20));
    EXPECT_TRUE(pumpUntil([this] { return spinner->value() == 20.0f; })) << spinner->value();
    dragBy(pixels(50));
    EXPECT_TRUE(pumpUntil([this] { return spinner->value() == -30.0f; })) << spinner->value();
    releaseMouse();
    EXPECT_EQ(reports.front(), "start");
    EXPECT_EQ(reports.back(), "end");
    EXPECT_EQ(spinner->value(), -30.0f);
}

TEST_F(SpinnerDragTest, atTheTopOfEachMonitor_goesOnAtTheBottom)
{
    make(-100000, 100000, 0, 0, 1);
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index) {
        const wxRect monitor = pressOnMonitor(index, false);
        dragTo(monitor.GetTop() + pixels(10));
        const float before = spinner->value();
        // The motion that reaches the edge counts in the other direction.
        dragTo(monitor.GetTop());
        EXPECT_TRUE(pumpUntil([&] { return spinner->value() == before - 10; }))
            << spinner->value() << " after " << before;
        EXPECT_EQ(wxGetMousePosition().y, monitor.GetBottom() - 1);
        dragTo(monitor.GetBottom() - 1 - pixels(30));
        EXPECT_TRUE(pumpUntil([&] { return spinner->value() == before - 10 + 30; }))
            << spinner->value() << " after " << before;
        releaseMouse();
    }
}

TEST_F(SpinnerDragTest, atTheBottomOfEachMonitor_goesOnAtTheTop)
{
    make(-100000, 100000, 0, 0, 1);
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index) {
        const wxRect monitor = pressOnMonitor(index, true);
        dragTo(monitor.GetBottom() - pixels(10));
        const float before = spinner->value();
        dragTo(monitor.GetBottom());
        EXPECT_TRUE(pumpUntil([&] { return spinner->value() == before + 10; }))
            << spinner->value() << " after " << before;
        EXPECT_EQ(wxGetMousePosition().y, monitor.GetTop() + 1);
        dragTo(monitor.GetTop() + 1 + pixels(20));
        EXPECT_TRUE(pumpUntil([&] { return spinner->value() == before + 10 - 20; }))
            << spinner->value() << " after " << before;
        releaseMouse();
    }
}

TEST_F(SpinnerDragTest, inAWindowFromRightToLeft_thePointerIsMovedStraightDown)
{
    frame->SetLayoutDirection(wxLayout_RightToLeft);
    panel->SetLayoutDirection(wxLayout_RightToLeft);
    make(-100000, 100000, 0, 0, 1);
    const wxRect monitor = pressOnMonitor(0, true);
    const int column = wxGetMousePosition().x;
    dragTo(monitor.GetTop() + pixels(10));
    dragTo(monitor.GetTop());
    EXPECT_TRUE(pumpUntil([&] { return wxGetMousePosition().y == monitor.GetBottom() - 1; }));
    EXPECT_EQ(wxGetMousePosition().x, column);
    releaseMouse();
}

TEST_F(SpinnerDragTest, outdatedMotionAfterTheWrap_countsForNothing)
{
    make(-100000, 100000, 0, 0, 1);
    const wxRect monitor = pressOnMonitor(0, true);
    dragTo(monitor.GetTop() + pixels(10));
    dragTo(monitor.GetTop());
    ASSERT_TRUE(pumpUntil([&] { return wxGetMousePosition().y == monitor.GetBottom() - 1; }));
    const float before = spinner->value();
    wxMouseEvent outdated(wxEVT_MOTION);
    outdated.SetPosition(
        spinner->upArrow()->ScreenToClient(wxPoint(monitor.GetLeft() + 7, monitor.GetTop())));
    spinner->upArrow()->GetEventHandler()->ProcessEvent(outdated);
    EXPECT_EQ(spinner->value(), before);
    releaseMouse();
}

TEST_F(SpinnerDragTest, pointerThatCannotBeMoved_endsTheDragAtTheEdge)
{
    make<FixedPointerSpinner>(-100000, 100000, 0, 0, 1);
    const wxRect monitor = pressOnMonitor(0, true);
    dragTo(monitor.GetTop() + pixels(10));
    const float before = spinner->value();
    dragTo(monitor.GetTop());
    EXPECT_TRUE(pumpUntil([&] { return spinner->value() == before + 10; })) << spinner->value();
    dragTo(monitor.GetTop() + pixels(30));
    EXPECT_TRUE(pumpUntil([&] { return spinner->value() == before - 20; })) << spinner->value();
    releaseMouse();
    EXPECT_EQ(reports.back(), "end");
}
