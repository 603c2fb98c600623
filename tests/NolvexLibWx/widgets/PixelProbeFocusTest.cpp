// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/PixelProbeFixture.h"
#include "support/Gestures.h"

#include <wx/textctrl.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::PixelProbe;

namespace {

struct PixelProbeFocusTest : Tests::PixelProbeFixture
{
    wxTextCtrl* field = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(10, 10), wxSize(120, 30));
    int activations = 0;
    int lostFocuses = 0;
    int eventsOfProbe = 0;
    int motions = 0;
    int clicks = 0;

    // The handlers of the tests count until the last window is destroyed.
    ~PixelProbeFocusTest() override { destroyFrame(); }

    void showWithFocusInTheField()
    {
        showFrame();
        ASSERT_TRUE(Tests::pumpUntil([this] {
            field->SetFocus();
            return field->HasFocus();
        }));
        frame->Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
            ++activations;
            event.Skip();
        });
        field->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
            ++lostFocuses;
            event.Skip();
        });
    }
};

} // namespace

TEST_F(PixelProbeFocusTest, typing_goesOnWhileTheProbeAppearsMovesAndDisappears)
{
    showWithFocusInTheField();
    Tests::typeKey('a');
    update();
    probe->Show();
    ASSERT_TRUE(Tests::pumpUntil([this] { return probe->IsShownOnScreen(); }));
    Tests::typeKey('b');
    for (int x = 100; x < 300; x += 20) {
        probe->updatePosition({x, 170});
        Tests::pumpEvents(20);
    }
    Tests::typeKey('c');
    probe->Hide();
    Tests::typeKey('d');
    EXPECT_TRUE(Tests::pumpUntil([this] { return field->GetValue() == "abcd"; })) << field->GetValue();
    EXPECT_EQ(activations, 0);
    EXPECT_EQ(lostFocuses, 0);
}

TEST_F(PixelProbeFocusTest, show_neverReportsActivationOfTheProbe)
{
    probe->Bind(wxEVT_ACTIVATE, [this](wxActivateEvent&) { ++eventsOfProbe; });
    probe->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent&) { ++eventsOfProbe; });
    showProbe();
    update();
    EXPECT_FALSE(probe->IsActive());
    EXPECT_EQ(eventsOfProbe, 0);
}

TEST_F(PixelProbeFocusTest, hide_leavesAnotherWindowActive)
{
    showWithFocusInTheField();
    auto* other = new wxFrame(nullptr, wxID_ANY, "other", wxPoint(120, 120), wxSize(300, 200));
    auto* otherField = new wxTextCtrl(other, wxID_ANY);
    auto* floating = new PixelProbe(frame, {}, String());
    floating->Show();
    other->Show();
    other->Raise();
    ASSERT_TRUE(Tests::pumpUntil([&] {
        otherField->SetFocus();
        return otherField->HasFocus();
    }));
    Tests::pumpEvents(200);
    floating->Hide();
    Tests::pumpEvents(200);
    Tests::typeKey('x');
    EXPECT_TRUE(Tests::pumpUntil([&] { return otherField->GetValue() == "x"; }, 2000));
    EXPECT_EQ(field->GetValue(), wxString());
    EXPECT_TRUE(floating->HasFlag(wxFRAME_FLOAT_ON_PARENT));
    Tests::destroyNow(other);
}

TEST_F(PixelProbeFocusTest, mouse_reachesTheWindowBelow)
{
    showProbe();
    panel->Bind(wxEVT_MOTION, [this](wxMouseEvent&) { ++motions; });
    panel->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { ++clicks; });
    const wxPoint middle(probe->GetSize().x / 2, probe->GetSize().y / 2);
    const wxRect probed = probe->GetScreenRect();
    ASSERT_TRUE(panel->GetScreenRect().Contains(probed.GetTopLeft() + middle));
    Tests::moveMouse(probe, middle);
    Tests::moveMouse(probe, middle + wxPoint(4, 4));
    Tests::pressMouse();
    Tests::releaseMouse();
    EXPECT_GT(motions, 0);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(probe->GetScreenRect(), probed);
}

TEST_F(PixelProbeFocusTest, destroyingTheParent_destroysTheProbe)
{
    showProbe();
    destroyFrame();
    EXPECT_EQ(probe, nullptr);
}
