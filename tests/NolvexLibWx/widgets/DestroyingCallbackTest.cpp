// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/TextButton.h"
#include "support/Gestures.h"
#include "support/TickSkin.h"

#include <wx/collpane.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace Nolvex;
using Wx::CheckBox;
using Wx::CollapsiblePanel;
using Wx::TextButton;

// In these tests, a callback destroys the control that calls it, or a window around the control.

namespace {

enum class Victim
{
    CONTROL,
    DELETED_CONTROL,
    PARENT,
    DELETED_PARENT,
    FRAME,
};

std::string nameOf(const testing::TestParamInfo<Victim>& info)
{
    constexpr const char* NAMES[] = {"control", "deletedControl", "parent", "deletedParent", "frame"};
    return NAMES[static_cast<int>(info.param)];
}

struct DestroyingCallbackTest : testing::TestWithParam<Victim>
{
    wxWeakRef<wxFrame> frame = new wxFrame(nullptr, wxID_ANY, "gone", wxPoint(100, 100), wxSize(400, 300));
    wxWeakRef<wxPanel> parent = new wxPanel(frame);
    wxWeakRef<wxWindow> control;
    int told = 0;

    ~DestroyingCallbackTest() override
    {
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        if (frame)
            Tests::destroyNow(frame);
    }

    void destroy()
    {
        ++told;
        switch (GetParam()) {
        case Victim::CONTROL:
            control->Destroy();
            break;
        case Victim::DELETED_CONTROL:
            delete control.get();
            break;
        case Victim::PARENT:
            parent->Destroy();
            break;
        case Victim::DELETED_PARENT:
            delete parent.get();
            break;
        case Victim::FRAME:
            frame->Destroy();
            break;
        }
    }

    template<class Control>
    Control* show(Control* shown)
    {
        control = shown;
        control->Move(20, 20);
        frame->Show();
        frame->Raise();
        wxUIActionSimulator().MouseMove(5, 5);
        Tests::pumpUntil([this] { return frame->IsActive(); }, 1000);
        Tests::pumpEvents(100);
        return shown;
    }

    void expectGone() const
    {
        // wxWidgets destroys a frame only after all events have been handled.
        if (GetParam() == Victim::FRAME)
            EXPECT_GE(told, 1);
        else
            EXPECT_EQ(told, 1);
        EXPECT_TRUE(Tests::pumpUntil([this] { return control.get() == nullptr; }));
        Tests::pumpEvents(100);
    }

    CheckBox* checkBox()
    {
        auto* box = show(new CheckBox(parent, wxID_ANY, L"Check box"));
        box->setChangeCallback([this](bool) { destroy(); });
        return box;
    }

    /// Makes a check box whose events only its parent handles.
    CheckBox* heardCheckBox()
    {
        parent->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { destroy(); });
        return show(new CheckBox(parent, wxID_ANY, L"Check box"));
    }

    CollapsiblePanel* panel()
    {
        auto* result = new CollapsiblePanel(parent, Tests::tickSkin(), L"Some label", new wxPanel(parent));
        result->SetSize(200, 30);
        result->setToggleCallback([this](bool) { destroy(); });
        return show(result);
    }

    CollapsiblePanel* heardPanel()
    {
        CollapsiblePanel* result = panel();
        result->setToggleCallback({});
        parent->Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, [this](wxCollapsiblePaneEvent&) { destroy(); });
        return result;
    }
};

const wxPoint ON_TICK(4, 9);
const wxPoint ON_LABEL(40, 9);

} // namespace

TEST_P(DestroyingCallbackTest, checkBoxClicked)
{
    Tests::clickAt(checkBox(), {5, 5});
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxDoubleClicked)
{
    Tests::moveMouse(checkBox(), {5, 5});
    wxUIActionSimulator().MouseDblClick();
    Tests::pumpUntil([this] { return told > 0; });
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxToggledByKey)
{
    CheckBox* box = checkBox();
    box->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([box] { return box->HasFocus(); }));
    Tests::typeKey(WXK_SPACE);
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxSetWithNotice)
{
    checkBox()->setValue(true, true);
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxClickedAndHeardByTheParent)
{
    Tests::clickAt(heardCheckBox(), {5, 5});
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxSetWithNoticeAndHeardByTheParent)
{
    heardCheckBox()->setValue(true, true);
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxLosingTheFocusByTab)
{
    auto* box = show(new CheckBox(parent, wxID_ANY, L"Check box"));
    auto* next = new CheckBox(parent, wxID_ANY, L"Next", {20, 60});
    box->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([box] { return box->HasFocus(); }));
    next->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent&) { destroy(); });
    Tests::typeKey(WXK_TAB);
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxPressed)
{
    CheckBox* box = checkBox();
    Tests::pressMouseAt(box, {5, 5});
    destroy();
    expectGone();
    Tests::releaseMouse();
    EXPECT_EQ(told, 1);
}

TEST_P(DestroyingCallbackTest, panelClickedAtItsTick)
{
    Tests::clickAt(panel(), ON_TICK);
    expectGone();
}

TEST_P(DestroyingCallbackTest, panelClickedAtItsLabel)
{
    Tests::clickAt(panel(), ON_LABEL);
    expectGone();
}

TEST_P(DestroyingCallbackTest, panelToggled)
{
    panel()->toggleCollapsed();
    expectGone();
}

TEST_P(DestroyingCallbackTest, panelSetCollapsed)
{
    panel()->setCollapsed(false);
    expectGone();
}

TEST_P(DestroyingCallbackTest, panelClickedAndHeardByTheParent)
{
    Tests::clickAt(heardPanel(), ON_TICK);
    expectGone();
}

TEST_P(DestroyingCallbackTest, panelToggledAndHeardByTheParent)
{
    heardPanel()->toggleCollapsed();
    expectGone();
}

TEST_P(DestroyingCallbackTest, checkBoxThatTakesTheFocusByAClick)
{
    auto* other = new CheckBox(parent, wxID_ANY, L"Other", wxPoint(20, 100));
    auto* box = show(new CheckBox(parent, wxID_ANY, L"Check box"));
    other->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([other] { return other->HasFocus(); }));
    box->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent&) { destroy(); });
    Tests::clickAt(box, {5, 5});
    expectGone();
}

TEST_P(DestroyingCallbackTest, textButtonClicked)
{
    auto* button = new TextButton(parent, wxID_ANY, L"Text button", [this] { destroy(); });
    Tests::clickAt(show(button), {5, 5});
    expectGone();
}

INSTANTIATE_TEST_SUITE_P(Of, DestroyingCallbackTest,
                         testing::Values(Victim::CONTROL, Victim::DELETED_CONTROL, Victim::PARENT,
                                         Victim::DELETED_PARENT, Victim::FRAME),
                         nameOf);
