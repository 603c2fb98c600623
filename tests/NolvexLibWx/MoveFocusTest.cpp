// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MoveFocus.h"

#include "NolvexLibWx/widgets/Focusable.h"
#include "support/FrameFixture.h"

#include <wx/textctrl.h>

#include <type_traits>

using namespace Nolvex;
using Wx::moveFocus;
using Wx::MoveFocusDirection;

static_assert(std::is_empty_v<Wx::Focusable>);

namespace {

wxWindow* s_focused = nullptr;

/// Notes the window that was asked to take the focus, which does not depend on the window manager.
class PlainWindow : public wxWindow
{
public:
    explicit PlainWindow(wxWindow* parent) : wxWindow(parent, wxID_ANY) {}

    void SetFocus() override { s_focused = this; }
};

class FocusableWindow : public PlainWindow, public Wx::Focusable
{
public:
    using PlainWindow::PlainWindow;

    bool AcceptsFocus() const override { return m_acceptsFocus; }

    bool m_acceptsFocus = true;
};

class FocusableText : public wxTextCtrl, public Wx::Focusable
{
public:
    explicit FocusableText(wxWindow* parent) : wxTextCtrl(parent, wxID_ANY) {}
};

struct MoveFocusTest : Tests::FrameFixture
{
    template<class Window>
    Window* add() const
    {
        return new Window(panel);
    }

    static wxWindow* focusedBy(wxWindow* window, MoveFocusDirection direction)
    {
        s_focused = nullptr;
        moveFocus(window, direction);
        return s_focused;
    }
};

} // namespace

TEST_F(MoveFocusTest, forward_goesToTheNextSibling)
{
    auto* first = add<FocusableWindow>();
    auto* second = add<FocusableWindow>();
    auto* third = add<FocusableWindow>();
    EXPECT_EQ(focusedBy(first, MoveFocusDirection::FORWARD), second);
    EXPECT_EQ(focusedBy(second, MoveFocusDirection::FORWARD), third);
    EXPECT_EQ(focusedBy(third, MoveFocusDirection::FORWARD), first) << "wraps";
}

TEST_F(MoveFocusTest, backward_goesToThePreviousSibling)
{
    auto* first = add<FocusableWindow>();
    auto* second = add<FocusableWindow>();
    auto* third = add<FocusableWindow>();
    EXPECT_EQ(focusedBy(third, MoveFocusDirection::BACKWARD), second);
    EXPECT_EQ(focusedBy(second, MoveFocusDirection::BACKWARD), first);
    EXPECT_EQ(focusedBy(first, MoveFocusDirection::BACKWARD), third) << "wraps";
}

TEST_F(MoveFocusTest, directionsBeyondForward_areBackward)
{
    auto* first = add<FocusableWindow>();
    auto* second = add<FocusableWindow>();
    auto* third = add<FocusableWindow>();
    EXPECT_EQ(focusedBy(second, static_cast<MoveFocusDirection>(0)), third);
    EXPECT_EQ(focusedBy(second, static_cast<MoveFocusDirection>(1)), first);
    EXPECT_EQ(focusedBy(second, static_cast<MoveFocusDirection>(7)), first);
    EXPECT_EQ(focusedBy(second, static_cast<MoveFocusDirection>(-1)), first);
}

TEST_F(MoveFocusTest, siblingsThatAreNoFocusable_arePassedOver)
{
    auto* first = add<FocusableWindow>();
    add<PlainWindow>();
    auto* last = add<FocusableWindow>();
    EXPECT_EQ(focusedBy(first, MoveFocusDirection::FORWARD), last);
    EXPECT_EQ(focusedBy(last, MoveFocusDirection::BACKWARD), first);
}

TEST_F(MoveFocusTest, siblingsThatCannotTakeTheFocus_arePassedOver)
{
    auto* first = add<FocusableWindow>();
    auto* hidden = add<FocusableWindow>();
    hidden->Hide();
    auto* disabled = add<FocusableWindow>();
    disabled->Disable();
    auto* unwilling = add<FocusableWindow>();
    unwilling->m_acceptsFocus = false;
    auto* last = add<FocusableWindow>();
    EXPECT_EQ(focusedBy(first, MoveFocusDirection::FORWARD), last);
}

TEST_F(MoveFocusTest, start_needNotBeFocusable)
{
    auto* start = add<PlainWindow>();
    auto* next = add<FocusableWindow>();
    EXPECT_EQ(focusedBy(start, MoveFocusDirection::FORWARD), next);
}

TEST_F(MoveFocusTest, onlyChild_leavesTheFocus)
{
    auto* only = add<FocusableWindow>();
    EXPECT_EQ(focusedBy(only, MoveFocusDirection::FORWARD), nullptr);
    EXPECT_EQ(focusedBy(only, MoveFocusDirection::BACKWARD), nullptr);
}

TEST_F(MoveFocusTest, noSiblingFit_leavesTheFocus)
{
    auto* start = add<FocusableWindow>();
    add<PlainWindow>();
    add<PlainWindow>();
    EXPECT_EQ(focusedBy(start, MoveFocusDirection::FORWARD), nullptr);
    EXPECT_EQ(focusedBy(start, MoveFocusDirection::BACKWARD), nullptr);
}

TEST_F(MoveFocusTest, childrenOfSiblings_areNotConsidered)
{
    auto* start = add<FocusableWindow>();
    auto* sibling = new wxPanel(panel);
    new FocusableWindow(sibling);
    EXPECT_EQ(focusedBy(start, MoveFocusDirection::FORWARD), nullptr);
}

TEST_F(MoveFocusTest, windowWithoutParentOrNone_doesNothing)
{
    add<FocusableWindow>();
    EXPECT_EQ(focusedBy(frame, MoveFocusDirection::FORWARD), nullptr);
    EXPECT_EQ(focusedBy(nullptr, MoveFocusDirection::FORWARD), nullptr);
}

TEST_F(MoveFocusTest, nativeControls_reallyGetTheFocus)
{
    auto* first = add<FocusableText>();
    auto* second = add<FocusableText>();
    showFrame();
    first->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return wxWindow::FindFocus() == first; }));
    moveFocus(first, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(Tests::pumpUntil([&] { return wxWindow::FindFocus() == second; }));
    moveFocus(second, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(Tests::pumpUntil([&] { return wxWindow::FindFocus() == first; }));
}
