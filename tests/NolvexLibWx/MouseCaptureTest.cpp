// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MouseCapture.h"

#include "support/FrameFixture.h"

#include <functional>

using namespace Nolvex;
using namespace Nolvex::Tests;
using Wx::MouseCapture;

namespace {

struct Control : wxPanel
{
    explicit Control(wxWindow* parent) : wxPanel(parent)
    {
        Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) {
            ++losses;
            capture.end();
        });
    }

    int losses = 0;
    MouseCapture capture{this};
};

struct MouseCaptureTest : FrameFixture
{
    Control* one = new Control(panel);
    Control* two = new Control(panel);
    Control* three = new Control(panel);

    // On GTK only a window that has been shown can capture the mouse.
    MouseCaptureTest() { showFrame(); }

    /// Begins the capture of a control, makes the change, and expects that the control loses the capture and
    /// is told so once.
    void expectLoses(Control* control, const std::function<void()>& change) const
    {
        control->capture.begin();
        ASSERT_TRUE(control->capture.isHeld());
        change();
        EXPECT_TRUE(pumpUntil([control] { return control->losses > 0; }));
        EXPECT_EQ(control->losses, 1);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    }
};

} // namespace

TEST_F(MouseCaptureTest, construction_capturesNothing)
{
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_FALSE(one->capture.isHeld());
}

TEST_F(MouseCaptureTest, begunTwice_isEndedOnce)
{
    one->capture.begin();
    one->capture.begin();
    EXPECT_TRUE(one->capture.isHeld());
    one->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(MouseCaptureTest, takenByAnotherWindow_isLostUntilTheEnd)
{
    EXPECT_FALSE(one->capture.isLost());
    one->capture.begin();
    EXPECT_FALSE(one->capture.isLost());
    two->capture.begin();
    EXPECT_TRUE(one->capture.isLost());
    one->capture.end();
    EXPECT_FALSE(one->capture.isLost());
    two->capture.end();
}

TEST_F(MouseCaptureTest, endedWithoutBegin_changesNothing)
{
    one->capture.begin();
    two->capture.end();
    EXPECT_TRUE(one->capture.isHeld());
    one->capture.end();
    one->capture.end();
}

TEST_F(MouseCaptureTest, captureOfTheWindowItself_isEndedToo)
{
    one->CaptureMouse();
    one->capture.begin();
    one->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(MouseCaptureTest, endedBelowOthers_leavesThemTheMouse)
{
    one->capture.begin();
    two->capture.begin();
    three->capture.begin();
    one->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), three);
    three->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), two);
    two->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr) << "the first one has ended";
}

TEST_F(MouseCaptureTest, begunAgainBelowAnother_isNotCapturedTwice)
{
    one->capture.begin();
    two->capture.begin();
    one->capture.begin();
    EXPECT_EQ(wxWindow::GetCapture(), two);
    two->capture.end();
    one->capture.end();
}

TEST_F(MouseCaptureTest, destroyedBelowAnother_givesBackWhatIsItsOwn)
{
    one->capture.begin();
    two->capture.begin();
    delete one;
    EXPECT_EQ(wxWindow::GetCapture(), two);
    two->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(MouseCaptureTest, lost_canBeBegunAgain)
{
    one->capture.begin();
    wxMouseCaptureLostEvent lost(one->GetId());
    one->GetEventHandler()->ProcessEvent(lost);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    one->capture.begin();
    EXPECT_TRUE(one->capture.isHeld());
    one->capture.end();
}

TEST_F(MouseCaptureTest, takenByTheSystem_isKnownToBeLost)
{
    one->capture.begin();
    wxMouseCaptureLostEvent lost(one->GetId());
    one->GetEventHandler()->ProcessEvent(lost);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(one->losses, 1);
    two->capture.begin();
    one->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), two);
    two->capture.end();
}

TEST_F(MouseCaptureTest, releasedByTheWindowItself_canBeBegunAgain)
{
    one->capture.begin();
    one->ReleaseMouse();
    one->capture.begin();
    EXPECT_EQ(wxWindow::GetCapture(), one);
    one->capture.end();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(MouseCaptureTest, begunInAHiddenWindow_capturesNothing)
{
    one->Hide();
    pumpEvents(20);
    one->capture.begin();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_FALSE(one->capture.isHeld());
}

TEST_F(MouseCaptureTest, hidden_isLost)
{
    expectLoses(one, [this] { one->Hide(); });
}

TEST_F(MouseCaptureTest, parentHidden_isLost)
{
    expectLoses(one, [this] { panel->Hide(); });
}

TEST_F(MouseCaptureTest, frameHidden_isLost)
{
    expectLoses(one, [this] { frame->Hide(); });
}

TEST_F(MouseCaptureTest, disabled_isLost)
{
    expectLoses(one, [this] { one->Disable(); });
}

TEST_F(MouseCaptureTest, parentDisabled_isLost)
{
    expectLoses(one, [this] { panel->Disable(); });
}

TEST_F(MouseCaptureTest, minimised_isLost)
{
    expectLoses(one, [this] { frame->Iconize(); });
}

TEST_F(MouseCaptureTest, reparented_isLostAndCanBeBegunAgain)
{
    auto* other = new wxPanel(panel);
    expectLoses(one, [this, other] { one->Reparent(other); });
    ASSERT_TRUE(pumpUntil([this] {
        one->capture.begin();
        return one->capture.isHeld();
    }));
    one->capture.end();
}

TEST_F(MouseCaptureTest, reparented_isNotConcernedWhenTheFormerParentHides)
{
    auto* former = new wxPanel(panel);
    auto* control = new Control(former);
    pumpEvents(50);
    control->capture.begin();
    ASSERT_TRUE(control->capture.isHeld());
    control->Reparent(panel);
    pumpEvents(50);
    // Another parent ends the capture.
    const bool held = control->capture.isHeld();
    const int losses = control->losses;
    former->Hide();
    pumpEvents(50);
    EXPECT_EQ(control->capture.isHeld(), held);
    EXPECT_EQ(control->losses, losses);
    control->capture.end();
}

TEST_F(MouseCaptureTest, parentReparented_isLost)
{
    auto* inner = new wxPanel(panel);
    auto* control = new Control(inner);
    pumpEvents(50);
    expectLoses(control, [this, inner] { inner->Reparent(two); });
}

TEST_F(MouseCaptureTest, formerParentHidden_changesNothing)
{
    auto* former = new wxPanel(panel);
    auto* control = new Control(former);
    pumpEvents(50);
    expectLoses(control, [this, control] { control->Reparent(panel); });
    ASSERT_TRUE(pumpUntil([control] {
        control->capture.begin();
        return control->capture.isHeld();
    }));
    former->Hide();
    pumpEvents(50);
    EXPECT_TRUE(control->capture.isHeld());
    EXPECT_EQ(control->losses, 1);
    control->capture.end();
}

TEST_F(MouseCaptureTest, windowThatIsDestroyedFirst_givesTheMouseBack)
{
    MouseCapture outside(one);
    outside.begin();
    ASSERT_TRUE(outside.isHeld());
    delete one;
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(MouseCaptureTest, childThatIsDestroyed_changesNothing)
{
    auto* child = new wxPanel(one);
    one->capture.begin();
    delete child;
    EXPECT_TRUE(one->capture.isHeld());
    one->capture.end();
}

TEST_F(MouseCaptureTest, windowDestroyedBeforeItIsToldOfTheLoss_isSafe)
{
    one->capture.begin();
    panel->Disable();
    one->Destroy();
    pumpEvents(50);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}
