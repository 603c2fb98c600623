// SPDX-License-Identifier: MIT
#include "support/TextCtrlFixture.h"

#include <functional>

using namespace Nolvex;
using Tests::numberedLines;
using Tests::Range;
using Tests::selectionOf;

namespace {

struct TextCtrlMouseTest : Tests::TextCtrlFixture
{
    int heightOf(long position) const { return text->PositionToCoords(position).y; }

    /// Returns the first position after this one that is shown on another line.
    long nextShownLine(long position) const
    {
        long next = position;
        while (next < text->GetLastPosition() && heightOf(next) == heightOf(position))
            ++next;
        return next;
    }

    void expectDoubleClickTakesTheSecondShownLine(int x)
    {
        const long second = nextShownLine(0);
        const long third = nextShownLine(second);
        ASSERT_LT(third, text->GetLastPosition()) << "it is wrapped";
        mouse(wxEVT_LEFT_DCLICK, {x, heightOf(second) + text->GetCharHeight() / 2});
        EXPECT_EQ(selectionOf(text), (Range{second, third - 1}));
    }
};

wxString manyWords(int count)
{
    wxString words;
    for (int i = 0; i < count; ++i)
        words += wxString::Format("word%d ", i);
    return words;
}

} // namespace

TEST_F(TextCtrlMouseTest, leftDown_putsTheCaretThereFocusesAndCaptures)
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

TEST_F(TextCtrlMouseTest, leftDown_onASingleLineWithoutFocus_selectsNothing)
{
    show("hello", 0);
    mouse(wxEVT_LEFT_DOWN, {150, 8}, true);
    mouse(wxEVT_LEFT_UP);
    ASSERT_TRUE(Tests::pumpUntil([&] { return text->HasFocus(); }));
    Tests::pumpEvents(50);
    EXPECT_EQ(selectionOf(text), (Range{5, 5}));
}

TEST_F(TextCtrlMouseTest, leftDown_onASingleLine_capturesToo)
{
    show("hello", 0);
    mouse(wxEVT_LEFT_DOWN, {5, 8}, true);
    EXPECT_TRUE(text->HasCapture());
    mouse(wxEVT_LEFT_UP);
    EXPECT_FALSE(text->HasCapture());
}

TEST_F(TextCtrlMouseTest, leftDown_whileCaptured_capturesOnce)
{
    show("hello");
    mouse(wxEVT_LEFT_DOWN, pointAt(2), true);
    mouse(wxEVT_LEFT_DOWN, pointAt(1), true);
    EXPECT_EQ(selectionOf(text), (Range{1, 1}));
    mouse(wxEVT_LEFT_UP);
    EXPECT_FALSE(text->HasCapture());
}

TEST_F(TextCtrlMouseTest, motion_afterLeftDown_selectsInEitherDirection)
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

TEST_F(TextCtrlMouseTest, motion_withoutLeftDown_selectsNothing)
{
    show("hello world");
    text->SetSelection(2, 2);
    mouse(wxEVT_MOTION, pointAt(7), true);
    EXPECT_EQ(selectionOf(text), (Range{2, 2}));
}

TEST_F(TextCtrlMouseTest, motion_beyondTheRightAndBottomEdge_isClampedToTheLastPixel)
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

TEST_F(TextCtrlMouseTest, motion_beyondTheRightEdge_ofALongLine_isClampedToTheLastPixel)
{
    show(wxString(L'x', 400), wxTE_MULTILINE | wxTE_DONTWRAP);
    const wxSize area = text->GetClientSize();
    const int y = text->GetCharHeight() / 2;
    mouse(wxEVT_LEFT_DOWN, pointAt(2), true);
    mouse(wxEVT_MOTION, {area.x - 1, y}, true);
    const Range atTheEdge = selectionOf(text);
    ASSERT_GT(atTheEdge.to, 10);
    ASSERT_LT(atTheEdge.to, 200);
    text->SetInsertionPoint(2);
    text->ShowPosition(0);
    Tests::pumpEvents(100);
    mouse(wxEVT_MOTION, {area.x + 900, y}, true);
    EXPECT_EQ(selectionOf(text), atTheEdge);
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlMouseTest, motion_leftOfScrolledText_isClampedToItsFirstPixel)
{
    show(wxString(L'x', 400), wxTE_MULTILINE | wxTE_DONTWRAP);
    text->SetInsertionPoint(300);
    text->ShowPosition(300);
    ASSERT_TRUE(Tests::pumpUntil([&] { return text->PositionToCoords(0).x < -100; }));
    settledTop();
    const int y = text->GetCharHeight() / 2;
    mouse(wxEVT_LEFT_DOWN, pointAt(299), true);
    mouse(wxEVT_MOTION, {-9000, y}, true);
    EXPECT_GT(selectionOf(text).from, 20);
    EXPECT_LE(selectionOf(text).from, 299);
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlMouseTest, motion_aboveScrolledText_isClampedToItsFirstPixel)
{
    show(numberedLines(60));
    const long anchor = text->XYToPosition(3, 32);
    scrolledTo(text->XYToPosition(0, 30));
    ASSERT_LT(top(), -100);
    const long firstShown = -top() / text->GetCharHeight();
    mouse(wxEVT_LEFT_DOWN, pointAt(anchor), true);
    mouse(wxEVT_MOTION, {0, 0}, true);
    const Range atTheEdge = selectionOf(text);
    EXPECT_EQ(atTheEdge.to, anchor);
    EXPECT_GE(atTheEdge.from, text->XYToPosition(0, firstShown - 1));
    EXPECT_GT(atTheEdge.from, 0);
    mouse(wxEVT_MOTION, {-900, -9000}, true);
    EXPECT_EQ(selectionOf(text), atTheEdge);
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlMouseTest, motion_aboveAndLeft_isClampedToZero)
{
    show("hello world\nsecond line");
    const long anchor = text->XYToPosition(4, 1);
    mouse(wxEVT_LEFT_DOWN, pointAt(anchor), true);
    mouse(wxEVT_MOTION, {-900, -900}, true);
    EXPECT_EQ(selectionOf(text), (Range{0, anchor}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlMouseTest, doubleClick_selectsTheLineWithoutItsBreak)
{
    show("first line\nsecond line\nthird");
    EXPECT_TRUE(mouse(wxEVT_LEFT_DCLICK, pointAt(text->XYToPosition(4, 1))));
    EXPECT_EQ(selectionOf(text), (Range{text->XYToPosition(0, 1), text->XYToPosition(0, 2) - 1}));
}

TEST_F(TextCtrlMouseTest, doubleClick_onTheLastLine_selectsToTheEndOfTheText)
{
    show("first line\nsecond line\nthird");
    mouse(wxEVT_LEFT_DCLICK, pointAt(text->XYToPosition(2, 2)));
    EXPECT_EQ(selectionOf(text), (Range{text->XYToPosition(0, 2), text->GetLastPosition()}));
}

TEST_F(TextCtrlMouseTest, doubleClick_onAWrappedLine_selectsWhatIsShownAsOne)
{
    show(manyWords(30) + "\nanother");
    settledTop();
    expectDoubleClickTakesTheSecondShownLine(1);
    expectDoubleClickTakesTheSecondShownLine(40);
}

TEST_F(TextCtrlMouseTest, doubleClick_onAWordOfSeveralLines_selectsWhatIsShownAsOne)
{
    show(wxString(L'x', 200));
    settledTop();
    expectDoubleClickTakesTheSecondShownLine(40);
}

TEST_F(TextCtrlMouseTest, doubleClick_onTheLastShownPartOfALine_selectsItWithoutTheBreak)
{
    show(manyWords(8) + "\nanother");
    settledTop();
    const long next = text->XYToPosition(0, 1) > 0 ? text->GetValue().Find('\n') + 1L : 0;
    long start = 0;
    // On Windows a line break takes two positions.
    const long brk = text->GetLastPosition() - 8;
    while (heightOf(nextShownLine(start)) <= heightOf(brk) && nextShownLine(start) <= brk)
        start = nextShownLine(start);
    ASSERT_GT(start, 0) << "it is wrapped";
    ASSERT_GT(next, 0);
    mouse(wxEVT_LEFT_DCLICK, {5, heightOf(start) + text->GetCharHeight() / 2});
    EXPECT_EQ(selectionOf(text).from, start);
    EXPECT_EQ(selectionOf(text).to, text->GetLastPosition() - 8);
}

TEST_F(TextCtrlMouseTest, doubleClick_onTheLastShownLine_selectsToTheEndOfTheText)
{
    show(manyWords(8));
    settledTop();
    const long second = nextShownLine(0);
    ASSERT_LT(second, text->GetLastPosition());
    long last = second;
    while (nextShownLine(last) < text->GetLastPosition())
        last = nextShownLine(last);
    mouse(wxEVT_LEFT_DCLICK, {5, heightOf(last) + text->GetCharHeight() / 2});
    EXPECT_EQ(selectionOf(text), (Range{last, text->GetLastPosition()}));
}

TEST_F(TextCtrlMouseTest, doubleClick_onWhatWasJustAppended_findsItsLine)
{
    show("first\n");
    // The selection at the start keeps the view in place.
    text->SetSelection(0, 2);
    text->AppendText(manyWords(30));
    mouse(wxEVT_LEFT_DCLICK, {5, text->GetCharHeight() * 5 / 2});
    const Range chosen = selectionOf(text);
    settledTop();
    const long first = text->GetLastPosition() - long(manyWords(30).length());
    const long start = nextShownLine(first);
    EXPECT_EQ(chosen, (Range{start, nextShownLine(start) - 1}));
}

TEST_F(TextCtrlMouseTest, clicks_onAControlThatWasToFindAddresses_selectLikeAnyOther)
{
    show("http://example.com/\nsecond line", wxTE_MULTILINE | wxTE_AUTO_URL);
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    mouse(wxEVT_LEFT_UP);
    EXPECT_EQ(selectionOf(text), (Range{4, 4}));
    mouse(wxEVT_LEFT_DCLICK, pointAt(4));
    EXPECT_EQ(selectionOf(text), (Range{0, text->XYToPosition(0, 1) - 1}));
}

TEST_F(TextCtrlMouseTest, doubleClick_onASingleLine_selectsAll)
{
    show("only line", 0);
    mouse(wxEVT_LEFT_DCLICK, {20, 8});
    EXPECT_EQ(selectionOf(text), (Range{0, 9}));
}

TEST_F(TextCtrlMouseTest, mouse_onASingleLine_selectsFromPressToRelease)
{
    show(L"h\u00e9llo w\u00f6rld and more", 0);
    mouse(wxEVT_LEFT_DOWN, {0, 8}, true);
    mouse(wxEVT_MOTION, {199, 8}, true);
    EXPECT_EQ(selectionOf(text), (Range{0, text->GetLastPosition()}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlMouseTest, enter_withTheButtonUp_endsTheDrag)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    mouse(wxEVT_ENTER_WINDOW, pointAt(4), false);
    mouse(wxEVT_MOTION, pointAt(7), true);
    EXPECT_EQ(selectionOf(text), (Range{4, 4}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlMouseTest, enter_withTheButtonDown_goesOnWithTheDrag)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    mouse(wxEVT_ENTER_WINDOW, pointAt(4), true);
    mouse(wxEVT_MOTION, pointAt(7), true);
    EXPECT_EQ(selectionOf(text), (Range{4, 7}));
    mouse(wxEVT_LEFT_UP);
}

TEST_F(TextCtrlMouseTest, captureLost_releasesButGoesOnSelecting)
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

TEST_F(TextCtrlMouseTest, destruction_whileSelecting_releasesTheMouse)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    ASSERT_NE(wxWindow::GetCapture(), nullptr);
    text->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(TextCtrlMouseTest, destruction_whileAnotherWindowHasTheMouse_givesBackItsOwnCapture)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    ASSERT_TRUE(text->HasCapture());
    auto* other = new wxPanel(panel, wxID_ANY, wxPoint(250, 10), wxSize(40, 40));
    other->Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
    Tests::pumpEvents(50);
    other->CaptureMouse();
    text->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), other);
    other->ReleaseMouse();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(TextCtrlMouseTest, disabledWhileSelecting_setsTheMouseFree)
{
    show("hello world");
    for (wxWindow* window : {static_cast<wxWindow*>(text), static_cast<wxWindow*>(panel)}) {
        mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
        ASSERT_TRUE(text->HasCapture());
        window->Disable();
        EXPECT_TRUE(Tests::pumpUntil([] { return wxWindow::GetCapture() == nullptr; }));
        window->Enable();
        Tests::pumpEvents(50);
    }
}

TEST_F(TextCtrlMouseTest, enabledUnderTheMouseAfterADragThatEndedElsewhere_selectsNoMore)
{
    show("hello world");
    for (wxWindow* window : {static_cast<wxWindow*>(text), static_cast<wxWindow*>(panel)}) {
        // Elsewhere the second time, so that the two presses are no double click.
        moveMouse(pointAt(window == text ? 4 : 1));
        wxUIActionSimulator().MouseDown();
        ASSERT_TRUE(Tests::pumpUntil([&] { return text->HasCapture(); }));
        window->Disable();
        ASSERT_TRUE(Tests::pumpUntil([] { return wxWindow::GetCapture() == nullptr; }));
        moveMouse({300, 150});
        wxUIActionSimulator().MouseUp();
        moveMouse(pointAt(5));
        window->Enable();
        Tests::pumpEvents(50);
        const Range before = selectionOf(text);
        moveMouse(pointAt(7));
        moveMouse(pointAt(8));
        EXPECT_EQ(selectionOf(text), before);
    }
}

TEST_F(TextCtrlMouseTest, frameDisabledWhileSelecting_leavesTheOtherControlsTheMouse)
{
    show("hello world");
    bool clicked = false;
    button->Bind(wxEVT_BUTTON, [&clicked](wxCommandEvent&) { clicked = true; });
    moveMouse(pointAt(4));
    wxUIActionSimulator().MouseDown();
    ASSERT_TRUE(Tests::pumpUntil([&] { return text->HasCapture(); }));
    frame->Disable();
    Tests::pumpEvents(50);
    wxUIActionSimulator().MouseUp();
    EXPECT_TRUE(Tests::pumpUntil([] { return wxWindow::GetCapture() == nullptr; }));
    frame->Enable();
    Tests::pumpEvents(50);
    wxUIActionSimulator().MouseMove(button->ClientToScreen(wxPoint(10, 10)));
    Tests::pumpEvents(50);
    wxUIActionSimulator().MouseClick();
    EXPECT_TRUE(Tests::pumpUntil([&clicked] { return clicked; }));
}

TEST_F(TextCtrlMouseTest, minimisedWhileSelecting_setsTheMouseFree)
{
    show("hello world");
    mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
    ASSERT_TRUE(text->HasCapture());
    frame->Iconize();
    EXPECT_TRUE(Tests::pumpUntil([] { return wxWindow::GetCapture() == nullptr; }));
}

namespace {

// The neighbour changes the text area when the text area takes the focus away from it.
struct TextCtrlFocusTest : TextCtrlMouseTest
{
    void pressWith(const std::function<void()>& onFocusMoved)
    {
        show("hello world");
        button->Bind(wxEVT_KILL_FOCUS, [onFocusMoved](wxFocusEvent& event) {
            event.Skip();
            onFocusMoved();
        });
        mouse(wxEVT_LEFT_DOWN, pointAt(4), true);
        Tests::pumpEvents(50);
    }
};

} // namespace

TEST_F(TextCtrlFocusTest, leftDown_whoseFocusDestroysTheControl_isSafe)
{
    wxWeakRef<Wx::TextCtrl> weak;
    pressWith([&] {
        weak = text;
        text->Destroy();
    });
    EXPECT_FALSE(weak);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(TextCtrlFocusTest, leftDown_whoseFocusHidesTheControl_capturesNothing)
{
    pressWith([&] { text->Hide(); });
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(TextCtrlFocusTest, leftDown_whoseFocusDisablesTheFrame_capturesNothing)
{
    pressWith([&] { frame->Disable(); });
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(TextCtrlFocusTest, leftDown_whoseFocusReparentsTheControl_isSafe)
{
    auto* other = new wxPanel(panel, wxID_ANY, wxPoint(220, 0), wxSize(150, 150));
    pressWith([&] { text->Reparent(other); });
    mouse(wxEVT_LEFT_UP);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(TextCtrlMouseTest, realDrag_selectsFromPressToRelease)
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

TEST_F(TextCtrlMouseTest, realDoubleClick_selectsTheLine)
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

TEST_F(TextCtrlMouseTest, realDrag_onASingleLine_selectsTheWordsBetween)
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

TEST_F(TextCtrlMouseTest, realDrag_outOfASingleLine_goesOnOutsideAndEndsThere)
{
    show("hello world", 0);
    const int middle = text->GetClientSize().y / 2;
    moveMouse({text->GetTextExtent("hello ").x + 4, middle});
    wxUIActionSimulator().MouseDown();
    ASSERT_TRUE(Tests::pumpUntil([&] { return text->HasCapture(); }));
    const long from = selectionOf(text).from;
    ASSERT_GT(from, 3);
    moveMouse({150, 130});
    moveMouse({300, 150});
    EXPECT_EQ(selectionOf(text), (Range{from, text->GetLastPosition()}));
    EXPECT_TRUE(text->HasCapture());
    moveMouse({-8, 150});
    EXPECT_EQ(selectionOf(text), (Range{0, from}));
    wxUIActionSimulator().MouseUp();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !text->HasCapture(); }));
    moveMouse({150, middle});
    EXPECT_EQ(selectionOf(text), (Range{0, from}));
}
