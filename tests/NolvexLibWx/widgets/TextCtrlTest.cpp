// SPDX-License-Identifier: MIT
#include "support/PaintCount.h"
#include "support/Screen.h"
#include "support/TextCtrlFixture.h"

#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using namespace Nolvex;
using Tests::numberedLines;
using Tests::Range;
using Tests::selectionOf;
using Wx::TextCtrl;

namespace {

static_assert(std::is_base_of_v<wxTextCtrl, TextCtrl> && std::is_base_of_v<Wx::Focusable, TextCtrl>);

using TextCtrlTest = Tests::TextCtrlFixture;

} // namespace

TEST_F(TextCtrlTest, construction_takesRichStylesOut)
{
    // wxWidgets also makes a control rich if the control has to find addresses.
    constexpr long RICH = wxTE_RICH | wxTE_RICH2 | wxTE_AUTO_URL;
    for (const long rich : {long(wxTE_RICH), long(wxTE_RICH2), long(wxTE_AUTO_URL), RICH}) {
        const auto* control =
            new TextCtrl(panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE | rich);
        EXPECT_EQ(control->GetWindowStyle() & RICH, 0);
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

TEST_F(TextCtrlTest, append_withTheCaretFarToTheRight_staysThere)
{
    show(wxString(L'x', 400) + "\n" + numberedLines(3), wxTE_MULTILINE | wxTE_DONTWRAP);
    focusText();
    text->SetInsertionPoint(390);
    Tests::pumpEvents(100);
    // The position is still in view, but no longer at its edge.
    text->SetInsertionPoint(380);
    Tests::pumpEvents(100);
    settledTop();
    const int before = text->PositionToCoords(0).x;
    ASSERT_LT(before, -100);
    append("one more\n");
    settledTop();
    EXPECT_EQ(selectionOf(text), (Range{380, 380}));
    EXPECT_EQ(text->PositionToCoords(0).x, before);
}

TEST_F(TextCtrlTest, append_toAShownText_isPaintedWithTheNextPaintEvent)
{
    show("");
    text->SetBackgroundColour(*wxWHITE); // in every theme
    text->SetForegroundColour(*wxBLACK);
    Tests::pumpEvents(100);
    text->SetSelection(0, 0);
    const auto ink = [this] {
        const wxImage image = Tests::captureClientArea(text);
        int dark = 0;
        for (int x = 12; x < image.GetWidth() - 12; ++x)
            dark += Tests::pixelAt(image, x, text->GetCharHeight() / 2).g < 100 ? 1 : 0;
        return dark;
    };
    ASSERT_EQ(ink(), 0);
    // The pixels may follow later on Windows, and so the paintings are counted as well.
    const std::shared_ptr<const int> paintings = Tests::countPaintings(text);
    text->AppendText("MMMMMMMMMM");
    EXPECT_EQ(ink(), 0) << "a painting for each append would take many times as long";
    EXPECT_EQ(*paintings, 0);
    EXPECT_TRUE(Tests::pumpUntil([&ink] { return ink() > 5; }));
}

TEST_F(TextCtrlTest, append_ofManyLines_isPaintedOnlyByTheNextPaintEvent)
{
    show("");
    const std::shared_ptr<const int> paintings = Tests::countPaintings(text);
    for (int i = 0; i < 200; ++i)
        text->AppendText("a line\n");
    EXPECT_EQ(*paintings, 0);
    EXPECT_TRUE(Tests::pumpUntil([&paintings] { return *paintings > 0; }));
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

TEST_F(TextCtrlTest, showPosition_whileFrozen_isSeenOnceThawed)
{
    show(numberedLines(60));
    ASSERT_EQ(scrolledTo(0), top());
    const int before = settledTop();
    text->Freeze();
    text->ShowPosition(text->XYToPosition(0, 50));
    text->Thaw();
    EXPECT_LT(settledTop(), before - 100);
}

TEST_F(TextCtrlTest, showPosition_rightAfterAppending_winsOverFollowingTheEnd)
{
    show(numberedLines(60));
    text->SetSelection(0, 0);
    text->AppendText("one more\n");
    text->ShowPosition(0);
    settledTop();
    const int first = top();
    EXPECT_GT(first, -text->GetCharHeight());
    EXPECT_FALSE(showsEnd());
}

TEST_F(TextCtrlTest, append_ofManyLines_keepsThemAll)
{
    constexpr int LINES = 400; // some twenty views
    show("");
    for (int i = 0; i < LINES; ++i)
        text->AppendText(wxString::Format("line %d\n", i));
    EXPECT_EQ(text->GetValue(), numberedLines(LINES));
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

TEST_F(TextCtrlTest, realControlA_selectsAll_andNoOtherKeyDoes)
{
    show("hello world\nsecond line");
    focusText();
    Tests::pumpEvents(100);
    wxUIActionSimulator keyboard;
    for (const int modifiers : {int(wxMOD_CONTROL), int(wxMOD_CONTROL | wxMOD_SHIFT)}) {
        text->SetSelection(2, 2);
        keyboard.Char('A', modifiers);
        EXPECT_TRUE(Tests::pumpUntil([&] {
            return selectionOf(text) == Range{0, text->GetLastPosition()};
        })) << modifiers;
    }
    int keysUp = 0;
    text->Bind(wxEVT_KEY_UP, [&](wxKeyEvent&) { ++keysUp; });
    text->SetSelection(2, 2);
    keyboard.Char('A');
    keyboard.Char(WXK_END);
    EXPECT_TRUE(Tests::pumpUntil([&] { return keysUp >= 2; }));
    EXPECT_EQ(selectionOf(text), (Range{2, 2}));
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

// An EDIT control of Windows limits its user to 30,000 characters until it is told to take more.
TEST_F(TextCtrlTest, append_beyondThirtyThousandCharacters_keepsThemAll)
{
    show("");
    wxString lines;
    for (int i = 0; i < 50; ++i)
        lines += wxString(L'x', 19) + "\n";
    for (int i = 0; i < 100; ++i)
        text->AppendText(lines);
    EXPECT_EQ(text->GetValue().length(), 100'000u);
    EXPECT_TRUE(showsEnd());
    text->AppendText("the end");
    EXPECT_TRUE(text->GetValue().EndsWith("x\nthe end"));
}
