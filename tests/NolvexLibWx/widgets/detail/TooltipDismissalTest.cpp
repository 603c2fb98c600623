// SPDX-License-Identifier: MIT
// Tests which events hide a tooltip or keep it hidden while the mouse rests on its owner.
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "support/Gestures.h"
#include "support/TooltipFixture.h"

#include <wx/dialog.h>
#include <wx/menu.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::pumpEvents;
using Tests::pumpUntil;
using Wx::Tooltip;

namespace {

constexpr int LONG_DELAY = 60'000; // milliseconds, longer than a test runs

struct TooltipDismissalTest : Tests::TooltipFixture
{
    /// True if the tooltip does not come up although the mouse rests.
    static bool staysHidden(const Tooltip* tooltip)
    {
        return !pumpUntil([&] { return tooltip->IsShown(); }, 5 * SHORT_DELAY);
    }

    /// Makes the owner reach into the corner of the screen, where a tooltip comes to lie under the mouse.
    /// Returns the place for the mouse.
    wxPoint moveOwnerIntoTheCorner() const
    {
        const Bucket area = Wx::getMonitorRegionByWindow(frame, Wx::MonitorRegionType::WORK_AREA);
        frame->Move(area.max.x - 300, area.max.y - 200);
        pumpEvents(150);
        owner->SetSize(400, 400);
        pumpEvents();
        return owner->ScreenToClient(wxPoint(area.max.x - 3, area.max.y - 3));
    }
};

/// Destroys the owner of a tooltip, or the tooltip alone, when the tooltip is shown or hidden.
struct TooltipDestructionTest : TooltipDismissalTest, testing::WithParamInterface<bool>
{
    wxWeakRef<Tooltip> tooltip;

    void destroyWhenTooltipIs(bool shown)
    {
        tooltip = make(L"text");
        tooltip->Bind(wxEVT_SHOW, [this, shown](wxShowEvent& event) {
            if (event.IsShown() != shown)
                return;
            if (GetParam())
                owner->Destroy();
            else
                owner->DestroyChildren();
        });
    }

    bool isGone() const
    {
        return pumpUntil([this] { return !tooltip; }, 1000);
    }
};

// Presses Escape and asks beforehand whether the tooltip is shown.
class LaterEscape : public wxTimer
{
public:
    explicit LaterEscape(const Tooltip* tooltip) : m_tooltip(tooltip) { StartOnce(400); }

    void Notify() override
    {
        m_shown = m_tooltip->IsShown();
        wxUIActionSimulator().Char(WXK_ESCAPE);
    }

    bool sawTooltip() const { return m_shown; }

private:
    const Tooltip* m_tooltip;
    bool m_shown = true;
};

} // namespace

TEST_F(TooltipDismissalTest, keyInAnotherWindow_hidesIt)
{
    auto* text = new wxTextCtrl(panel, wxID_ANY, {}, wxPoint(50, 180));
    text->SetFocus();
    ASSERT_TRUE(pumpUntil([&] { return text->HasFocus(); }));
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    mouse.Char('A');
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }, 1000));
    EXPECT_TRUE(staysHidden(tooltip));
    EXPECT_TRUE(pumpUntil([&] { return text->GetValue().Lower() == L"a"; })) << "the key is the text's";
    rest(tooltip, 60, 40);
}

TEST_F(TooltipDismissalTest, keyWhileArmed_stopsTheDelay)
{
    auto* text = new wxTextCtrl(panel, wxID_ANY, {}, wxPoint(50, 180));
    text->SetFocus();
    ASSERT_TRUE(pumpUntil([&] { return text->HasFocus(); }));
    Tooltip* tooltip = make(L"text", 400);
    moveTo(40, 30);
    mouse.Char('A');
    EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 700));
}

TEST_F(TooltipDismissalTest, mouseButton_hidesItWhenItGoesDown)
{
    Tooltip* tooltip = make(L"text");
    for (const int button : {wxMOUSE_BTN_LEFT, wxMOUSE_BTN_RIGHT}) {
        rest(tooltip);
        mouse.MouseDown(button);
        EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }, 1000));
        mouse.MouseUp(button);
        pumpEvents();
        leave();
    }
}

TEST_F(TooltipDismissalTest, heldMouseButton_keepsItAway)
{
    Tooltip* tooltip = make(L"text");
    moveTo(38, 30);
    mouse.MouseDown();
    moveTo(40, 30);
    moveTo(42, 30);
    EXPECT_TRUE(staysHidden(tooltip));
    mouse.MouseUp();
    EXPECT_TRUE(staysHidden(tooltip)) << "a click does not bring it up either";
    rest(tooltip);
}

TEST_F(TooltipDismissalTest, menu_hidesItAndKeepsItAway)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    wxMenu menu;
    menu.Append(wxID_ANY, L"An entry");
    const LaterEscape escape(tooltip);
    panel->PopupMenu(&menu, wxPoint(260, 160));
    EXPECT_FALSE(escape.sawTooltip());
}

TEST_F(TooltipDismissalTest, menuWhileArmed_keepsItAway)
{
    Tooltip* tooltip = make(L"text", 100);
    moveTo(40, 30);
    wxMenu menu;
    menu.Append(wxID_ANY, L"An entry");
    const LaterEscape escape(tooltip);
    panel->PopupMenu(&menu, wxPoint(260, 160));
    EXPECT_FALSE(escape.sawTooltip());
}

TEST_F(TooltipDismissalTest, modalDialog_hidesItAndKeepsItAway)
{
    Tooltip* tooltip = make(L"text");
    for (const bool shownBefore : {true, false}) {
        if (shownBefore)
            rest(tooltip);
        else
            moveTo(60, 30);
        wxDialog dialog(frame, wxID_ANY, L"modal", wxPoint(600, 500));
        dialog.Bind(wxEVT_CHAR_HOOK, [&](wxKeyEvent&) { dialog.EndModal(wxID_OK); });
        wxTimer timer(&dialog);
        bool shownBeside = true;
        dialog.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            shownBeside = tooltip->IsShown();
            dialog.EndModal(wxID_OK);
        });
        timer.StartOnce(300);
        dialog.ShowModal();
        EXPECT_FALSE(shownBeside) << "shown before: " << shownBefore;
        pumpEvents();
        leave();
    }
}

TEST_F(TooltipDismissalTest, mouseMovedOntoIt_hidesItAndBringsItUpAnew)
{
    Tooltip* tooltip = make(L"a text of some length");
    rest(tooltip);
    tooltip->setDelay(300);
    const wxPoint onto = owner->ScreenToClient(tooltip->GetScreenPosition()) + wxPoint(8, 8);
    moveTo(onto.x, onto.y);
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }, 200));
    EXPECT_TRUE(pumpUntil([&] { return tooltip->IsShown(); }, 2000));
    EXPECT_EQ(tooltip->GetScreenPosition(), wxGetMousePosition() + wxPoint(10, 5));
}

TEST_F(TooltipDismissalTest, shownUnderTheMouse_itStaysUntilTheFirstMovement)
{
    Tooltip* tooltip = make(L"a text of some length\nand of two lines");
    const wxPoint corner = moveOwnerIntoTheCorner();
    rest(tooltip, corner.x, corner.y);
    ASSERT_TRUE(tooltip->GetScreenRect().Contains(wxGetMousePosition()));
    EXPECT_FALSE(pumpUntil([&] { return !tooltip->IsShown(); }, 500));
    tooltip->setDelay(LONG_DELAY);
    moveTo(corner.x - 1, corner.y);
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }, 1000));
}

TEST_F(TooltipDismissalTest, clickWithTheTooltipUnderTheMouse_isTheOwners)
{
    Tooltip* tooltip = make(L"a text of some length\nand of two lines");
    const wxPoint corner = moveOwnerIntoTheCorner();
    rest(tooltip, corner.x, corner.y);
    Array<wxEventType> types;
    const auto report = [&](wxMouseEvent& event) { types.push_back(event.GetEventType()); };
    owner->Bind(wxEVT_LEFT_DOWN, report);
    owner->Bind(wxEVT_LEFT_UP, report);
    Tests::pressMouse();
    Tests::releaseMouse();
    EXPECT_EQ(types, Array<wxEventType>({wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}));
}

TEST_F(TooltipDismissalTest, severalTooltips_areDismissedTogetherAndDestroyedSafely)
{
    Tooltip* tooltip = make(L"text");
    auto* other = new wxPanel(panel, wxID_ANY, wxPoint(260, 50), wxSize(50, 50));
    auto* second = new Tooltip(other, L"second");
    rest(tooltip);
    second->Show();
    // When one tooltip is hidden, the handler destroys the other tooltip.
    tooltip->Bind(wxEVT_SHOW, [&](wxShowEvent& event) {
        if (!event.IsShown())
            other->DestroyChildren();
    });
    wxKeyEvent key(wxEVT_KEY_DOWN);
    panel->GetEventHandler()->ProcessEvent(key);
    EXPECT_FALSE(tooltip->IsShown());
    EXPECT_TRUE(other->GetChildren().empty());
    destroyFrame(); // while the variables of the handlers exist
}

TEST_P(TooltipDestructionTest, asItPopsUp_isSafe)
{
    destroyWhenTooltipIs(true);
    moveTo(38, 30);
    moveTo(40, 30);
    EXPECT_TRUE(isGone());
}

TEST_P(TooltipDestructionTest, asTheMouseLeaves_isSafe)
{
    destroyWhenTooltipIs(false);
    rest(tooltip);
    leave();
    EXPECT_TRUE(isGone());
}

TEST_P(TooltipDestructionTest, asTheMouseIsMovedOntoIt_isSafe)
{
    destroyWhenTooltipIs(false);
    rest(tooltip);
    const wxPoint onto = owner->ScreenToClient(tooltip->GetScreenPosition()) + wxPoint(8, 8);
    moveTo(onto.x, onto.y);
    EXPECT_TRUE(isGone());
}

TEST_P(TooltipDestructionTest, asTheOwnerIsClicked_isSafe)
{
    destroyWhenTooltipIs(false);
    rest(tooltip);
    wxMouseEvent up(wxEVT_LEFT_UP);
    owner->GetEventHandler()->ProcessEvent(up);
    EXPECT_FALSE(tooltip);
}

TEST_P(TooltipDestructionTest, asAKeyOfTheOwnerIsPressed_isSafe)
{
    destroyWhenTooltipIs(false);
    rest(tooltip);
    wxKeyEvent key(wxEVT_KEY_DOWN);
    key.SetEventObject(owner);
    owner->GetEventHandler()->ProcessEvent(key);
    EXPECT_FALSE(tooltip);
}

TEST_P(TooltipDestructionTest, asTheTextIsTakenAway_isSafe)
{
    destroyWhenTooltipIs(false);
    rest(tooltip);
    tooltip->setText(String());
    EXPECT_FALSE(tooltip);
}

INSTANTIATE_TEST_SUITE_P(OwnerOrTooltip, TooltipDestructionTest, testing::Bool());
