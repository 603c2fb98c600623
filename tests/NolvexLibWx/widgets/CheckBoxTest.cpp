// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CheckBox.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/textctrl.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Nolvex;
using Wx::CheckBox;
using Wx::scaleByDpi;

namespace {

static_assert(std::is_base_of_v<wxCheckBox, CheckBox> && std::is_base_of_v<Wx::Focusable, CheckBox>);
static_assert(
    std::is_same_v<decltype(&CheckBox::setChangeCallback), void (CheckBox::*)(Function<void(bool)>)>);

const wxSize WHOLE(120, 24);
const wxPoint INSIDE(40, 12);
const wxPoint OUTSIDE(40, 200);

using Entries = std::vector<std::string>;

struct CheckBoxTest : Tests::FrameFixture
{
    Entries reports;
    int made = 0;

    CheckBoxTest()
    {
        frame->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) {
            reports.push_back("event " + std::to_string(event.GetId()) + " " +
                              std::to_string(event.GetInt()));
            EXPECT_EQ(event.GetEventObject(), wxWindow::FindWindowById(event.GetId(), panel));
        });
    }

    /// Makes check boxes below each other, with the ids 101, 102, ...
    CheckBox* make(wxWindow* parent = nullptr)
    {
        auto* box = new CheckBox(parent ? parent : panel, 100 + ++made, L"Label");
        box->SetSize(wxRect(wxPoint(20, 20 + 30 * (made - 1)), WHOLE));
        box->setChangeCallback([this, box](bool value) {
            reports.push_back(value ? "callback 1" : "callback 0");
            EXPECT_EQ(box->GetValue(), value);
        });
        return box;
    }

    CheckBox* shown()
    {
        CheckBox* box = make();
        showFrame();
        return box;
    }

    void focus(wxWindow* window) const
    {
        window->SetFocus();
        ASSERT_TRUE(Tests::pumpUntil([window] { return wxWindow::FindFocus() == window; }));
        Tests::pumpEvents();
    }

    Entries taken() { return std::exchange(reports, {}); }
};

void keyDown(int key, int modifiers = wxMOD_NONE)
{
    wxUIActionSimulator().KeyDown(key, modifiers);
    Tests::pumpEvents(Tests::GESTURE_TIME);
}

void keyUp(int key, int modifiers = wxMOD_NONE)
{
    wxUIActionSimulator().KeyUp(key, modifiers);
    Tests::pumpEvents(Tests::GESTURE_TIME);
}

const Entries CHECKED{"callback 1", "event 101 1"};
const Entries UNCHECKED{"callback 0", "event 101 0"};

} // namespace

TEST_F(CheckBoxTest, construction_tellsNobodyAndChangesNothing)
{
    const auto* box = new CheckBox(panel, 17, L"&Some label");
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(box->GetValue());
    EXPECT_TRUE(box->IsEnabled());
    EXPECT_EQ(box->GetId(), 17);
    EXPECT_EQ(box->GetLabel(), "&Some label");
    EXPECT_EQ(box->GetLabelText(), "Some label");
    EXPECT_EQ(box->GetName(), wxCheckBoxNameStr);
    EXPECT_FALSE(box->Is3State());
    EXPECT_EQ(static_cast<const void*>(static_cast<const wxCheckBox*>(box)), box);
}

TEST_F(CheckBoxTest, construction_placesIt)
{
    EXPECT_EQ(CheckBox(panel, wxID_ANY, L"Label", {30, 40}).GetPosition(), wxPoint(30, 40));
}

TEST_F(CheckBoxTest, construction_disabled_isDisabled)
{
    const auto* box = new CheckBox(panel, wxID_ANY, L"Label", wxDefaultPosition, wxDefaultSize, false);
    EXPECT_FALSE(box->IsEnabled());
    EXPECT_TRUE(reports.empty());
}

TEST_F(CheckBoxTest, setValue_withoutNotice_isSilent)
{
    CheckBox* box = make();
    box->setValue(true, false);
    EXPECT_TRUE(box->GetValue());
    box->setValue(false, false);
    EXPECT_FALSE(box->GetValue());
    box->SetValue(true);
    EXPECT_TRUE(box->GetValue());
    EXPECT_TRUE(reports.empty());
}

TEST_F(CheckBoxTest, setValue_withNotice_callsBackAndThenTellsTheParents)
{
    CheckBox* box = make();
    box->setValue(true, true);
    EXPECT_TRUE(box->GetValue());
    EXPECT_EQ(taken(), CHECKED);
    box->setValue(true, true);
    EXPECT_EQ(taken(), CHECKED) << "also when nothing changes";
    box->setValue(false, true);
    EXPECT_FALSE(box->GetValue());
    EXPECT_EQ(taken(), UNCHECKED);
}

TEST_F(CheckBoxTest, setValue_withoutCallback_tellsTheParents)
{
    CheckBox* box = make();
    box->setChangeCallback({});
    box->setValue(true, true);
    EXPECT_EQ(taken(), (Entries{"event 101 1"}));
}

TEST_F(CheckBoxTest, setValue_ofADisabledOne_isTheProgramsAffair)
{
    CheckBox* box = make();
    box->Disable();
    box->setValue(true, true);
    EXPECT_EQ(taken(), CHECKED);
}

TEST_F(CheckBoxTest, callback_mayReplaceItself)
{
    CheckBox* box = make();
    box->setChangeCallback([&, text = std::string("replaced")](bool) {
        box->setChangeCallback({});
        reports.push_back(text);
    });
    box->setValue(true, true);
    box->setValue(true, true);
    EXPECT_EQ(taken(), (Entries{"replaced", "event 101 1", "event 101 1"}));
}

TEST_F(CheckBoxTest, setFont_bringsItToTheDefaultSize)
{
    CheckBox* box = make();
    const wxFont font(wxFontInfo(31).Bold().Italic());
    EXPECT_TRUE(box->SetFont(font));
    EXPECT_EQ(box->GetFont(), Wx::setDefaultFontSize(font, 1.0f));
    EXPECT_EQ(box->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(box->GetFont().GetStyle(), wxFONTSTYLE_ITALIC);
    EXPECT_DOUBLE_EQ(box->GetFont().GetFractionalPointSize(), 9.0); // 12 units
}

TEST_F(CheckBoxTest, foregroundColourTakenBack_isTheToolkitsAgain)
{
    const wxColour before = make()->GetForegroundColour();
    CheckBox* box = make();
    box->SetForegroundColour(wxColour(1, 2, 3));
    EXPECT_EQ(box->GetForegroundColour(), wxColour(1, 2, 3));
    box->SetForegroundColour(wxNullColour);
    EXPECT_EQ(box->GetForegroundColour(), before);
}

TEST_F(CheckBoxTest, keysAndLossOfFocus_goOn)
{
    CheckBox* box = make();
    wxKeyEvent down(wxEVT_KEY_DOWN);
    wxKeyEvent up(wxEVT_KEY_UP);
    down.m_keyCode = up.m_keyCode = WXK_TAB;
    wxFocusEvent lost(wxEVT_KILL_FOCUS);
    for (wxEvent* event :
         {static_cast<wxEvent*>(&down), static_cast<wxEvent*>(&up), static_cast<wxEvent*>(&lost)})
        EXPECT_FALSE(box->GetEventHandler()->ProcessEvent(*event));
}

TEST_F(CheckBoxTest, click_togglesAndTells)
{
    CheckBox* box = shown();
    Tests::pressMouseAt(box, INSIDE);
    EXPECT_TRUE(reports.empty()) << "not before it is released";
    EXPECT_FALSE(box->GetValue());
    Tests::releaseMouse();
    EXPECT_EQ(taken(), CHECKED);
    Tests::clickAt(box, {1, 1});
    EXPECT_EQ(taken(), UNCHECKED);
    Tests::clickAt(box, wxPoint(WHOLE.x - 2, WHOLE.y - 2));
    EXPECT_EQ(taken(), CHECKED) << "all of it counts";
}

TEST_F(CheckBoxTest, click_givesItTheFocus)
{
    CheckBox* box = make();
    CheckBox* other = shown();
    focus(other);
    Tests::clickAt(box, INSIDE);
    EXPECT_TRUE(Tests::pumpUntil([box] { return box->HasFocus(); }));
}

TEST_F(CheckBoxTest, releasedOutside_changesNothing)
{
    CheckBox* box = shown();
    Tests::pressMouseAt(box, INSIDE);
    Tests::moveMouse(box, OUTSIDE);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(box->GetValue());
    Tests::clickAt(box, INSIDE);
    EXPECT_EQ(taken(), CHECKED);
}

TEST_F(CheckBoxTest, leftAndComeBackWhilePressed_toggles)
{
    CheckBox* box = shown();
    Tests::pressMouseAt(box, INSIDE);
    Tests::moveMouse(box, OUTSIDE);
    Tests::moveMouse(box, INSIDE);
    Tests::releaseMouse();
    EXPECT_EQ(taken(), CHECKED);
}

TEST_F(CheckBoxTest, pressedOutsideAndReleasedInside_changesNothing)
{
    CheckBox* box = shown();
    Tests::pressMouseAt(box, OUTSIDE);
    Tests::moveMouse(box, INSIDE);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(CheckBoxTest, doubleClick_togglesTwice)
{
    CheckBox* box = shown();
    Tests::moveMouse(box, INSIDE);
    wxUIActionSimulator().MouseDblClick();
    Tests::pumpUntil([this] { return reports.size() == 4; });
    EXPECT_EQ(taken(), (Entries{"callback 1", "event 101 1", "callback 0", "event 101 0"}));
    EXPECT_FALSE(box->GetValue());
}

TEST_F(CheckBoxTest, space_togglesWhenItIsReleased)
{
    CheckBox* box = shown();
    focus(box);
    keyDown(WXK_SPACE);
    EXPECT_TRUE(reports.empty());
    keyUp(WXK_SPACE);
    EXPECT_EQ(taken(), CHECKED);
    Tests::typeKey(WXK_SPACE);
    EXPECT_EQ(taken(), UNCHECKED);
}

TEST_F(CheckBoxTest, otherKeys_doNotToggle)
{
    CheckBox* box = shown();
    focus(box);
    for (const int key : {int('A'), int(WXK_RETURN), int(WXK_ESCAPE)})
        Tests::typeKey(key);
    EXPECT_TRUE(reports.empty());
}

TEST_F(CheckBoxTest, spaceWhoseReleaseGoesElsewhere_isForgotten)
{
    CheckBox* box = make();
    CheckBox* other = shown();
    focus(box);
    keyDown(WXK_SPACE);
    focus(other);
    keyUp(WXK_SPACE);
    focus(box);
    // The release ends a press that began in another window.
    wxKeyEvent up(wxEVT_KEY_UP);
    up.m_keyCode = WXK_SPACE;
    box->GetEventHandler()->ProcessEvent(up);
    EXPECT_TRUE(reports.empty());
}

TEST_F(CheckBoxTest, disabled_doesNothing)
{
    CheckBox* box = shown();
    box->Disable();
    Tests::clickAt(box, INSIDE);
    box->Enable();
    panel->Disable();
    Tests::clickAt(box, INSIDE);
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(box->GetValue());
    panel->Enable();
    Tests::clickAt(box, INSIDE);
    EXPECT_EQ(taken(), CHECKED);
}

TEST_F(CheckBoxTest, disabledWhilePressed_forgetsThePressAndSetsTheMouseFree)
{
    CheckBox* box = make();
    CheckBox* other = shown();
    Tests::pressMouseAt(box, INSIDE);
    box->Disable();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
    Tests::clickAt(other, INSIDE);
    EXPECT_EQ(taken(), (Entries{"callback 1", "event 102 1"}));
    box->Enable();
    EXPECT_FALSE(box->GetValue());
}

TEST_F(CheckBoxTest, parentDisabledWhilePressed_forgetsThePressAndSetsTheMouseFree)
{
    auto* inner = new wxPanel(panel, wxID_ANY, {0, 0}, {300, 48});
    CheckBox* box = make(inner);
    CheckBox* other = shown();
    Tests::pressMouseAt(box, INSIDE);
    inner->Disable();
    Tests::pumpEvents();
    Tests::releaseMouse();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::clickAt(other, INSIDE);
    EXPECT_EQ(taken(), (Entries{"callback 1", "event 102 1"}));
    EXPECT_FALSE(box->GetValue());
}

TEST_F(CheckBoxTest, minimisedWhilePressed_forgetsThePressAndSetsTheMouseFree)
{
    CheckBox* box = shown();
    Tests::pressMouseAt(box, INSIDE);
    frame->Iconize();
    EXPECT_TRUE(Tests::pumpUntil([] { return wxWindow::GetCapture() == nullptr; }));
    Tests::pumpEvents();
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(CheckBoxTest, disabledWithSpaceDown_forgetsIt)
{
    CheckBox* box = make();
    CheckBox* other = shown();
    focus(box);
    keyDown(WXK_SPACE);
    panel->Disable();
    Tests::pumpEvents();
    panel->Enable();
    Tests::pumpEvents();
    wxKeyEvent up(wxEVT_KEY_UP);
    up.m_keyCode = WXK_SPACE;
    box->GetEventHandler()->ProcessEvent(up);
    keyUp(WXK_SPACE);
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(other->GetValue());
}

TEST_F(CheckBoxTest, tabWhoseReleaseGoesElsewhere_isForgotten)
{
    CheckBox* box = make();
    CheckBox* other = shown();
    focus(box);
    wxKeyEvent tab(wxEVT_KEY_DOWN);
    tab.m_keyCode = WXK_TAB;
    box->GetEventHandler()->ProcessEvent(tab);
    focus(other);
    focus(box);
    Tests::typeKey(WXK_SPACE);
    EXPECT_EQ(taken(), CHECKED);
    EXPECT_EQ(wxWindow::FindFocus(), box);
}

namespace {

// Presses Alt with the letter that the label marks.
struct CheckBoxMnemonicTest : CheckBoxTest
{
    CheckBox* box = make();
    CheckBox* other = make();

    CheckBoxMnemonicTest()
    {
        box->SetLabel(L"Some l&etter");
        showFrame();
        focus(other);
    }

    static void strike(int letter) { Tests::typeKey(letter, wxMOD_ALT); }
};

} // namespace

TEST_F(CheckBoxMnemonicTest, togglesAndGivesTheFocus)
{
    strike('E');
    EXPECT_TRUE(Tests::pumpUntil([this] { return box->HasFocus(); }));
    EXPECT_TRUE(Tests::pumpUntil([this] { return reports.size() == 2; }));
    EXPECT_EQ(taken(), CHECKED);
    strike('E');
    EXPECT_TRUE(Tests::pumpUntil([this] { return reports.size() == 2; }));
    EXPECT_EQ(taken(), UNCHECKED);
}

TEST_F(CheckBoxMnemonicTest, ofAnotherLabel_isTheNewLetter)
{
    box->SetLabel(L"&Zebra");
    strike('E');
    EXPECT_TRUE(reports.empty());
    strike('Z');
    EXPECT_TRUE(Tests::pumpUntil([this] { return reports.size() == 2; }));
    EXPECT_EQ(taken(), CHECKED);
    box->SetLabel(L"Zebra && none");
    strike('Z');
    EXPECT_TRUE(reports.empty());
}

TEST_F(CheckBoxMnemonicTest, disabledOrHidden_doesNothing)
{
    box->Disable();
    strike('E');
    box->Enable();
    box->Hide();
    strike('E');
    EXPECT_TRUE(reports.empty());
    box->Show();
    Tests::pumpEvents();
    strike('E');
    EXPECT_TRUE(Tests::pumpUntil([this] { return reports.size() == 2; }));
}

TEST_F(CheckBoxMnemonicTest, reparented_staysKnown)
{
    auto* inner = new wxPanel(panel, wxID_ANY, {0, 150}, {300, 60});
    box->Reparent(inner);
    Tests::pumpEvents(100);
    strike('E');
    EXPECT_TRUE(Tests::pumpUntil([this] { return reports.size() == 2; }));
    box->Destroy();
    strike('E');
    EXPECT_EQ(reports.size(), 2u);
}

TEST_F(CheckBoxMnemonicTest, handlerThatDestroysTheCheckBox_isSafe)
{
    const wxWeakRef<CheckBox> weak(box);
    box->setChangeCallback([this](bool) { box->Destroy(); });
    strike('E');
    EXPECT_TRUE(Tests::pumpUntil([&weak] { return !weak; }));
    strike('E');
}

TEST_F(CheckBoxTest, captureLostWhilePressed_forgetsThePress)
{
    CheckBox* box = shown();
    Tests::pressMouseAt(box, INSIDE);
    panel->CaptureMouse();
    panel->ReleaseMouse();
    wxMouseCaptureLostEvent lost(box->GetId());
    box->GetEventHandler()->ProcessEvent(lost);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
    Tests::clickAt(box, INSIDE);
    EXPECT_EQ(taken(), CHECKED);
}

namespace {

// Presses Tab in a panel, with and without the focus handling of wxWidgets.
struct CheckBoxTabTest : CheckBoxTest, testing::WithParamInterface<long>
{
    wxPanel* parent = new wxPanel(panel, wxID_ANY, {0, 0}, {300, 250}, GetParam());
    CheckBox* first = make(parent);
    wxTextCtrl* between = new wxTextCtrl(parent, wxID_ANY);
    CheckBox* second = make(parent);
    CheckBox* third = make(parent);

    CheckBoxTabTest()
    {
        between->SetSize(150, 20, 80, 25);
        showFrame();
    }

    void expectFocusStays(CheckBox* box) const
    {
        Tests::pumpEvents(100);
        EXPECT_EQ(wxWindow::FindFocus(), box);
    }

    void expectFocusComes(CheckBox* box) const
    {
        EXPECT_TRUE(Tests::pumpUntil([box] { return wxWindow::FindFocus() == box; }, 1000));
    }
};

} // namespace

TEST_P(CheckBoxTabTest, tab_movesTheFocusWhenItIsReleased)
{
    focus(first);
    keyDown(WXK_TAB);
    expectFocusStays(first);
    keyUp(WXK_TAB);
    expectFocusComes(second);
    keyDown(WXK_TAB);
    expectFocusStays(second);
    keyUp(WXK_TAB);
    expectFocusComes(third);
    Tests::typeKey(WXK_TAB);
    expectFocusComes(first);
    EXPECT_TRUE(reports.empty());
}

TEST_P(CheckBoxTabTest, shiftTab_movesTheFocusBack)
{
    focus(second);
    keyDown(WXK_SHIFT);
    keyDown(WXK_TAB);
    expectFocusStays(second);
    keyUp(WXK_TAB);
    expectFocusComes(first);
    keyUp(WXK_SHIFT);
    expectFocusStays(first);
}

TEST_P(CheckBoxTabTest, tabThatWentDownElsewhere_movesNothing)
{
    focus(between);
    focus(first);
    keyUp(WXK_TAB);
    expectFocusStays(first);
}

TEST_P(CheckBoxTabTest, tabTwiceUp_movesOnce)
{
    wxKeyEvent down(wxEVT_KEY_DOWN);
    wxKeyEvent up(wxEVT_KEY_UP);
    down.m_keyCode = WXK_TAB;
    up.m_keyCode = 'X';
    focus(first);
    first->GetEventHandler()->ProcessEvent(down);
    first->GetEventHandler()->ProcessEvent(up);
    expectFocusComes(second);
    focus(first);
    first->GetEventHandler()->ProcessEvent(up);
    expectFocusStays(first);
}

INSTANTIATE_TEST_SUITE_P(Panels, CheckBoxTabTest, testing::Values(long(wxTAB_TRAVERSAL), 0L));
