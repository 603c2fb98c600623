// SPDX-License-Identifier: MIT
// Every control of the library is a window of wxWidgets and keeps the promises of wxWindow, although the
// controls replace much of the code with which wxWidgets keeps the promises.
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextButton.h"
#include "NolvexLibWx/widgets/TextControl.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "support/FrameFixture.h"

#include <wx/bitmap.h>
#include <wx/cursor.h>

#include <memory>
#include <string>

using namespace Nolvex;

namespace {

constexpr int ID = 4711;

struct Kind
{
    const char* name;
    wxWindow* (*make)(wxWindow* parent);
};

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

wxWindow* makeButton(wxWindow* parent)
{
    return new Wx::Button(parent, Wx::GuiSkin::DEFAULT(), ID, L"Button", wxBitmap(), wxBitmap(), {},
                          Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
}

wxWindow* makeAutoSizedButton(wxWindow* parent)
{
    return new Wx::AutoSizedButton(parent, L"Button", 40, 20);
}

wxWindow* makeDropdownButton(wxWindow* parent)
{
    return new Wx::DropdownButton(parent, Wx::GuiSkin::DEFAULT(), {ID, ID + 1}, {L"one", L"two"}, {}, {},
                                  {Function<void()>(), Function<void()>()},
                                  Wx::DropdownButton::Behavior::PUSH, true);
}

wxWindow* makeCheckBox(wxWindow* parent)
{
    return new Wx::CheckBox(parent, ID, L"Check box");
}

wxWindow* makeCollapsiblePanel(wxWindow* parent)
{
    return new Wx::CollapsiblePanel(parent, Wx::GuiSkin::DEFAULT(), L"Panel", new wxPanel(parent));
}

wxWindow* makeTextButton(wxWindow* parent)
{
    return new Wx::TextButton(parent, ID, L"Text button", Function<void()>());
}

wxWindow* makeStaticText(wxWindow* parent)
{
    return new Wx::StaticText(parent, ID, L"Text");
}

wxWindow* makeStaticLine(wxWindow* parent)
{
    return new Wx::StaticLine(parent, wxHORIZONTAL);
}

wxWindow* makeStaticBitmap(wxWindow* parent)
{
    return new Wx::StaticBitmap(parent, ID, wxBitmap(20, 10));
}

wxWindow* makeTextControl(wxWindow* parent)
{
    return new Wx::TextControl(parent, ID, L"text");
}

wxWindow* makeTextCtrl(wxWindow* parent)
{
    return new Wx::TextCtrl(parent, ID, L"text", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
}

wxWindow* makeOskaBorder(wxWindow* parent)
{
    return new OskaBorder(parent, OskaBorderState::ENABLED, ID);
}

wxWindow* makeComboBox(wxWindow* parent)
{
    return new Wx::ComboBox(parent, ID, 100, {}, {}, true);
}

wxWindow* makeSpinner(wxWindow* parent)
{
    return new Wx::Spinner(parent, ID, 60, 0, 10, 5, 1, 1);
}

constexpr Kind KINDS[] = {
    {"Button", makeButton},
    {"AutoSizedButton", makeAutoSizedButton},
    {"DropdownButton", makeDropdownButton},
    {"CheckBox", makeCheckBox},
    {"CollapsiblePanel", makeCollapsiblePanel},
    {"TextButton", makeTextButton},
    {"StaticText", makeStaticText},
    {"StaticLine", makeStaticLine},
    {"StaticBitmap", makeStaticBitmap},
    {"TextControl", makeTextControl},
    {"TextCtrl", makeTextCtrl},
    {"OskaBorder", makeOskaBorder},
    {"ComboBox", makeComboBox},
    {"Spinner", makeSpinner},
};

/// The controls that take the focus themselves. The focus of a spinner goes to its text field.
constexpr Kind FOCUSABLE_KINDS[] = {
    {"CheckBox", makeCheckBox},
    {"TextControl", makeTextControl},
    {"TextCtrl", makeTextCtrl},
    {"ComboBox", makeComboBox},
};

std::string nameOf(const testing::TestParamInfo<Kind>& info)
{
    return info.param.name;
}

/// A frame that all tests of this file share, since showing a frame takes longer than most of the tests.
struct Stage : Tests::FrameFixture
{
    Stage() { showFrame(); }

    void TestBody() override {}
};

/// A control of 120 x 40 between two panels, which are its siblings. All of them are in a panel of their own.
struct WindowBasicsTest : testing::TestWithParam<Kind>
{
    static inline const wxRect PLACE{20, 30, 120, 40};
    static inline std::unique_ptr<Stage> stage;

    static void SetUpTestSuite() { stage = std::make_unique<Stage>(); }

    static void TearDownTestSuite() { stage.reset(); }

    wxFrame* frame = stage->frame;
    wxPanel* panel = new wxPanel(stage->panel, wxID_ANY, wxPoint(0, 0), stage->panel->GetSize());
    wxPanel* before = new wxPanel(panel, wxID_ANY, wxPoint(5, 5), wxSize(10, 10));
    wxWeakRef<wxWindow> control = GetParam().make(panel);
    wxPanel* after = new wxPanel(panel, wxID_ANY, wxPoint(200, 5), wxSize(10, 10));
    wxPanel* otherPanel = new wxPanel(panel, wxID_ANY, wxPoint(20, 100), wxSize(200, 100));

    WindowBasicsTest()
    {
        control->SetSize(PLACE);
        control->SetId(ID);
        m_border = (control->GetScreenPosition() - panel->ClientToScreen(PLACE.GetPosition())).x;
        EXPECT_TRUE(m_border >= 0 && m_border <= 3) << m_border;
    }

    ~WindowBasicsTest() override
    {
        delete panel;
        // Events of the control that come later find no control.
        Tests::pumpEvents(0);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    }

    /// Returns the place of the control's corner on the screen. For wxWidgets, a control with a border of the
    /// system begins on the screen inside the border.
    wxPoint screenCorner() const
    {
        const wxPoint inside = control->GetScreenPosition();
        return inside - wxPoint(m_border, m_border);
    }

    void destroyAndExpectGone()
    {
        control->Destroy();
        EXPECT_TRUE(Tests::pumpUntil([this] { return !control; }));
        EXPECT_EQ(panel->FindWindow(ID), nullptr);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        EXPECT_FALSE(panel->IsFrozen());
    }

    void moveMouseInside() const
    {
        wxUIActionSimulator().MouseMove(control->ClientToScreen(wxPoint(8, 8)));
        Tests::pumpEvents(20);
    }

    static void moveMouseAway() { wxUIActionSimulator().MouseMove(5, 5); }

    bool isShownOnScreen() const { return control->IsShown() && control->IsShownOnScreen(); }

private:
    int m_border = 0;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Controls, WindowBasicsTest, testing::ValuesIn(KINDS), nameOf);

using WindowFocusTest = WindowBasicsTest;
INSTANTIATE_TEST_SUITE_P(Controls, WindowFocusTest, testing::ValuesIn(FOCUSABLE_KINDS), nameOf);

TEST_P(WindowBasicsTest, shown_isShownUntilItOrItsParentIsHidden)
{
    EXPECT_TRUE(isShownOnScreen());
    EXPECT_TRUE(control->Hide());
    EXPECT_FALSE(control->Hide());
    EXPECT_FALSE(control->IsShown());
    EXPECT_TRUE(control->Show());
    EXPECT_FALSE(control->Show());
    panel->Hide();
    EXPECT_TRUE(control->IsShown());
    EXPECT_FALSE(control->IsShownOnScreen());
    panel->Show();
    EXPECT_TRUE(isShownOnScreen());
}

TEST_P(WindowBasicsTest, showing_isToldToTheControl)
{
    int shown = 0;
    int hidden = 0;
    control->Bind(wxEVT_SHOW, [&](wxShowEvent& event) {
        // The event also travels up from child windows.
        if (event.GetEventObject() == control.get())
            ++(event.IsShown() ? shown : hidden);
        event.Skip();
    });
    control->Hide();
    EXPECT_TRUE(Tests::pumpUntil([&] { return hidden == 1; }));
    control->Show();
    EXPECT_TRUE(Tests::pumpUntil([&] { return shown == 1; }));
    EXPECT_EQ(hidden, 1);
}

TEST_P(WindowBasicsTest, placed_hasThatPlaceAndSize)
{
    EXPECT_EQ(control->GetRect(), PLACE);
    control->SetSize(40, 60, 150, 33);
    EXPECT_EQ(control->GetPosition(), wxPoint(40, 60));
    EXPECT_EQ(control->GetSize(), wxSize(150, 33));
    control->Move(7, 9);
    EXPECT_EQ(control->GetRect(), wxRect(7, 9, 150, 33));
    control->SetSize(wxDefaultCoord, wxDefaultCoord, 90, wxDefaultCoord, wxSIZE_USE_EXISTING);
    EXPECT_EQ(control->GetRect(), wxRect(7, 9, 90, 33));
}

TEST_P(WindowBasicsTest, clientSize_isKeptAndNeverMoreThanTheSize)
{
    control->SetClientSize(100, 36);
    EXPECT_EQ(control->GetClientSize(), wxSize(100, 36));
    EXPECT_GE(control->GetSize().x, 100);
    EXPECT_GE(control->GetSize().y, 36);
    control->SetSize(130, 50);
    EXPECT_LE(control->GetClientSize().x, 130);
    EXPECT_LE(control->GetClientSize().y, 50);
}

TEST_P(WindowBasicsTest, minSize_isKeptAndRaisesTheBestSizeForSizers)
{
    control->SetMinSize(wxSize(310, 210));
    EXPECT_EQ(control->GetMinSize(), wxSize(310, 210));
    EXPECT_EQ(control->GetEffectiveMinSize(), wxSize(310, 210));
    control->SetMaxSize(wxSize(400, 300));
    EXPECT_EQ(control->GetMaxSize(), wxSize(400, 300));
    EXPECT_EQ(control->GetSize(), PLACE.GetSize());
}

TEST_P(WindowBasicsTest, screenAndClientCoordinates_mapBothWays)
{
    for (const wxPoint& point : {wxPoint(0, 0), wxPoint(11, 7), wxPoint(-300, 500)})
        EXPECT_EQ(control->ScreenToClient(control->ClientToScreen(point)), point);
    EXPECT_EQ(screenCorner(), panel->ClientToScreen(control->GetPosition()));
    control->Move(50, 60);
    EXPECT_EQ(screenCorner(), panel->ClientToScreen(wxPoint(50, 60)));
}

TEST_P(WindowBasicsTest, frozenTwice_thawsWithTheSecondThaw)
{
    EXPECT_FALSE(control->IsFrozen());
    control->Freeze();
    control->Freeze();
    control->SetSize(130, 50);
    control->Refresh();
    control->Thaw();
    EXPECT_TRUE(control->IsFrozen());
    control->Thaw();
    EXPECT_FALSE(control->IsFrozen());
    EXPECT_EQ(control->GetSize(), wxSize(130, 50));
    panel->Freeze();
    EXPECT_TRUE(control->IsFrozen());
    panel->Thaw();
    EXPECT_FALSE(control->IsFrozen());
}

TEST_P(WindowBasicsTest, reparented_movesToTheOtherPanelAndBack)
{
    EXPECT_FALSE(control->Reparent(panel));
    EXPECT_TRUE(control->Reparent(otherPanel));
    EXPECT_EQ(control->GetParent(), otherPanel);
    EXPECT_TRUE(otherPanel->GetChildren().Find(control) != nullptr);
    EXPECT_TRUE(panel->GetChildren().Find(control) == nullptr);
    control->SetSize(10, 10, 100, 40);
    EXPECT_TRUE(isShownOnScreen());
    EXPECT_EQ(screenCorner(), otherPanel->ClientToScreen(wxPoint(10, 10)));
    Tests::pumpEvents(20);
    EXPECT_TRUE(control->Reparent(panel));
    control->SetSize(PLACE);
    EXPECT_EQ(control->GetParent(), panel);
    EXPECT_EQ(panel->GetChildren().GetLast()->GetData(), control.get());
    EXPECT_TRUE(isShownOnScreen());
    EXPECT_EQ(screenCorner(), panel->ClientToScreen(PLACE.GetPosition()));
}

TEST_P(WindowBasicsTest, reparentedIntoADisabledPanel_isDisabledThere)
{
    otherPanel->Disable();
    control->Reparent(otherPanel);
    EXPECT_FALSE(control->IsEnabled());
    EXPECT_TRUE(control->IsThisEnabled());
    control->Reparent(panel);
    EXPECT_TRUE(control->IsEnabled());
}

TEST_P(WindowBasicsTest, siblings_areInTheOrderOfCreation)
{
    EXPECT_EQ(control->GetPrevSibling(), before);
    EXPECT_EQ(control->GetNextSibling(), after);
    control->MoveAfterInTabOrder(after);
    EXPECT_EQ(control->GetPrevSibling(), after);
    control->MoveBeforeInTabOrder(before);
    EXPECT_EQ(control->GetPrevSibling(), nullptr);
    EXPECT_EQ(control->GetNextSibling(), before);
}

TEST_P(WindowFocusTest, focus_isToldWhenItComesAndGoes)
{
    auto* other = new wxTextCtrl(panel, wxID_ANY, wxString(), wxPoint(200, 40));
    other->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return other->HasFocus(); }));
    int set = 0;
    int killed = 0;
    control->Bind(wxEVT_SET_FOCUS, [&set](wxFocusEvent& event) {
        ++set;
        event.Skip();
    });
    control->Bind(wxEVT_KILL_FOCUS, [&killed](wxFocusEvent& event) {
        ++killed;
        event.Skip();
    });
    EXPECT_TRUE(control->AcceptsFocus());
    control->SetFocus();
    EXPECT_TRUE(Tests::pumpUntil([&] { return control->HasFocus() && set == 1; }));
    EXPECT_EQ(killed, 0);
    EXPECT_EQ(wxWindow::FindFocus(), control.get());
    other->SetFocus();
    EXPECT_TRUE(Tests::pumpUntil([&] { return other->HasFocus() && killed == 1; }));
    EXPECT_FALSE(control->HasFocus());
    EXPECT_EQ(set, 1);
}

TEST_P(WindowBasicsTest, enabled_followsItselfAndItsParent)
{
    EXPECT_TRUE(control->IsEnabled());
    EXPECT_TRUE(control->Disable());
    EXPECT_FALSE(control->Disable());
    EXPECT_FALSE(control->IsEnabled());
    EXPECT_TRUE(control->Enable());
    EXPECT_FALSE(control->Enable());
    panel->Disable();
    EXPECT_FALSE(control->IsEnabled());
    EXPECT_TRUE(control->IsThisEnabled());
    control->Disable();
    panel->Enable();
    EXPECT_FALSE(control->IsEnabled());
    control->Enable();
    EXPECT_TRUE(control->IsEnabled());
}

TEST_P(WindowBasicsTest, toolTipOfWxWidgets_isSetReplacedAndTakenAway)
{
    control->SetToolTip(L"a hint");
    EXPECT_EQ(control->GetToolTipText(), L"a hint");
    control->SetToolTip(L"another");
    EXPECT_EQ(control->GetToolTipText(), L"another");
    control->UnsetToolTip();
    EXPECT_EQ(control->GetToolTip(), nullptr);
}

TEST_P(WindowBasicsTest, cursor_isKept)
{
    const wxCursor cursor(wxCURSOR_CROSS);
    EXPECT_TRUE(control->SetCursor(cursor));
    EXPECT_TRUE(control->GetCursor().IsSameAs(cursor));
    control->SetCursor(wxNullCursor);
    EXPECT_FALSE(control->GetCursor().IsSameAs(cursor));
}

TEST_P(WindowBasicsTest, found_byItsIdAndName)
{
    control->SetName(L"a name of its own");
    EXPECT_EQ(frame->FindWindow(ID), control.get());
    EXPECT_EQ(frame->FindWindow(L"a name of its own"), control.get());
    EXPECT_EQ(wxWindow::FindWindowById(ID, frame), control.get());
    EXPECT_EQ(wxWindow::FindWindowByName(L"a name of its own", frame), control.get());
    control->SetId(ID + 100);
    EXPECT_EQ(frame->FindWindow(ID), nullptr);
    EXPECT_EQ(frame->FindWindow(ID + 100), control.get());
}

TEST_P(WindowBasicsTest, destroyedInAFrameNeverShown_leavesNothing)
{
    auto* const hidden = new wxFrame(nullptr, wxID_ANY, L"hidden");
    const wxWeakRef<wxWindow> inside = GetParam().make(hidden);
    inside->Destroy();
    EXPECT_FALSE(inside);
    Tests::destroyNow(hidden);
}

TEST_P(WindowBasicsTest, destroyedWhileHidden_leavesNothing)
{
    control->Hide();
    destroyAndExpectGone();
}

TEST_P(WindowBasicsTest, destroyedWhileShown_leavesNothing)
{
    destroyAndExpectGone();
}

TEST_P(WindowBasicsTest, destroyedUnderTheMouse_leavesNothing)
{
    moveMouseInside();
    destroyAndExpectGone();
    moveMouseAway();
}

TEST_P(WindowBasicsTest, destroyedWhileDisabled_leavesNothing)
{
    control->Disable();
    destroyAndExpectGone();
}

TEST_P(WindowBasicsTest, destroyedWhileFrozen_leavesNothing)
{
    control->Freeze();
    destroyAndExpectGone();
}

TEST_P(WindowBasicsTest, destroyedInAFrozenPanel_leavesThePanelThawable)
{
    panel->Freeze();
    control->Destroy();
    EXPECT_TRUE(Tests::pumpUntil([this] { return !control; }));
    panel->Thaw();
    EXPECT_FALSE(panel->IsFrozen());
}

TEST_P(WindowBasicsTest, destroyedWithTheFocus_leavesTheFocusToOthers)
{
    control->SetFocus();
    Tests::pumpEvents(30);
    const wxWindow* const gone = control;
    destroyAndExpectGone();
    EXPECT_NE(wxWindow::FindFocus(), gone);
}

TEST_P(WindowBasicsTest, destroyedWhilePressed_leavesTheMouseFree)
{
    moveMouseInside();
    wxUIActionSimulator().MouseDown();
    Tests::pumpEvents(20);
    destroyAndExpectGone();
    wxUIActionSimulator().MouseUp();
    moveMouseAway();
}
