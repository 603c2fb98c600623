// SPDX-License-Identifier: MIT
// Tests the open list of a combo box: where it opens, what it shows, and how it selects.
#include "NolvexLibWx/widgets/ComboBoxDropdown.h"

#include "ComboBoxFixture.h"
#include "NolvexLib/DebugLogger.h"
#include "NolvexLib/DevelopmentEnviro.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "support/Screen.h"

#include <wx/display.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::ComboBox;

namespace {

const RgbBytes SELECTED{0, 114, 188};

struct ComboBoxDropdownTest : Tests::ComboBoxFixture
{
    /// Shows the frame and clicks the box.
    void openByClick() const
    {
        showFrame();
        clickBox();
        ASSERT_TRUE(opens());
    }

    /// Returns true when the screen shows that row, and only that, as marked.
    bool showsMarked(int row) const
    {
        return Tests::pumpUntil(
            [&] {
                const wxImage image = Tests::captureClientArea(scroller());
                const int x = 2; // beside the texts and the scroll bar
                for (int y = 2; y < image.GetHeight(); ++y) {
                    const int top = scroller()->GetViewStart().y * Wx::scaleByDpi(6);
                    const bool isMarked = (y + top - 2) / rowHeight() == row;
                    if ((Tests::pixelAt(image, x, y) == SELECTED) != isMarked)
                        return false;
                }
                return true;
            },
            3000);
    }

    int viewTop() const { return scroller()->GetViewStart().y * Wx::scaleByDpi(6); }
};

using ComboBoxDropdownSizeTest = ComboBoxDropdownTest;

} // namespace

TEST_F(ComboBoxDropdownTest, construction_makesAHiddenFrameOfThatNameAndStyle)
{
    make();
    auto* list = wxDynamicCast(dropdown.get(), wxFrame);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->GetName(), L"ComboBoxDropdown");
    EXPECT_EQ(list->GetWindowStyleFlag(), 0x2008002);
    EXPECT_EQ(list->GetTitle(), L"");
    EXPECT_FALSE(list->IsShown());
    EXPECT_EQ(list->GetBackgroundColour(), Wx::toWxColour(Wx::GuiSkin::DEFAULT().background));
}

TEST_F(ComboBoxDropdownTest, click_opensItDirectlyBelowTheBoxAndAsWide)
{
    makeWithItems(3);
    openByClick();
    EXPECT_EQ(dropdown->GetScreenPosition(), box->GetScreenPosition() + wxPoint(0, box->GetSize().y));
    EXPECT_EQ(dropdown->GetSize().x, box->GetClientSize().x);
    EXPECT_TRUE(box->HasFocus()) << "the keys stay with the box";
    expectSelected({});
}

TEST_F(ComboBoxDropdownTest, wideBox_hasAListAsWide)
{
    makeWithItems(3);
    frame->SetSize(1000, 300);
    box->SetSize(850, 24);
    openByClick();
    EXPECT_EQ(dropdown->GetSize().x, 850);
    EXPECT_TRUE(Tests::pumpUntil([this] { return canvas()->GetSize().x >= 848; }, 2000));
    box->SetSize(60, 24);
    clickBox();
    clickBox();
    ASSERT_TRUE(opens());
    EXPECT_EQ(dropdown->GetSize().x, 60);
}

TEST_F(ComboBoxDropdownSizeTest, height_isThatOfTheRowsUpToSeventeen)
{
    makeWithItems(0);
    showFrame();
    for (const int count : {0, 1, 3, 16, 17, 18, 30, 5, 0}) {
        box->setData(Tests::manyItems(count));
        box->setOpen(true);
        ASSERT_TRUE(opens());
        const int height = std::min(count, 17) * rowHeight() + 2;
        EXPECT_EQ(dropdown->GetClientSize().y, height) << count;
        EXPECT_EQ(scroller()->GetSize().y, height) << count;
        EXPECT_EQ(scroller()->GetVirtualSize().y, count * rowHeight() + 2) << count;
        EXPECT_EQ(canvas()->GetSize().y, count * rowHeight() + 2) << count;
        box->setOpen(false);
    }
}

TEST_F(ComboBoxDropdownTest, secondClick_closesIt)
{
    makeWithItems(3);
    openByClick();
    clickBox();
    EXPECT_TRUE(closes());
    clickBox();
    EXPECT_TRUE(opens());
    expectSelected({});
}

TEST_F(ComboBoxDropdownTest, doubleClick_opensAndClosesIt)
{
    makeWithItems(3);
    showFrame();
    sendMouse(box, wxEVT_LEFT_DOWN, {5, 5});
    EXPECT_TRUE(isOpen());
    sendMouse(box, wxEVT_LEFT_DCLICK, {5, 5});
    EXPECT_FALSE(isOpen());
}

TEST_F(ComboBoxDropdownTest, clickOnARow_selectsNotifiesAndCloses)
{
    makeWithItems(5, 0);
    openByClick();
    Tests::clickAt(canvas(), inRow(3));
    EXPECT_TRUE(closes());
    expectSelected({3});
    EXPECT_TRUE(box->HasFocus());
}

TEST_F(ComboBoxDropdownTest, clickOnTheSelectedRow_notifiesAgain)
{
    makeWithItems(5, 3);
    openByClick();
    Tests::clickAt(canvas(), inRow(3));
    EXPECT_TRUE(closes());
    expectSelected({3});
}

TEST_F(ComboBoxDropdownTest, pressReleasedBesideTheList_selectsNothing)
{
    makeWithItems(40, 0);
    openByClick();
    Tests::pressMouseAt(canvas(), inRow(3));
    Tests::moveMouse(canvas(), inRow(20)); // a row that is not seen
    sendMouse(canvas(), wxEVT_LEFT_UP, inRow(20));
    Tests::releaseMouse();
    expectSelected({});
}

TEST_F(ComboBoxDropdownTest, opened_marksTheSelectedRow)
{
    makeWithItems(5, 2);
    openByClick();
    EXPECT_TRUE(showsMarked(2));
    EXPECT_EQ(canvas()->markedRow(), 2);
}

TEST_F(ComboBoxDropdownTest, motion_marksTheRowUnderTheMouse)
{
    makeWithItems(5, 2);
    openByClick();
    Tests::moveMouse(canvas(), inRow(4));
    EXPECT_TRUE(showsMarked(4));
    Tests::moveMouse(canvas(), {30, 2});
    EXPECT_TRUE(showsMarked(0));
    expectSelected({});
}

TEST_F(ComboBoxDropdownTest, motionWithoutAMove_marksNothing)
{
    makeWithItems(5, 2);
    openByClick();
    sendMouse(canvas(), wxEVT_MOTION, inRow(1));
    EXPECT_EQ(canvas()->markedRow(), 1);
    EXPECT_TRUE(sendKey(WXK_END));
    sendMouse(canvas(), wxEVT_MOTION, inRow(1));
    EXPECT_EQ(canvas()->markedRow(), 4) << "the mouse is where it was";
    sendMouse(canvas(), wxEVT_MOTION, inRow(1) + wxPoint(1, 0));
    EXPECT_EQ(canvas()->markedRow(), 1);
}

TEST_F(ComboBoxDropdownTest, keys_moveTheMarkAndTheSelection)
{
    makeWithItems(30, 2);
    openByClick();
    Tests::moveMouse(canvas(), inRow(5));
    Tests::typeKey(WXK_DOWN);
    EXPECT_TRUE(Tests::pumpUntil([this] { return calls.size() == 1; }, 2000));
    EXPECT_EQ(canvas()->markedRow(), 3) << "counted from the selected row, not from the marked one";
    Tests::typeKey(WXK_END);
    EXPECT_TRUE(Tests::pumpUntil([this] { return calls.size() == 2; }, 2000));
    EXPECT_TRUE(showsMarked(29));
    EXPECT_TRUE(isOpen());
    expectSelected({3, 29});
}

TEST_F(ComboBoxDropdownTest, keysSentToTheListItself_workAsInTheBox)
{
    makeWithItems(30, 2);
    openByClick();
    EXPECT_TRUE(sendKeyTo(dropdown, WXK_DOWN));
    EXPECT_TRUE(sendKeyTo(canvas(), WXK_HOME));
    sendKeyTo(canvas(), WXK_END, wxMOD_CONTROL);
    expectSelected({3, 0});
}

TEST_F(ComboBoxDropdownTest, tabSentToTheList_movesTheFocusAndCloses)
{
    auto* previous = new ComboBox(panel, wxID_ANY, 50, {}, {}, true);
    makeWithItems(3);
    auto* next = new ComboBox(panel, wxID_ANY, 50, {}, {}, true);
    openByClick();
    sendKeyTo(canvas(), WXK_TAB, wxMOD_NONE, wxEVT_KEY_DOWN);
    EXPECT_TRUE(sendKeyTo(canvas(), WXK_TAB));
    EXPECT_TRUE(Tests::pumpUntil([&] { return next->HasFocus(); }, 2000));
    EXPECT_FALSE(isOpen());
    box->setOpen(true);
    sendKeyTo(dropdown, WXK_TAB, wxMOD_SHIFT, wxEVT_KEY_DOWN);
    EXPECT_TRUE(sendKeyTo(dropdown, WXK_TAB, wxMOD_SHIFT));
    EXPECT_TRUE(Tests::pumpUntil([&] { return previous->HasFocus(); }, 2000));
}

TEST_F(ComboBoxDropdownTest, wheelOverTheList_startsAtTheMarkedRow)
{
    makeWithItems(30, 2);
    openByClick();
    sendMouse(canvas(), wxEVT_MOTION, inRow(9));
    sendMouse(canvas(), wxEVT_MOUSEWHEEL, inRow(9), -120);
    expectSelected({10});
    EXPECT_EQ(canvas()->markedRow(), 10);
    sendMouse(dropdown, wxEVT_MOUSEWHEEL, {5, 5}, 120);
    expectSelected({10, 9});
    EXPECT_TRUE(isOpen());
}

TEST_F(ComboBoxDropdownTest, sidewaysWheel_isLeftToOthers)
{
    makeWithItems(30, 2);
    openByClick();
    sendMouse(canvas(), wxEVT_MOTION, inRow(9));
    EXPECT_FALSE(sendMouse(canvas(), wxEVT_MOUSEWHEEL, inRow(9), -120, wxMOUSE_WHEEL_HORIZONTAL));
    EXPECT_FALSE(sendMouse(dropdown, wxEVT_MOUSEWHEEL, {5, 5}, 120, wxMOUSE_WHEEL_HORIZONTAL));
    EXPECT_FALSE(sendMouse(box, wxEVT_MOUSEWHEEL, {5, 5}, 120, wxMOUSE_WHEEL_HORIZONTAL));
    expectSelected({});
    EXPECT_EQ(box->getSelectedIndex(), Optional<int>(2));
    EXPECT_EQ(canvas()->markedRow(), 9);
}

TEST_F(ComboBoxDropdownTest, wheelThatReachesTheBox_turnsTheListUnderTheMouse)
{
    makeWithItems(30, 2);
    openByClick();
    sendMouse(canvas(), wxEVT_MOTION, inRow(9));
    sendMouse(box, wxEVT_MOUSEWHEEL, box->ScreenToClient(canvas()->ClientToScreen(inRow(9))), -120);
    expectSelected({10});
}

TEST_F(ComboBoxDropdownTest, selection_isScrolledIntoView)
{
    makeWithItems(30, 25);
    openByClick();
    EXPECT_EQ(viewTop(), 9 * rowHeight()) << "the selected row is at the bottom";
    EXPECT_TRUE(showsMarked(25));
    sendKey(WXK_UP);
    EXPECT_EQ(viewTop(), 9 * rowHeight()) << "nothing moves while the row is seen";
    box->selectIndex(3, false);
    EXPECT_EQ(viewTop(), 3 * rowHeight()) << "the selected row is at the top";
    sendKey(WXK_END);
    EXPECT_EQ(viewTop(), 13 * rowHeight());
    sendKey(WXK_HOME);
    EXPECT_EQ(viewTop(), 0);
    EXPECT_TRUE(showsMarked(0));
}

TEST_F(ComboBoxDropdownTest, keysThatSelectNothing_markTheSelectionAndDoNotScroll)
{
    makeWithItems(30, 2);
    openByClick();
    scroller()->Scroll(-1, 10 * rowHeight() / Wx::scaleByDpi(6));
    ASSERT_EQ(viewTop(), 10 * rowHeight());
    for (const int key : {int(WXK_SHIFT), int(WXK_F5), int('x')}) {
        sendMouse(canvas(), wxEVT_MOTION, inRow(12));
        sendMouse(canvas(), wxEVT_MOTION, inRow(13));
        ASSERT_EQ(canvas()->markedRow(), 13);
        sendKey(key);
        EXPECT_EQ(viewTop(), 10 * rowHeight()) << key;
        EXPECT_EQ(canvas()->markedRow(), 2) << key;
    }
    sendKey(WXK_UP);
    EXPECT_TRUE(showsMarked(1));
}

TEST_F(ComboBoxDropdownTest, nothingSelected_showsTheStart)
{
    makeWithItems(30, 25);
    openByClick();
    ASSERT_EQ(viewTop(), 9 * rowHeight());
    box->selectIndex(-1, false);
    EXPECT_EQ(viewTop(), 0);
}

TEST_F(ComboBoxDropdownTest, itemsReplacedWhileOpen_areShownAtOnce)
{
    makeWithItems(1000, 999);
    openByClick();
    box->setData(Tests::manyItems(3));
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(dropdown->GetClientSize().y, 3 * rowHeight() + 2);
    EXPECT_EQ(viewTop(), 0);
    EXPECT_TRUE(showsMarked(0));
    box->setData(Tests::manyItems(40));
    sendKey(WXK_END);
    EXPECT_TRUE(showsMarked(39));
}

TEST_F(ComboBoxDropdownTest, itemsReplacedWhileClosed_areShownFromTheTop)
{
    makeWithItems(100'000, 99'999);
    openByClick();
    clickBox();
    ASSERT_TRUE(closes());
    box->setData(Tests::manyItems(3));
    clickBox();
    ASSERT_TRUE(opens());
    EXPECT_EQ(viewTop(), 0);
    EXPECT_TRUE(showsMarked(0));
    Tests::clickAt(canvas(), inRow(2));
    expectSelected({2});
}

TEST_F(ComboBoxDropdownTest, millionItems_areReachedAndSelected)
{
    makeWithItems(1'000'000, 500'000);
    openByClick();
    EXPECT_TRUE(showsMarked(500'000));
    EXPECT_LE(canvas()->GetSize().y, 32'767) << "X11 has no larger windows";
    sendKey(WXK_END);
    EXPECT_EQ(viewTop(), (1'000'000 - 17) * rowHeight());
    EXPECT_TRUE(showsMarked(999'999));
    sendKey(WXK_UP);
    EXPECT_TRUE(showsMarked(999'998));
    Tests::clickAt(canvas(), inRow(999'990));
    EXPECT_TRUE(closes());
    clickBox();
    ASSERT_TRUE(opens());
    EXPECT_TRUE(showsMarked(999'990));
    sendKey(WXK_HOME);
    EXPECT_TRUE(showsMarked(0));
    expectSelected({999'999, 999'998, 999'990, 0});
}

TEST_F(ComboBoxDropdownTest, longList_scrolledRowByRow_staysWhole)
{
    makeWithItems(5000, 0);
    openByClick();
    for (int row = 0; row < 5000; row += 150) {
        scroller()->Scroll(-1, row * 3);
        box->selectIndex(row + 3, false);
        ASSERT_TRUE(showsMarked(row + 3)) << row;
    }
}

TEST_F(ComboBoxDropdownTest, atTheBottomOfTheScreen_opensAbove)
{
    makeWithItems(10);
    const wxRect area = wxDisplay(0U).GetClientArea();
    const int bottom = area.GetBottom();
    frame->SetSize(area.x + 60, bottom - 100, 300, 100);
    showFrame();
    Tests::pumpUntil([&] { return frame->GetPosition().y >= bottom - 150; }, 1000);
    box->setOpen(true);
    ASSERT_TRUE(opens());
    EXPECT_EQ(dropdown->GetScreenPosition(), box->GetScreenPosition() - wxPoint(0, dropdown->GetSize().y));
    Tests::clickAt(canvas(), inRow(1));
    expectSelected({1});
}

TEST_F(ComboBoxDropdownTest, onAnyMonitor_opensBesideTheBox)
{
    makeWithItems(5);
    showFrame();
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
        const wxRect area = wxDisplay(i).GetClientArea();
        const wxPoint place = area.GetTopLeft() + wxPoint(60, 60);
        frame->Move(place);
        ASSERT_TRUE(Tests::pumpUntil([&] { return area.Contains(box->GetScreenPosition()); }));
        Tests::pumpEvents(200);
        clickBox();
        ASSERT_TRUE(opens());
        EXPECT_EQ(dropdown->GetScreenPosition(), box->GetScreenPosition() + wxPoint(0, box->GetSize().y));
        Tests::clickAt(canvas(), inRow(static_cast<int>(i)));
        EXPECT_TRUE(closes());
    }
    EXPECT_EQ(calls.size(), wxDisplay::GetCount());
}

TEST_F(ComboBoxDropdownTest, construction_isTimedInTheLog)
{
    const bool wasDevelopment = isDevelopmentEnviro();
    Array<DebugLogger::Record> records;
    DebugLogger::setSink([&](const DebugLogger::Record& record) { records.push_back(record); });
    setDevelopmentEnviro(true);
    make();
    setDevelopmentEnviro(wasDevelopment);
    DebugLogger::setSink({});
    ASSERT_EQ(records.size(), 1);
    EXPECT_STREQ(records[0].category, "trace");
    EXPECT_STREQ(records[0].sourceFile, "widgets/ComboBox");
    EXPECT_EQ(records[0].line, 284);
    EXPECT_STREQ(records[0].function, "Nolvex::Wx::ComboBoxDropdown::ComboBoxDropdown");
    EXPECT_TRUE(wxString(records[0].message).EndsWith(L" ticks of 1/1000 s")) << records[0].message;
}
