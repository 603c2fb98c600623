// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MouseCapture.h"

#include "support/Events.h"

#include <wx/frame.h>
#include <wx/panel.h>

#include <gtest/gtest.h>

#include <memory>

using namespace Nolvex;
using Wx::MouseCapture;

namespace {

struct Control : wxPanel
{
    explicit Control(wxWindow* parent) : wxPanel(parent) {}

    MouseCapture capture{this};
};

struct MouseCaptureTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "capture");
    Control* one = new Control(frame);
    Control* two = new Control(frame);
    Control* three = new Control(frame);

    // On GTK only what has been shown can capture the mouse.
    MouseCaptureTest()
    {
        frame->Show();
        Tests::pumpEvents(30);
    }

    ~MouseCaptureTest() override
    {
        Tests::destroyNow(frame);
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
    one->capture.lost();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    one->capture.begin();
    EXPECT_TRUE(one->capture.isHeld());
    one->capture.end();
}
