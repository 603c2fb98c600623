// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ComboBox.h"

#include "ComboBoxFixture.h"
#include "NolvexLibWx/widgets/ComboBoxDropdown.h"

#include <wx/display.h>

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <type_traits>
#include <utility>

using namespace Nolvex;
using Wx::ComboBox;
using Wx::TextFlag;
using WindowEvent = ComboBox::WindowEvent;

namespace {

static_assert(std::is_base_of_v<OskaBorder, ComboBox>);
static_assert(std::is_base_of_v<Wx::Focusable, ComboBox>);
static_assert(std::is_base_of_v<wxFrame, Wx::ComboBoxDropdown>);
static_assert(static_cast<int>(WindowEvent::CREATED) == 0);
static_assert(static_cast<int>(WindowEvent::DESTROYED) == 1);

using ComboBoxTest = Tests::ComboBoxFixture;
using ComboBoxSizeTest = ComboBoxTest;

} // namespace

TEST_F(ComboBoxTest, construction_hasNoItemsAndSendsNothing)
{
    make();
    EXPECT_EQ(box->getCount(), 0);
    EXPECT_FALSE(box->getSelectedId());
    EXPECT_FALSE(box->getSelectedIndex());
    EXPECT_FALSE(box->isOpen());
    EXPECT_TRUE(box->IsEnabled());
    EXPECT_EQ(box->borderState(), Flags<OskaBorderState>(OskaBorderState::ENABLED));
    EXPECT_EQ(box->GetId(), 7);
    expectSelected({});
}

TEST_F(ComboBoxSizeTest, box_hasTheWidthAnd24DesignUnits)
{
    make();
    EXPECT_EQ(box->GetSize(), Wx::scaleByDpi(wxSize(120, 24)));
    EXPECT_EQ(box->GetMinSize(), Wx::scaleByDpi(wxSize(120, 24)));
}

TEST_F(ComboBoxTest, constructedDisabled_isDisabled)
{
    make(false);
    EXPECT_FALSE(box->IsThisEnabled());
    EXPECT_TRUE(box->borderState().isEmpty());
}

TEST_F(ComboBoxTest, windowCallback_isToldOfTheListAtBothEnds)
{
    Array<std::pair<wxWindow*, WindowEvent>> told;
    wxString name;
    const auto callback = [&](wxWindow* window, WindowEvent event) {
        told.emplace_back(window, event);
        name = window->GetName();
    };
    auto* made = new ComboBox(panel, wxID_ANY, 50, {}, callback, true);
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].first, made->GetChildren().GetFirst()->GetData());
    EXPECT_EQ(told[0].second, WindowEvent::CREATED);
    EXPECT_EQ(name, L"ComboBoxDropdown");
    EXPECT_EQ(told[0].first->GetParent(), made);
    name.clear();
    made->Destroy();
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[1].first, told[0].first);
    EXPECT_EQ(told[1].second, WindowEvent::DESTROYED);
    EXPECT_EQ(name, L"ComboBoxDropdown") << "the list still exists then";
}

TEST_F(ComboBoxTest, listDestroyedByTheProgram_leavesABoxWithoutAList)
{
    Array<wxWindow*> told;
    const auto callback = [&](wxWindow* window, WindowEvent) { told.push_back(window); };
    box = new ComboBox(panel, wxID_ANY, 50, {}, callback, true);
    box->setData(Tests::manyItems(3));
    box->DestroyChildren();
    box->setOpen(true);
    EXPECT_FALSE(box->isOpen());
    sendKey(WXK_END);
    EXPECT_EQ(box->getSelectedIndex(), 2);
    sendMouse(box, wxEVT_LEFT_DOWN, {5, 5});
    box->setData({});
    EXPECT_FALSE(box->isInside(wxPoint(-500, -500)));
    box->Destroy();
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[1], nullptr);
}

TEST_F(ComboBoxTest, setData_storesTheItemsAndSendsNothing)
{
    makeWithItems(30);
    EXPECT_EQ(box->getCount(), 30);
    EXPECT_FALSE(box->getSelectedIndex()) << "no selection stays no selection";
    box->setData(Tests::manyItems(2));
    EXPECT_EQ(box->getCount(), 2);
    expectSelected({});
}

TEST_F(ComboBoxTest, setData_ofFewerItems_selectsTheFirst)
{
    makeWithItems(5, 3);
    box->setData(Tests::manyItems(4));
    EXPECT_EQ(box->getSelectedIndex(), 3);
    box->setData(Tests::manyItems(3));
    EXPECT_EQ(box->getSelectedIndex(), 0);
    expectSelected({});
}

TEST_F(ComboBoxTest, setData_ofNothing_selectsNothing)
{
    makeWithItems(5, 3);
    box->setData({});
    EXPECT_FALSE(box->getSelectedIndex());
    EXPECT_FALSE(box->getSelectedId());
    box->setData(Tests::manyItems(3));
    EXPECT_FALSE(box->getSelectedIndex());
    expectSelected({});
}

TEST_F(ComboBoxTest, selectId_picksTheLastOfSeveralItems)
{
    make();
    box->setData(Array<ComboBox::Item>{{L"a", 1, {}}, {L"b", 2, {}}, {L"c", 1, {}}, {L"d", 3, {}}});
    box->selectId(1, false);
    EXPECT_EQ(box->getSelectedIndex(), 2);
    EXPECT_EQ(box->getSelectedId(), 1);
    EXPECT_TRUE(events.empty());
    box->selectId(1, true);
    EXPECT_TRUE(events == Array<Report>({{7, 2, 1, 0}}));
    EXPECT_EQ(calls, Array<int>({1}));
}

TEST_F(ComboBoxTest, selectId_thatNoItemHas_selectsNothingAndSendsNothing)
{
    makeWithItems(3, 1);
    box->selectId(55, true);
    EXPECT_FALSE(box->getSelectedIndex());
    expectSelected({});
}

TEST_F(ComboBoxTest, selectIndex_notifiesFirstTheParentThenTheCallback)
{
    makeWithItems(3);
    box->selectIndex(2, true);
    box->selectIndex(0, false);
    box->selectIndex(0, true);
    expectSelected({2, 0});
}

TEST_F(ComboBoxTest, face_isRefreshedBeforeAndAfterTheNotification)
{
    makeWithItems(3);
    showFrame();
    int paintings = 0;
    box->Bind(wxEVT_PAINT, [&paintings](wxPaintEvent& event) {
        ++paintings;
        event.Skip();
    });
    Tests::pumpEvents();
    paintings = 0;
    int paintedInTheHandler = 0;
    panel->Bind(wxEVT_COMBOBOX, [&](wxCommandEvent&) {
        Tests::pumpUntil([&] { return paintings > 0; }, 2000);
        paintedInTheHandler = std::exchange(paintings, 0);
    });
    sendKey(WXK_DOWN);
    EXPECT_GT(paintedInTheHandler, 0) << "a handler may show a dialog beside the new face";
    EXPECT_TRUE(Tests::pumpUntil([&] { return paintings > 0; }, 2000))
        << "a handler may have changed what the face shows";
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(ComboBoxTest, selectIndex_withoutSuchAnItem_readsBackAsNone)
{
    makeWithItems(3, 1);
    for (const int index : {3, 1000, INT_MAX, -1, -2, INT_MIN}) {
        box->selectIndex(index, true);
        EXPECT_FALSE(box->getSelectedIndex()) << index;
        EXPECT_FALSE(box->getSelectedId()) << index;
    }
    expectSelected({});
}

TEST_F(ComboBoxTest, event_namesTheBoxAndTheText)
{
    makeWithItems(3);
    wxObject* sender = nullptr;
    wxString text;
    panel->Bind(wxEVT_COMBOBOX, [&](wxCommandEvent& event) {
        sender = event.GetEventObject();
        text = event.GetString();
    });
    box->selectIndex(1, true);
    EXPECT_EQ(sender, box);
    EXPECT_EQ(text, L"item 1");
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(ComboBoxTest, event_goesToTheParentOfTheTime)
{
    makeWithItems(3);
    auto* other = new wxPanel(frame);
    int received = 0;
    other->Bind(wxEVT_COMBOBOX, [&](wxCommandEvent&) { ++received; });
    box->Reparent(other);
    box->selectIndex(1, true);
    EXPECT_EQ(received, 1);
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(calls, Array<int>({101}));
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(ComboBoxTest, arrowKeys_moveBetweenTheEnds)
{
    makeWithItems(3, 0);
    for (const int key : {WXK_UP, WXK_DOWN, WXK_DOWN, WXK_DOWN, WXK_DOWN, WXK_UP})
        EXPECT_TRUE(sendKey(key)) << "the event must not be skipped";
    expectSelected({1, 2, 1});
}

TEST_F(ComboBoxTest, homeAndEnd_selectTheFirstAndTheLast)
{
    makeWithItems(5, 2);
    for (const int key : {WXK_HOME, WXK_HOME, WXK_END, WXK_END})
        EXPECT_TRUE(sendKey(key));
    expectSelected({0, 4});
}

TEST_F(ComboBoxTest, pageKeys_moveBySeventeen)
{
    makeWithItems(40, 2);
    for (const int key : {WXK_PAGEDOWN, WXK_PAGEDOWN, WXK_PAGEDOWN, WXK_PAGEDOWN, WXK_PAGEUP})
        EXPECT_TRUE(sendKey(key));
    expectSelected({19, 36, 39, 22});
}

TEST_F(ComboBoxTest, nothingSelected_movesUpToNothingAndDownToTheFirst)
{
    for (const int start : {-1, -5, INT_MIN}) {
        makeWithItems(30, start);
        for (const int key : {WXK_UP, WXK_PAGEUP})
            EXPECT_TRUE(sendKey(key));
        sendMouse(box, wxEVT_MOUSEWHEEL, {5, 5}, 120);
        EXPECT_FALSE(box->getSelectedIndex());
        expectSelected({});
        for (const int key : {WXK_DOWN, WXK_PAGEDOWN, WXK_HOME, WXK_END}) {
            box->selectIndex(start, false);
            EXPECT_TRUE(sendKey(key));
            EXPECT_EQ(box->getSelectedIndex(), key == WXK_END ? 29 : 0);
        }
        events.clear();
        calls.clear();
        box->Destroy();
    }
}

TEST_F(ComboBoxTest, indexBeyondTheItems_movesBackToTheLast)
{
    for (const int key : {WXK_UP, WXK_DOWN, WXK_PAGEDOWN}) {
        makeWithItems(3, INT_MAX);
        EXPECT_TRUE(sendKey(key));
        EXPECT_EQ(box->getSelectedIndex(), 2);
        box->Destroy();
    }
}

TEST_F(ComboBoxTest, emptyList_ignoresEveryKeyAndTheWheel)
{
    make();
    for (const int key : {WXK_UP, WXK_DOWN, WXK_HOME, WXK_END, WXK_PAGEUP, WXK_PAGEDOWN})
        EXPECT_TRUE(sendKey(key));
    sendMouse(box, wxEVT_MOUSEWHEEL, {5, 5}, 120);
    sendMouse(box, wxEVT_MOUSEWHEEL, {5, 5}, -120);
    sendKeyTo(box, 'x', wxMOD_NONE, wxEVT_CHAR);
    EXPECT_FALSE(box->getSelectedIndex());
    expectSelected({});
}

TEST_F(ComboBoxTest, keysWithControl_doNothing)
{
    makeWithItems(3, 1);
    for (const int key : {WXK_UP, WXK_DOWN, WXK_HOME, WXK_END})
        sendKey(key, wxMOD_CONTROL);
    expectSelected({});
}

TEST_F(ComboBoxTest, keysOfOthers_areLeftToThem)
{
    makeWithItems(3, 1);
    EXPECT_FALSE(sendKey(WXK_F1));
    EXPECT_FALSE(sendKey('S', wxMOD_CONTROL));
    EXPECT_FALSE(sendKey(WXK_F4, wxMOD_ALT));
    EXPECT_FALSE(sendKey(WXK_ESCAPE)) << "may close the dialog while the list is closed";
    EXPECT_FALSE(sendKey(WXK_RETURN));
    expectSelected({});
}

TEST_F(ComboBoxTest, wheel_selectsTheNextAndThePrevious)
{
    makeWithItems(3, 0);
    for (const int rotation : {120, -120, -1, -120, 120, 0})
        sendMouse(box, wxEVT_MOUSEWHEEL, {5, 5}, rotation);
    expectSelected({1, 2, 1});
}

TEST_F(ComboBoxTest, disabled_ignoresTheWheelAndClicks)
{
    makeWithItems(3, 1);
    showFrame();
    box->Enable(false);
    sendMouse(box, wxEVT_MOUSEWHEEL, {5, 5}, -120);
    sendMouse(box, wxEVT_LEFT_DOWN, {5, 5});
    EXPECT_FALSE(box->isOpen());
    box->Enable();
    panel->Disable();
    sendMouse(box, wxEVT_MOUSEWHEEL, {5, 5}, -120);
    sendMouse(box, wxEVT_LEFT_DOWN, {5, 5});
    EXPECT_FALSE(box->isOpen());
    expectSelected({});
}

TEST_F(ComboBoxTest, typedText_selectsTheNextItemThatBeginsSo)
{
    make();
    box->setData(
        Array<ComboBox::Item>{{L"Alpha", 1, {}}, {L"Beta", 2, {}}, {L"bravo", 3, {}}, {L"\u00fcber", 4, {}}});
    const auto type = [this](int character) {
        wxKeyEvent event(wxEVT_CHAR);
        event.m_uniChar = static_cast<wxChar>(character);
        event.SetEventObject(box);
        box->GetEventHandler()->ProcessEvent(event);
        return box->getSelectedIndex();
    };
    EXPECT_EQ(type('b'), 1);
    EXPECT_EQ(type('r'), 2);
    box->setData(
        Array<ComboBox::Item>{{L"Alpha", 1, {}}, {L"Beta", 2, {}}, {L"bravo", 3, {}}, {L"\u00fcber", 4, {}}});
    EXPECT_EQ(type('B'), 1) << "goes on behind the selected item, and round at the end";
    EXPECT_EQ(type('b'), 2);
    EXPECT_EQ(type('b'), 1);
    box->setData(
        Array<ComboBox::Item>{{L"Alpha", 1, {}}, {L"Beta", 2, {}}, {L"bravo", 3, {}}, {L"\u00fcber", 4, {}}});
    EXPECT_EQ(type(0xfc), 3);
    EXPECT_EQ(type('z'), 3) << "no item begins so";
    EXPECT_EQ(calls, Array<int>({2, 3, 2, 3, 2, 4}));
}

TEST_F(ComboBoxTest, callbackThatReplacesTheItems_getsTheIdOfTheSelectedOne)
{
    makeWithItems(5);
    panel->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
        box->setData({});
        event.Skip();
    });
    sendKey(WXK_END);
    expectSelected({4});
    EXPECT_FALSE(box->getSelectedIndex());
}

TEST_F(ComboBoxTest, itemsReplacedInTheCallback_staySo)
{
    box = new ComboBox(
        panel, 7, 120, [this](int) { box->setData(Tests::manyItems(2)); }, {}, true);
    box->setData(Tests::manyItems(9));
    sendKey(WXK_END);
    EXPECT_EQ(box->getCount(), 2);
    EXPECT_EQ(box->getSelectedIndex(), 0);
}

TEST_F(ComboBoxTest, selectingInTheHandler_reportsBoth)
{
    makeWithItems(5);
    bool isFirst = true;
    panel->Bind(wxEVT_COMBOBOX, [&](wxCommandEvent& event) {
        event.Skip();
        if (std::exchange(isFirst, false))
            box->selectIndex(1, true);
    });
    sendKey(WXK_END);
    EXPECT_EQ(calls, Array<int>({101, 104}));
    EXPECT_EQ(box->getSelectedIndex(), 1);
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(ComboBoxTest, isInside_knowsTheBoxAndTheOpenList)
{
    makeWithItems(30);
    showFrame();
    const wxRect rect = box->GetScreenRect();
    const wxPoint below = rect.GetBottomLeft() + wxPoint(5, 50);
    EXPECT_TRUE(box->isInside(rect.GetTopLeft()));
    EXPECT_TRUE(box->isInside(rect.GetBottomRight()));
    EXPECT_FALSE(box->isInside(rect.GetBottomRight() + wxPoint(1, 0)));
    EXPECT_FALSE(box->isInside(below));
    box->setOpen(true);
    EXPECT_TRUE(box->isInside(below));
    EXPECT_FALSE(box->isInside(below + wxPoint(rect.width, 0)));
}

TEST_F(ComboBoxTest, tab_movesTheFocusToTheNextFocusable)
{
    makeWithItems(3);
    auto* next = new ComboBox(panel, wxID_ANY, 50, {}, {}, true);
    showFrame();
    box->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([this] { return box->HasFocus(); }));
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(Tests::pumpUntil([&] { return next->HasFocus(); }, 2000));
    Tests::typeKey(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(Tests::pumpUntil([this] { return box->HasFocus(); }, 2000));
}

TEST_F(ComboBoxTest, realKeysAndWheel_select)
{
    makeWithItems(5, 0);
    showFrame();
    box->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([this] { return box->HasFocus() && frame->IsActive(); }));
    Tests::typeKey(WXK_DOWN);
    EXPECT_TRUE(Tests::pumpUntil([this] { return box->getSelectedIndex() == 1; }, 2000));
    Tests::typeKey(WXK_END);
    EXPECT_TRUE(Tests::pumpUntil([this] { return box->getSelectedIndex() == 4; }, 2000));
    expectSelected({1, 4});
}

TEST_F(ComboBoxTest, typedKeys_reachTheTextSearch)
{
    makeWithItems(5);
    showFrame();
    box->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([this] { return box->HasFocus() && frame->IsActive(); }));
    Tests::typeKey('I');
    EXPECT_TRUE(Tests::pumpUntil([this] { return box->getSelectedIndex() == 0; }, 2000));
    expectSelected({0});
}
