// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/DropdownButton.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "support/Gestures.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/stopwatch.h>

#include <gtest/gtest.h>

#include <utility>

using namespace Nolvex;
using Wx::DropdownButton;
using Wx::scaleByDpi;

namespace {

static_assert(std::is_base_of_v<Wx::Button, DropdownButton>);

constexpr auto PUSH = DropdownButton::Behavior::PUSH;
constexpr auto TOGGLE = DropdownButton::Behavior::TOGGLE;
constexpr auto SWAP = DropdownButton::Behavior::SWAP;
constexpr int HELD = 400; // milliseconds, more than it takes to open

struct DropdownButtonTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "dropdown", wxPoint(100, 100), wxSize(400, 300));
    wxPanel* panel = new wxPanel(frame);
    Array<wxString> reports;
    DropdownButton* button = nullptr;

    ~DropdownButtonTest() override
    {
        Tests::destroyNow(frame);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    }

    void make(DropdownButton::Behavior behavior = PUSH,
              const Array<wxString>& labels = {L"one", L"two", L"three"}, bool enabled = true)
    {
        Array<int> ids;
        Array<Function<void()>> callbacks;
        for (const wxString& label : labels) {
            ids.push_back(static_cast<int>(ids.size()) + 30);
            callbacks.emplace_back([this, label] { reports.push_back(label); });
        }
        button = new DropdownButton(panel, Wx::GuiSkin::DEFAULT(), ids, labels, {}, {}, callbacks, behavior,
                                    enabled);
        button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    }

    void show() const
    {
        frame->Show();
        frame->Raise();
        Tests::pumpUntil([this] { return frame->IsActive(); }, 200);
        Tests::pumpEvents(150);
        Tests::moveMouse(panel, {300, 200});
    }

    wxFrame* popup() const { return wxDynamicCast(button->GetChildren().GetFirst()->GetData(), wxFrame); }

    Wx::Button* item(std::size_t index) const
    {
        return dynamic_cast<Wx::Button*>(popup()->GetChildren().Item(index)->GetData());
    }

    wxPoint centre() const { return {button->GetSize().x / 2, button->GetSize().y / 2}; }

    // The place in the button's pixels that lies over an item of the open popup.
    wxPoint over(std::size_t index) const
    {
        const wxRect rect = item(index)->GetScreenRect();
        return button->ScreenToClient(wxPoint(rect.x + rect.width / 2, rect.y + rect.height / 2));
    }

    void holdUntilOpen() const
    {
        Tests::pressMouseAt(button, centre());
        ASSERT_TRUE(Tests::pumpUntil([this] { return popup()->IsShown(); }, 2000));
        Tests::pumpEvents(150);
    }

    void choose(std::size_t index) const
    {
        holdUntilOpen();
        Tests::moveMouse(button, over(index));
        Tests::releaseMouse();
    }
};

using DropdownButtonSizeTest = DropdownButtonTest;

struct CornerColours
{
    RgbBytes line;
    RgbBytes inside;
};

CornerColours cornerOf(const DropdownButton* button)
{
    const wxSize size(73, 24);
    wxBitmap bitmap(size, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxBLACK_BRUSH);
        dc.Clear();
        button->drawFace(dc);
    }
    const wxImage image = bitmap.ConvertToImage();
    const int last = size.y - 2;
    return {Tests::pixelAt(image, size.x - 5, last), Tests::pixelAt(image, size.x - 4, size.y - 4)};
}

} // namespace

TEST_F(DropdownButtonSizeTest, buttonAndItems_haveTheSameLeastSize)
{
    make();
    const wxSize size(scaleByDpi(73), scaleByDpi(24));
    EXPECT_EQ(button->GetMinSize(), size);
    EXPECT_EQ(item(0)->GetMinSize(), size);
    EXPECT_EQ(item(1)->GetMinSize(), size);
    EXPECT_EQ(popup()->GetClientSize(), wxSize(size.x, 2 * size.y));
}

TEST_F(DropdownButtonTest, construction_makesAButtonOfTheFirstChoiceAndItemsOfTheOthers)
{
    make();
    EXPECT_EQ(button->GetId(), 30);
    EXPECT_EQ(button->GetLabel(), L"one");
    EXPECT_EQ(item(0)->GetId(), 31);
    EXPECT_EQ(item(0)->GetLabel(), L"two");
    EXPECT_EQ(item(1)->GetId(), 32);
    EXPECT_EQ(item(1)->GetLabel(), L"three");
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_TRUE(popup()->HasFlag(wxFRAME_NO_TASKBAR));
    EXPECT_TRUE(popup()->HasFlag(wxSTAY_ON_TOP));
    EXPECT_EQ(popup()->GetWindowStyleFlag() & wxBORDER_MASK, wxBORDER_NONE);
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, arraysOfDifferentLengthsOrNone_areProgrammingErrors)
{
    const auto construct = [this](const Array<int>& ids, const Array<wxString>& labels,
                                  const Array<Function<void()>>& callbacks) {
        const DropdownButton wrong(panel, Wx::GuiSkin::DEFAULT(), ids, labels, {}, {}, callbacks, PUSH, true);
    };
    EXPECT_THROW(construct({}, {}, {}), StopException);
    EXPECT_THROW(construct({1, 2}, {L"a"}, {{}, {}}), StopException);
    EXPECT_THROW(construct({1, 2}, {L"a", L"b"}, {{}}), StopException);
}

TEST_F(DropdownButtonTest, setText_changesTheLabelOfThatPlace)
{
    make();
    button->setText(0, L"main");
    button->setText(1, L"first item");
    button->setText(2, L"second item");
    EXPECT_EQ(button->GetLabel(), L"main");
    EXPECT_EQ(item(0)->GetLabel(), L"first item");
    EXPECT_EQ(item(1)->GetLabel(), L"second item");
    EXPECT_THROW(button->setText(3, L""), StopException);
    EXPECT_THROW(button->setText(-1, L""), StopException);
}

TEST_F(DropdownButtonTest, shortClick_isTheMainChoiceAndOpensNothing)
{
    make();
    show();
    int events = 0;
    panel->Bind(wxEVT_BUTTON, [&](wxEvent& event) { events += event.GetId() == 30 ? 1 : 100; });
    Tests::clickAt(button, centre());
    EXPECT_EQ(reports, Array<wxString>({L"one"}));
    EXPECT_EQ(events, 1);
    Tests::pumpEvents(HELD);
    EXPECT_FALSE(popup()->IsShown());
}

TEST_F(DropdownButtonTest, held_opensThePopupDirectlyBelow)
{
    make();
    show();
    holdUntilOpen();
    const wxPoint below = button->GetScreenPosition() + wxPoint(0, button->GetSize().y);
    EXPECT_TRUE(Tests::pumpUntil([&] { return popup()->GetScreenPosition() == below; }, 2000))
        << popup()->GetScreenPosition().x << ", " << popup()->GetScreenPosition().y;
    EXPECT_TRUE(reports.empty());
    Tests::releaseMouse();
    EXPECT_EQ(reports, Array<wxString>({L"one"})) << "released over the button it is the main choice";
    EXPECT_FALSE(popup()->IsShown());
}

TEST_F(DropdownButtonTest, held_opensNoSoonerThanItShould)
{
    make();
    show();
    Tests::moveMouse(button, centre());
    const wxStopWatch watch;
    wxUIActionSimulator().MouseDown(wxMOUSE_BTN_LEFT);
    ASSERT_TRUE(Tests::pumpUntil([this] { return popup()->IsShown(); }, 2000));
    EXPECT_GE(watch.Time(), 140);
    Tests::releaseMouse();
}

TEST_F(DropdownButtonTest, disabledWhileOpen_staysOpenUntilTheRelease)
{
    make();
    show();
    holdUntilOpen();
    button->Enable(false);
    Tests::pumpEvents(50);
    EXPECT_TRUE(popup()->IsShown());
    Tests::moveMouse(button, over(1));
    Tests::releaseMouse();
    EXPECT_EQ(reports, Array<wxString>({L"three"}));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(DropdownButtonTest, hiddenWhileOpen_hasClosedThePopupAfterTheRelease)
{
    make();
    show();
    holdUntilOpen();
    button->Hide();
    Tests::moveMouse(panel, {300, 200});
    Tests::releaseMouse();
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, releasedOverAnItem_callsItsCallbackOnly)
{
    make();
    show();
    int events = 0;
    panel->Bind(wxEVT_BUTTON, [&](wxEvent&) { ++events; });
    choose(1);
    EXPECT_EQ(reports, Array<wxString>({L"three"}));
    EXPECT_EQ(events, 0);
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(button->GetLabel(), L"one");
}

TEST_F(DropdownButtonTest, releasedOverNoItem_hidesThePopupAndChoosesNothing)
{
    make();
    show();
    holdUntilOpen();
    Tests::moveMouse(button, {250, 60});
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->borderState().has(OskaBorderState::HOVERED));
}

TEST_F(DropdownButtonTest, released_endsTheHover)
{
    make();
    show();
    for (const wxEventType type : {wxEVT_ENTER_WINDOW, wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}) {
        wxMouseEvent event(type);
        event.SetPosition({250, 60});
        button->GetEventHandler()->ProcessEvent(event);
        EXPECT_EQ(button->borderState().has(OskaBorderState::HOVERED), type != wxEVT_LEFT_UP);
    }
}

TEST_F(DropdownButtonTest, mouseOverTheItems_marksTheOneUnderIt)
{
    make();
    show();
    holdUntilOpen();
    const auto isMarked = [this](std::size_t i) {
        return item(i)->borderState().has(OskaBorderState::HOVERED);
    };
    Tests::moveMouse(button, over(0));
    EXPECT_TRUE(isMarked(0));
    EXPECT_FALSE(isMarked(1));
    Tests::moveMouse(button, over(1));
    EXPECT_FALSE(isMarked(0));
    EXPECT_TRUE(isMarked(1));
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(item(1)), 1, 5), Wx::GuiSkin::DEFAULT().highlight);
    EXPECT_NE(Tests::pixelAt(Tests::captureClientArea(item(0)), 1, 5), Wx::GuiSkin::DEFAULT().highlight);
    Tests::moveMouse(button, {250, 60});
    EXPECT_FALSE(isMarked(1));
    Tests::releaseMouse();
}

TEST_F(DropdownButtonTest, swap_makesTheChosenOneTheMainChoice)
{
    make(SWAP);
    show();
    choose(1);
    EXPECT_EQ(button->GetLabel(), L"three");
    EXPECT_EQ(item(1)->GetLabel(), L"one");
    Tests::clickAt(button, centre());
    EXPECT_EQ(reports, Array<wxString>({L"three", L"three"}));
    choose(1);
    EXPECT_EQ(reports, Array<wxString>({L"three", L"three", L"one"}));
    EXPECT_EQ(button->GetLabel(), L"one");
}

TEST_F(DropdownButtonTest, singleChoice_opensAnEmptyPopup)
{
    make(PUSH, {L"only"});
    show();
    holdUntilOpen();
    Tests::releaseMouse();
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_EQ(reports, Array<wxString>({L"only"}));
}

TEST_F(DropdownButtonTest, toggle_flipsWithTheMainChoiceOnly)
{
    make(TOGGLE);
    show();
    Tests::clickAt(button, centre());
    EXPECT_TRUE(button->isToggled());
    choose(0);
    EXPECT_TRUE(button->isToggled());
    EXPECT_EQ(button->GetLabel(), L"one");
}

TEST_F(DropdownButtonTest, disabled_doesNotOpen)
{
    make(PUSH, {L"one", L"two"}, false);
    show();
    Tests::pressMouseAt(button, centre());
    Tests::pumpEvents(HELD);
    EXPECT_FALSE(popup()->IsShown());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, captureLost_closesThePopupAndChoosesNothing)
{
    make();
    show();
    holdUntilOpen();
    wxMouseCaptureLostEvent lost(button->GetId());
    EXPECT_TRUE(button->GetEventHandler()->ProcessEvent(lost));
    EXPECT_FALSE(popup()->IsShown());
    EXPECT_FALSE(button->isPressed());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.empty());
}

TEST_F(DropdownButtonTest, captureLostBeforeItOpens_keepsItClosed)
{
    make();
    show();
    Tests::pressMouseAt(button, centre());
    wxMouseCaptureLostEvent lost(button->GetId());
    EXPECT_TRUE(button->GetEventHandler()->ProcessEvent(lost));
    Tests::pumpEvents(HELD);
    EXPECT_FALSE(popup()->IsShown());
    Tests::releaseMouse();
}

TEST_F(DropdownButtonTest, popupClosedByTheKeyboard_isOnlyHidden)
{
    make();
    show();
    holdUntilOpen();
    popup()->Close();
    Tests::pumpEvents(50);
    ASSERT_NE(popup(), nullptr);
    EXPECT_FALSE(popup()->IsShown());
    Tests::releaseMouse();
    choose(0);
    EXPECT_EQ(reports.back(), L"two");
}

TEST_F(DropdownButtonTest, itemCallbackThatDestroysTheButton_isSafe)
{
    auto* self = new DropdownButton(
        panel, Wx::GuiSkin::DEFAULT(), {1, 2}, {L"one", L"two"}, {}, {},
        {Function<void()>(), [this] { std::exchange(button, nullptr)->Destroy(); }}, SWAP, true);
    button = self;
    button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    show();
    choose(0);
    EXPECT_EQ(button, nullptr);
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(DropdownButtonTest, itemCallbackThatDestroysItsItem_isSafe)
{
    button = new DropdownButton(
        panel, Wx::GuiSkin::DEFAULT(), {40, 41, 42}, {L"one", L"two", L"three"}, {}, {},
        {Function<void()>(), [this] { item(0)->Destroy(); }, [this] { reports.push_back(L"three"); }}, SWAP,
        true);
    button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    show();
    choose(0);
    EXPECT_EQ(button->GetLabel(), L"one") << "there is nothing to swap with";
    button->setText(1, L"nobody shows this");
    choose(0);
    EXPECT_EQ(reports, Array<wxString>({L"three"})) << "the other item is the only one now";
}

TEST_F(DropdownButtonTest, itemCallbackThatDestroysTheFrame_isSafe)
{
    auto* other = new wxFrame(nullptr, wxID_ANY, "other", wxPoint(300, 300), wxSize(300, 200));
    button = new DropdownButton(other, Wx::GuiSkin::DEFAULT(), {1, 2}, {L"one", L"two"}, {}, {},
                                {Function<void()>(), [&other] { std::exchange(other, nullptr)->Destroy(); }},
                                SWAP, true);
    button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    other->Show();
    other->Raise();
    Tests::pumpEvents(200);
    choose(0);
    EXPECT_EQ(other, nullptr);
    Tests::pumpEvents(50);
}

TEST_F(DropdownButtonTest, mainCallbackThatDestroysTheParent_isSafe)
{
    auto* inner = new wxPanel(panel, wxID_ANY, wxPoint(0, 0), wxSize(200, 100));
    button = new DropdownButton(inner, Wx::GuiSkin::DEFAULT(), {1, 2}, {L"one", L"two"}, {}, {},
                                {[inner] { delete inner; }, Function<void()>()}, SWAP, true);
    button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    show();
    Tests::clickAt(button, centre());
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(DropdownButtonTest, destroyedWhileOpen_takesThePopupAlong)
{
    make();
    show();
    holdUntilOpen();
    const wxWeakRef<wxFrame> open(popup());
    button->Destroy();
    EXPECT_FALSE(open);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
}

TEST_F(DropdownButtonTest, corner_showsTheAccentColourOrGreyWhenDisabled)
{
    make();
    CornerColours corner = cornerOf(button);
    EXPECT_EQ(corner.inside, Wx::GuiSkin::DEFAULT().accent);
    EXPECT_EQ(corner.line, (RgbBytes{37, 37, 37}));
    button->Enable(false);
    corner = cornerOf(button);
    EXPECT_EQ(corner.inside, (RgbBytes{135, 135, 135}));
    EXPECT_EQ(corner.line, (RgbBytes{37, 37, 37}));
    button->Enable(true);
    wxMouseEvent entered(wxEVT_ENTER_WINDOW);
    button->GetEventHandler()->ProcessEvent(entered);
    EXPECT_EQ(cornerOf(button).line, Wx::GuiSkin::DEFAULT().highlight);
}
