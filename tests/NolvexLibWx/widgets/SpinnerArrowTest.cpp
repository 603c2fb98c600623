// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Spinner.h"

#include "SpinnerFixture.h"
#include "support/Screen.h"

#include <algorithm>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

constexpr RgbBytes FRAME{54, 54, 54};
constexpr RgbBytes EDGE{37, 37, 37};
constexpr RgbBytes FACE{60, 60, 60};
constexpr RgbBytes TRIANGLE{200, 200, 200};

// Returns the colour in the middle of a pixel of the picture, which each become several pixels of the screen.
RgbBytes enlargedPixelAt(const wxImage& image, int x, int y)
{
    const int scale = std::max(Wx::scaleByDpi(1), 1);
    return pixelAt(image, x * scale + scale / 2, y * scale + scale / 2);
}

struct SpinnerArrowTest : SpinnerFixture
{
    using enum Wx::Spinner::ArrowLook;
    using Look = Wx::Spinner::ArrowLook;

    bool hasLooks(Look up, Look down) const
    {
        return spinner->upArrow()->bitmap().IsSameAs(Wx::Spinner::arrowPicture(true, up)) &&
               spinner->downArrow()->bitmap().IsSameAs(Wx::Spinner::arrowPicture(false, down));
    }

    void expectLooks(Look up, Look down) const { EXPECT_TRUE(hasLooks(up, down)); }
};

} // namespace

TEST_F(SpinnerArrowTest, click_startsStepsOnceAndEnds)
{
    make();
    click(spinner->upArrow());
    EXPECT_EQ(takeReports(), (Reports{"start", "value 2.000000", "end"}));
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
}

TEST_F(SpinnerArrowTest, holding_stepsAfter200Milliseconds_thenEvery50)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    EXPECT_TRUE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(spinner->repeatTimer().GetInterval(), 200);
    EXPECT_EQ(takeReports(), Reports{"start"});
    tick();
    EXPECT_TRUE(spinner->repeatTimer().IsRunning());
    EXPECT_FALSE(spinner->repeatTimer().IsOneShot());
    EXPECT_EQ(spinner->repeatTimer().GetInterval(), 50);
    EXPECT_EQ(takeReports(), Reports{"value 2.000000"});
    tick();
    EXPECT_EQ(spinner->repeatTimer().GetInterval(), 50);
    EXPECT_EQ(takeReports(), Reports{"value 3.000000"});
    // The release steps once more.
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
    EXPECT_EQ(takeReports(), (Reports{"value 4.000000", "end"}));
}

TEST_F(SpinnerArrowTest, rightClick_restoresTheDefault)
{
    make(0, 10, 4);
    spinner->setValue(9, false);
    sendMouse(spinner->downArrow(), wxEVT_RIGHT_UP);
    EXPECT_EQ(takeReports(), Reports{"value 4.000000"});
}

TEST_F(SpinnerArrowTest, captureLost_endsTheInteractionWithoutAStep)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    takeReports();
    wxMouseCaptureLostEvent lost;
    lost.SetEventObject(spinner->upArrow());
    spinner->upArrow()->GetEventHandler()->ProcessEvent(lost);
    EXPECT_EQ(takeReports(), Reports{"end"});
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SpinnerArrowTest, realClick_steps)
{
    make();
    clickAt(spinner->upArrow(), {5, 4});
    EXPECT_TRUE(comesTo({"start", "value 2.000000", "end"}));
    takeReports();
    clickAt(spinner->downArrow(), {5, 4});
    EXPECT_TRUE(comesTo({"start", "value 1.000000", "end"}));
}

TEST_F(SpinnerArrowTest, realPress_startsTheTimer_andHoldsTheMouse)
{
    make(0, 100);
    // The first repetition must not come before the test looks.
    moveMouse(spinner->downArrow(), {5, 4});
    wxUIActionSimulator().MouseDown(wxMOUSE_BTN_LEFT);
    ASSERT_TRUE(pumpUntil([this] { return spinner->repeatTimer().IsRunning(); }));
    EXPECT_EQ(wxWindow::GetCapture(), spinner->downArrow());
    EXPECT_EQ(reports.front(), "start");
    EXPECT_EQ(reports.size(), 1U);
    releaseMouse();
    ASSERT_TRUE(pumpUntil([this] { return reports.back() == "end"; }));
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SpinnerArrowTest, realDoubleClick_stepsTwice)
{
    make();
    moveMouse(spinner->upArrow(), {5, 4});
    wxUIActionSimulator().MouseDblClick(wxMOUSE_BTN_LEFT);
    EXPECT_TRUE(pumpUntil([this] { return spinner->value() == 3.0f; }));
    pumpEvents(GESTURE_TIME);
    EXPECT_EQ(spinner->value(), 3.0f);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SpinnerArrowTest, releaseWithoutAPress_stepsOnly)
{
    make();
    sendMouse(spinner->downArrow(), wxEVT_LEFT_DOWN);
    sendMouse(spinner->downArrow(), wxEVT_LEFT_UP);
    takeReports();
    spinner->setValue(5, false);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
    EXPECT_EQ(takeReports(), Reports{"value 4.000000"});
}

TEST_F(SpinnerArrowTest, secondPressDuringAPress_isNone)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    EXPECT_EQ(takeReports(), Reports{"start"});
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
    EXPECT_EQ(takeReports(), (Reports{"value 2.000000", "end"}));
}

TEST_F(SpinnerArrowTest, rightClickWhilePressed_restoresTheDefaultAndEnds)
{
    make(0, 10, 4);
    spinner->setValue(9, false);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    sendMouse(spinner->upArrow(), wxEVT_RIGHT_UP);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 4.000000", "end"}));
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SpinnerArrowTest, tickAfterTheEnd_stopsTheTimer)
{
    make();
    spinner->repeatTimer().Start(50);
    tick();
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerArrowTest, disabledWhilePressed_endsWithoutAStep)
{
    make();
    pressMouseAt(spinner->upArrow(), {5, 4});
    ASSERT_FALSE(reports.empty());
    panel->Disable();
    EXPECT_TRUE(pumpUntil([this] { return reports.back() == "end"; }));
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    releaseMouse();
    EXPECT_EQ(reports.back(), "end");
}

TEST_F(SpinnerArrowTest, hiddenWhilePressed_endsWithoutAStep)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    spinner->Hide();
    EXPECT_TRUE(comesTo({"start", "end"}));
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
}

TEST_F(SpinnerArrowTest, pressInAStepOfTheRelease_ownsTheMouse)
{
    make();
    const wxWindow* holder = spinner;
    bool repeats = true;
    spinner->callOnValueChange([&](float) {
        holder = wxWindow::GetCapture();
        repeats = spinner->repeatTimer().IsRunning();
    });
    click(spinner->upArrow());
    EXPECT_EQ(holder, nullptr) << "a dialog that the callback opens needs the mouse";
    EXPECT_FALSE(repeats) << "the dialog's event loop would make further steps";
}

TEST_F(SpinnerArrowTest, looks_followThePointer)
{
    make();
    expectLooks(NORMAL, NORMAL);
    moveMouse(spinner->upArrow(), {5, 4});
    EXPECT_TRUE(pumpUntil([this] { return hasLooks(HOVERED, NORMAL); }));
    moveMouse(spinner->downArrow(), {5, 4});
    EXPECT_TRUE(pumpUntil([this] { return hasLooks(NORMAL, HOVERED); }));
    pressMouse();
    expectLooks(NORMAL, PRESSED);
    releaseMouse();
    expectLooks(NORMAL, NORMAL);
    moveMouse(panel, {5, 5});
    expectLooks(NORMAL, NORMAL);
}

TEST_F(SpinnerArrowTest, drag_pressesBoth_andNothingHoversMeanwhile)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    expectLooks(PRESSED, NORMAL);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 2);
    expectLooks(PRESSED, PRESSED);
    sendMouse(spinner->upArrow(), wxEVT_LEAVE_WINDOW);
    sendMouse(spinner->downArrow(), wxEVT_ENTER_WINDOW);
    expectLooks(PRESSED, PRESSED);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
    expectLooks(NORMAL, NORMAL);
}

TEST_F(SpinnerArrowTest, disabledUnderTheMouse_showsNoHover)
{
    make();
    moveMouse(spinner->upArrow(), {5, 4});
    ASSERT_TRUE(pumpUntil([this] { return hasLooks(HOVERED, NORMAL); }));
    panel->Disable();
    // On Windows a disabled window notices only the next motion of the mouse.
    moveMouse(spinner->upArrow(), {6, 5});
    EXPECT_TRUE(pumpUntil([this] { return hasLooks(NORMAL, NORMAL); }));
}

TEST_F(SpinnerArrowTest, pictures_areSharedByAllSpinners)
{
    make();
    auto* second = new OpenSpinner(panel, 22, 60, 0, 1, 0, 1, 1);
    EXPECT_TRUE(second->upArrow()->bitmap().IsSameAs(spinner->upArrow()->bitmap()));
    EXPECT_FALSE(second->upArrow()->bitmap().IsSameAs(second->downArrow()->bitmap()));
}

// The environment of the run sets the scale. The test holds at every scale.
using SpinnerPixelTest = SpinnerArrowTest;

TEST_F(SpinnerPixelTest, pictures_areOnTheScreen)
{
    make();
    ASSERT_TRUE(pumpUntil([this] { return pixelAt(captureClientArea(spinner->upArrow()), 0, 0) == FRAME; }));
    const wxImage up = captureClientArea(spinner->upArrow());
    const wxImage down = captureClientArea(spinner->downArrow());
    EXPECT_EQ(enlargedPixelAt(up, 1, 1), EDGE);
    EXPECT_EQ(enlargedPixelAt(up, 2, 3), FACE);
    EXPECT_EQ(enlargedPixelAt(up, 5, 3), TRIANGLE);
    EXPECT_EQ(enlargedPixelAt(up, 3, 3), FACE);
    EXPECT_EQ(enlargedPixelAt(up, 3, 5), TRIANGLE);
    EXPECT_EQ(enlargedPixelAt(down, 3, 3), TRIANGLE);
    EXPECT_EQ(enlargedPixelAt(down, 3, 5), FACE);
    EXPECT_EQ(enlargedPixelAt(down, 5, 5), TRIANGLE);
}
