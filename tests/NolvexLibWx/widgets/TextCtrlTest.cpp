// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextCtrl.h"

#include "support/Events.h"

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <ostream>
#include <type_traits>

using namespace Nolvex;
using Wx::TextCtrl;

namespace {

static_assert(std::is_base_of_v<wxTextCtrl, TextCtrl> && std::is_base_of_v<Wx::Focusable, TextCtrl>);

struct Range
{
    long from;
    long to;

    friend bool operator==(const Range&, const Range&) = default;

    friend void PrintTo(const Range& range, std::ostream* out) { *out << range.from << " to " << range.to; }
};

Range selectionOf(const TextCtrl* text)
{
    Range range{-1, -1};
    text->GetSelection(&range.from, &range.to);
    return range;
}

wxString numberedLines(int count)
{
    wxString lines;
    for (int i = 0; i < count; ++i)
        lines += wxString::Format("line %d\n", i);
    return lines;
}

// A text area of 200 x 100 with a button below that can take the focus away from it.
struct TextCtrlTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "text", wxPoint(100, 100), wxSize(400, 300));
    wxPanel* panel = new wxPanel(frame);
    wxButton* button = new wxButton(panel, wxID_ANY, "other", wxPoint(10, 150));
    TextCtrl* text = nullptr;

    ~TextCtrlTest() override { Tests::destroyNow(frame); }

    TextCtrl* show(const wxString& value, long style = wxTE_MULTILINE)
    {
        text = new TextCtrl(panel, 17, value, wxPoint(10, 10), wxSize(200, 100), style);
        frame->Show();
        frame->Raise();
        button->SetFocus();
        EXPECT_TRUE(Tests::pumpUntil([&] { return button->HasFocus(); }));
        Tests::pumpEvents(100);
        return text;
    }

    void focusText() const
    {
        text->SetFocus();
        EXPECT_TRUE(Tests::pumpUntil([&] { return text->HasFocus(); }));
    }

    void append(const wxString& more) const
    {
        text->AppendText(more);
        Tests::pumpEvents(100);
    }

    int top() const { return text->PositionToCoords(0).y; }

    // Scrolling takes some frames, and begins when the lines have been laid out.
    int settledTop() const
    {
        int last = 1;
        for (int same = 0; same < 3; same = top() == last ? same + 1 : 0) {
            last = top();
            Tests::pumpEvents(100);
        }
        return last;
    }

    int scrolledTo(long position) const
    {
        text->ShowPosition(position);
        return settledTop();
    }

    bool showsEnd() const
    {
        settledTop();
        const int y = text->PositionToCoords(text->GetLastPosition()).y;
        return y > 0 && y < text->GetClientSize().y;
    }

    bool send(wxEvent& event) const
    {
        event.SetEventObject(text);
        return text->GetEventHandler()->ProcessEvent(event);
    }

    bool mouse(wxEventType type, wxPoint point = {0, 0}, bool leftDown = false) const
    {
        wxMouseEvent event(type);
        event.SetPosition(point);
        event.SetLeftDown(leftDown);
        return send(event);
    }

    bool key(int code, int modifiers = wxMOD_NONE) const
    {
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = code;
        event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
        event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
        return send(event);
    }

    /// The middle of the height of a line, at the left of a character.
    wxPoint pointAt(long position) const
    {
        return text->PositionToCoords(position) + wxPoint(1, text->GetCharHeight() / 2);
    }

    void moveMouse(const wxPoint& point) const
    {
        wxUIActionSimulator().MouseMove(text->ClientToScreen(point));
        Tests::pumpEvents(80);
    }
};

} // namespace

TEST_F(TextCtrlTest, construction_takesRichStylesOut)
{
    for (const long rich : {long(wxTE_RICH), long(wxTE_RICH2), long(wxTE_RICH | wxTE_RICH2)}) {
        const auto* control =
            new TextCtrl(panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE | rich);
        EXPECT_EQ(control->GetWindowStyle() & (wxTE_RICH | wxTE_RICH2), 0);
        EXPECT_TRUE(control->IsMultiLine());
    }
}

TEST_F(TextCtrlTest, construction_setsTheRest)
{
    show("value", wxTE_MULTILINE | wxTE_READONLY);
    EXPECT_EQ(text->GetValue(), "value");
    EXPECT_EQ(text->GetId(), 17);
    EXPECT_EQ(text->GetSize(), wxSize(200, 100));
    EXPECT_EQ(text->GetPosition(), wxPoint(10, 10));
    EXPECT_TRUE(text->HasFlag(wxTE_READONLY));
}

TEST_F(TextCtrlTest, append_withoutFocusAndSelection_showsTheEndAndPutsTheCaretThere)
{
    show(numberedLines(40));
    text->SetSelection(3, 3);
    ASSERT_FALSE(showsEnd());
    append("one more\nand another");
    EXPECT_EQ(text->GetValue(), numberedLines(40) + "one more\nand another");
    EXPECT_TRUE(showsEnd());
    EXPECT_EQ(text->GetInsertionPoint(), text->GetLastPosition());
}

TEST_F(TextCtrlTest, append_withoutFocusButWithSelection_changesNothingElse)
{
    show(numberedLines(40));
    text->SetSelection(3, 9);
    const int before = scrolledTo(0);
    append("one more");
    EXPECT_EQ(selectionOf(text), (Range{3, 9}));
    EXPECT_EQ(settledTop(), before);
    EXPECT_TRUE(text->GetValue().EndsWith("\none more"));
}

TEST_F(TextCtrlTest, append_withSelectionOutOfView_staysAtTheVisiblePart)
{
    show(numberedLines(60));
    text->SetSelection(3, 9);
    const int before = scrolledTo(text->XYToPosition(0, 30));
    ASSERT_LT(before, -100);
    append("one more");
    EXPECT_EQ(selectionOf(text), (Range{3, 9}));
    EXPECT_EQ(settledTop(), before);
}

TEST_F(TextCtrlTest, append_withFocusAndTheCaretAtTheEnd_followsTheEnd)
{
    show(numberedLines(40));
    focusText();
    text->SetInsertionPointEnd();
    append(numberedLines(20));
    EXPECT_TRUE(showsEnd());
    EXPECT_EQ(text->GetInsertionPoint(), text->GetLastPosition());
}

TEST_F(TextCtrlTest, append_withFocusAndTheCaretElsewhere_stays)
{
    show(numberedLines(40));
    focusText();
    text->SetInsertionPoint(3);
    const int before = settledTop();
    append(numberedLines(20));
    EXPECT_EQ(selectionOf(text), (Range{3, 3}));
    EXPECT_EQ(text->GetInsertionPoint(), 3);
    EXPECT_EQ(settledTop(), before);
}

TEST_F(TextCtrlTest, append_withFocusAndASelectionToTheEnd_stays)
{
    show(numberedLines(40));
    focusText();
    const long last = text->GetLastPosition();
    text->SetSelection(last - 4, last);
    const int before = scrolledTo(0);
    append(numberedLines(20));
    EXPECT_EQ(selectionOf(text), (Range{last - 4, last}));
    EXPECT_EQ(settledTop(), before);
}

TEST_F(TextCtrlTest, append_whileFrozen_showsTheEndOnceThawed)
{
    show(numberedLines(40));
    text->Freeze();
    append(numberedLines(20));
    text->Thaw();
    Tests::pumpEvents(100);
    EXPECT_TRUE(showsEnd());
}

TEST_F(TextCtrlTest, freezeAndThaw_keepTheVisiblePart)
{
    show(numberedLines(60));
    const int before = scrolledTo(text->XYToPosition(0, 30));
    ASSERT_LT(before, -100);
    text->Freeze();
    Tests::pumpEvents(50);
    text->Thaw();
    Tests::pumpEvents(100);
    EXPECT_EQ(settledTop(), before);
}

TEST_F(TextCtrlTest, append_ofManyLines_keepsThemAll)
{
    show("");
    for (int i = 0; i < 1000; ++i)
        text->AppendText(wxString::Format("line %d\n", i));
    EXPECT_EQ(text->GetValue(), numberedLines(1000));
    Tests::pumpEvents(100);
    EXPECT_TRUE(showsEnd());
    EXPECT_FALSE(text->IsFrozen());
}

TEST_F(TextCtrlTest, append_toASingleLine_appends)
{
    show("one", 0);
    text->SetSelection(1, 1);
    append(" two");
    EXPECT_EQ(text->GetValue(), "one two");
    EXPECT_EQ(selectionOf(text), (Range{7, 7}));
}

TEST_F(TextCtrlTest, leftDown_putsTheCaretThereFocusesAndCaptures)
{
    show("hello world\nsecond line");
    const long target = text->XYToPosition(4, 1);
    EXPECT_TRUE(mouse(wxEVT_LEFT_DOWN, pointAt(target), true));
    EXPECT_EQ(selectionOf(text), (Range{target, target}));
    EXPECT_TRUE(text->HasCapture());
    EXPECT_TRUE(Tests::pumpUntil([&] { return text->HasFocus(); }));
    EXPECT_TRUE(mouse(wxEVT_LEFT_UP));
    EXPECT_FALSE(text->HasCapture());
}

TEST_F(TextCtrlTest, leftDown_whileCaptured_capturesOnce)
{
    show("hello");
    mouse(wxEVT_LEFT_DOWN, pointAt(2), true);
    mouse(wxEVT_LEFT_DOWN, pointAt(1), true);
    EXPECT_EQ(selectionOf(text), (Range{1, 1}));
    mouse(wxEVT_LEFT_UP);
    EXPECT_FALSE(text->HasCapture());
}

TEST_F(TextCtrlTest, motion_afterLeftDown_selectsInEitherDirection)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    EXPECT_TRUE(mouse(wxEVT_MOTION, pointAt(7), true));
    EXPECT_EQ(selectionOf(text), (Range{4, 7}));
    mouse(wxEVT_MOTION, pointAt(1), true);
    EXPECT_EQ(selectionOf(text), (Range{1, 4}));
    mouse(wxEVT_LEFT_UP);
    EXPECT_TRUE(mouse(wxEVT_MOTION, pointAt(7)));
    EXPECT_EQ(selectionOf(text), (Range{1, 4}));
}

TEST_F(TextCtrlTest, motion_withoutLeftDown_selectsNothing)
{
    show("hello world");
    text->SetSelection(2, 2);
    mouse(wxEVT_MOTION, pointAt(7), true);
    EXPECT_EQ(selectionOf(text), (Range{2, 2}));
}

TEST_F(TextCtrlTest, motion_beyondTheRightAndBottomEdge_isClampedToTheLastPixel)
{
    show(numberedLines(40));
    text->ShowPosition(0);
    Tests::pumpEvents(100);
    const wxSize area = text->GetClientSize();
    mouse(wxEVT_LEFT_DOWN, pointAt(2), true);
    mouse(wxEVT_MOTION, {area.x - 1, area.y - 1}, true);
    const Range atTheEdge = selectionOf(text);
    ASSERT_LT(atTheEdge.to, text->GetLastPosition() / 2);
    text->SetInsertionPoint(2);
    text->ShowPosition(0);
    Tests::pumpEvents(100);
    mouse(wxEVT_MOTION, {area.x + 900, area.y + 900}, true);
    EXPECT_EQ(selectionOf(text), atTheEdge);
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlTest, motion_aboveAndLeft_isClampedToZero)
{
    show("hello world\nsecond line");
    const long anchor = text->XYToPosition(4, 1);
    mouse(wxEVT_LEFT_DOWN, pointAt(anchor), true);
    mouse(wxEVT_MOTION, {-900, -900}, true);
    EXPECT_EQ(selectionOf(text), (Range{0, anchor}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlTest, doubleClick_selectsTheLineWithoutItsBreak)
{
    show("first line\nsecond line\nthird");
    EXPECT_TRUE(mouse(wxEVT_LEFT_DCLICK, pointAt(text->XYToPosition(4, 1))));
    EXPECT_EQ(selectionOf(text), (Range{text->XYToPosition(0, 1), text->XYToPosition(0, 2) - 1}));
}

TEST_F(TextCtrlTest, doubleClick_onTheLastLine_selectsToTheEndOfTheText)
{
    show("first line\nsecond line\nthird");
    mouse(wxEVT_LEFT_DCLICK, pointAt(text->XYToPosition(2, 2)));
    EXPECT_EQ(selectionOf(text), (Range{text->XYToPosition(0, 2), text->GetLastPosition()}));
}

TEST_F(TextCtrlTest, doubleClick_onASingleLine_selectsAll)
{
    show("only line", 0);
    mouse(wxEVT_LEFT_DCLICK, {20, 8});
    EXPECT_EQ(selectionOf(text), (Range{0, 9}));
}

TEST_F(TextCtrlTest, mouse_onASingleLine_selectsFromPressToRelease)
{
    show(L"h\u00e9llo w\u00f6rld and more", 0);
    mouse(wxEVT_LEFT_DOWN, {0, 8}, true);
    mouse(wxEVT_MOTION, {199, 8}, true);
    EXPECT_EQ(selectionOf(text), (Range{0, text->GetLastPosition()}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlTest, enter_withTheButtonUp_endsTheDrag)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    mouse(wxEVT_ENTER_WINDOW, pointAt(4), false);
    mouse(wxEVT_MOTION, pointAt(7), true);
    EXPECT_EQ(selectionOf(text), (Range{4, 4}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlTest, enter_withTheButtonDown_goesOnWithTheDrag)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    mouse(wxEVT_ENTER_WINDOW, pointAt(4), true);
    mouse(wxEVT_MOTION, pointAt(7), true);
    EXPECT_EQ(selectionOf(text), (Range{4, 7}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlTest, captureLost_releasesButGoesOnSelecting)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    wxMouseCaptureLostEvent lost(text->GetId());
    EXPECT_TRUE(send(lost));
    EXPECT_FALSE(text->HasCapture());
    mouse(wxEVT_MOTION, pointAt(7), true);
    EXPECT_EQ(selectionOf(text), (Range{4, 7}));
    EXPECT_TRUE(send(lost));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlTest, destruction_whileSelecting_releasesTheMouse)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    ASSERT_NE(wxWindow::GetCapture(), nullptr);
    text->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(TextCtrlTest, eraseBackground_isConsumed)
{
    show("hello");
    wxEraseEvent event(text->GetId());
    EXPECT_TRUE(send(event));
    EXPECT_FALSE(event.GetSkipped());
}

TEST_F(TextCtrlTest, controlA_selectsAll)
{
    show("hello world\nsecond line");
    for (const int code : {int('A'), int('a')}) {
        for (const int modifiers : {int(wxMOD_CONTROL), int(wxMOD_CONTROL | wxMOD_SHIFT)}) {
            text->SetSelection(2, 2);
            EXPECT_TRUE(key(code, modifiers));
            EXPECT_EQ(selectionOf(text), (Range{0, text->GetLastPosition()}));
        }
    }
}

TEST_F(TextCtrlTest, otherKeys_areConsumedAndDoNothing)
{
    show("hello world");
    text->SetSelection(2, 2);
    for (const int code : {int('A'), int('a'), int('B'), int(WXK_DELETE), int(WXK_TAB), int(WXK_END)})
        EXPECT_TRUE(key(code));
    EXPECT_TRUE(key('B', wxMOD_CONTROL));
    EXPECT_TRUE(key('A', wxMOD_SHIFT));
    EXPECT_EQ(selectionOf(text), (Range{2, 2}));
    EXPECT_EQ(text->GetValue(), "hello world");
}

TEST_F(TextCtrlTest, realDrag_selectsFromPressToRelease)
{
    show("hello world\nsecond line");
    const long from = text->XYToPosition(2, 0);
    const long to = text->XYToPosition(6, 1);
    moveMouse(pointAt(from));
    wxUIActionSimulator().MouseDown();
    Tests::pumpEvents(80);
    moveMouse(pointAt(to - 1));
    moveMouse(pointAt(to));
    wxUIActionSimulator().MouseUp();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !text->HasCapture(); }));
    moveMouse(pointAt(from + 1));
    EXPECT_EQ(selectionOf(text), (Range{from, to}));
    EXPECT_TRUE(text->HasFocus());
}

TEST_F(TextCtrlTest, realDoubleClick_selectsTheLine)
{
    show("first line\nsecond line\nthird");
    moveMouse(pointAt(text->XYToPosition(3, 1)));
    wxUIActionSimulator().MouseDblClick();
    const Range line{text->XYToPosition(0, 1), text->XYToPosition(0, 2) - 1};
    EXPECT_TRUE(Tests::pumpUntil([&] { return selectionOf(text) == line; }));
    Tests::pumpEvents(100);
    EXPECT_EQ(selectionOf(text), line);
    EXPECT_FALSE(text->HasCapture());
}

TEST_F(TextCtrlTest, realDrag_onASingleLine_selectsTheWordsBetween)
{
    show("hello world and more", 0);
    const int start = text->GetTextExtent("hello ").x;
    const int middle = text->GetClientSize().y / 2;
    moveMouse({1, middle});
    wxUIActionSimulator().MouseDown();
    Tests::pumpEvents(80);
    moveMouse({start + 4, middle});
    moveMouse({start + 5, middle});
    wxUIActionSimulator().MouseUp();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !text->HasCapture(); }));
    EXPECT_EQ(selectionOf(text).from, 0);
    EXPECT_GE(selectionOf(text).to, 5);
    EXPECT_LE(selectionOf(text).to, 7);
}
