// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Tooltip.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/StringConversions.h"
#include "support/Screen.h"
#include "support/TooltipFixture.h"

#include <wx/settings.h>
#include <wx/stopwatch.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace Nolvex;
using Tests::pumpEvents;
using Tests::pumpUntil;
using Wx::Tooltip;

namespace {

static_assert(std::is_base_of_v<wxPopupWindow, Tooltip>);

using TooltipTest = Tests::TooltipFixture;

} // namespace

TEST_F(TooltipTest, construction_showsNothingAndWaits600Milliseconds)
{
    const auto* tooltip = new Tooltip(owner, L"text");
    EXPECT_FALSE(tooltip->IsShown());
    EXPECT_EQ(tooltip->delay(), 600);
    EXPECT_EQ(tooltip->GetParent(), owner);
}

TEST_F(TooltipTest, ownerThatTakesTheFocus_stillTakesIt)
{
    const Tooltip* tooltip = make(L"text");
    EXPECT_FALSE(tooltip->AcceptsFocus() || tooltip->AcceptsFocusFromKeyboard());
    EXPECT_TRUE(owner->AcceptsFocus());
    int keys = 0;
    owner->Bind(wxEVT_KEY_DOWN, [&](wxKeyEvent&) { ++keys; });
    owner->SetFocus();
    ASSERT_TRUE(pumpUntil([&] { return owner->HasFocus() && frame->IsActive(); }));
    pumpEvents(60);
    mouse.Char('X');
    EXPECT_TRUE(pumpUntil([&] { return keys > 0; }));
}

TEST_F(TooltipTest, restingMouse_bringsItUpAfter600Milliseconds)
{
    auto* tooltip = new Tooltip(owner, L"text");
    wxStopWatch watch;
    owner->Bind(wxEVT_MOTION, [&](wxMouseEvent& event) {
        watch.Start();
        event.Skip();
    });
    moveTo(40, 30);
    EXPECT_FALSE(tooltip->IsShown());
    ASSERT_TRUE(pumpUntil([&] { return tooltip->IsShown(); }));
    EXPECT_GE(watch.Time(), 590);
}

TEST_F(TooltipTest, movingMouse_postponesIt)
{
    Tooltip* tooltip = make(L"text", 500);
    const wxStopWatch watch;
    for (int i = 0; watch.Time() < 1200; ++i) {
        moveTo(40 + i % 100, 30);
        ASSERT_FALSE(tooltip->IsShown());
    }
    EXPECT_TRUE(pumpUntil([&] { return tooltip->IsShown(); }));
}

TEST_F(TooltipTest, leaving_hidesIt)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    leave();
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }));
    EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 3 * SHORT_DELAY));
}

TEST_F(TooltipTest, leaving_hidesItAtOnce)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    mouse.MouseMove(5, 5);
    wxMouseEvent left(wxEVT_LEAVE_WINDOW);
    owner->GetEventHandler()->ProcessEvent(left);
    EXPECT_FALSE(tooltip->IsShown());
}

TEST_F(TooltipTest, leavingBeforeTheDelayIsOver_showsNothing)
{
    Tooltip* tooltip = make(L"text", 200);
    moveTo(40, 30);
    leave();
    EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 400));
}

TEST_F(TooltipTest, clicking_hidesItAndStopsTheDelay)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    mouse.MouseClick();
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }));
    EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 4 * SHORT_DELAY));
    rest(tooltip, 60, 40);
}

TEST_F(TooltipTest, timerThatFiresWithTheMouseElsewhere_showsNothing)
{
    Tooltip* tooltip = make(L"text");
    for (const wxPoint outside : {wxPoint(-1, 30), wxPoint(200, 30), wxPoint(40, -1), wxPoint(40, 100)}) {
        mouse.MouseMove(owner->ClientToScreen(outside));
        pumpEvents(60);
        wxMouseEvent entered(wxEVT_ENTER_WINDOW);
        owner->GetEventHandler()->ProcessEvent(entered);
        EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 4 * SHORT_DELAY))
            << "at " << outside.x << ", " << outside.y;
    }
}

TEST_F(TooltipTest, mouseOnTheFirstAndTheLastPixel_bringsItUp)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip, 0, 0);
    leave();
    rest(tooltip, 199, 99);
}

TEST_F(TooltipTest, withoutText_itNeverShows)
{
    Tooltip* tooltip = make(String());
    moveTo(38, 30);
    moveTo(40, 30);
    EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 5 * SHORT_DELAY));
    tooltip->setText(L"now");
    rest(tooltip);
}

TEST_F(TooltipTest, shown_itLiesBesideTheMouse)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    EXPECT_EQ(tooltip->GetScreenPosition(), wxGetMousePosition() + wxPoint(10, 5));
}

TEST_F(TooltipTest, shown_itStaysWhereItAppeared)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    const wxRect before = tooltip->GetScreenRect();
    moveTo(80, 60);
    pumpEvents(4 * SHORT_DELAY);
    EXPECT_TRUE(tooltip->IsShown());
    EXPECT_EQ(tooltip->GetScreenRect(), before);
}

TEST_F(TooltipTest, shown_itIsAsLargeAsItsLinesAndSixPixels)
{
    Tooltip* tooltip = make(L"short\n\na longer line");
    rest(tooltip);
    const wxSize longest = tooltip->GetTextExtent("a longer line");
    const int lineHeight = tooltip->GetTextExtent(" ").y;
    EXPECT_EQ(tooltip->GetClientSize(),
              wxSize(longest.x + 6, tooltip->GetTextExtent("short").y + lineHeight + longest.y + 6));
    EXPECT_EQ(tooltip->GetMinSize(), tooltip->GetClientSize());
}

TEST_F(TooltipTest, shown_itIsPaintedInTheSystemsColours)
{
    Tooltip* tooltip = make(L"MMM\nM");
    rest(tooltip);
    const wxImage image = Tests::captureClientArea(tooltip);
    const RgbBytes paper = Wx::toRgbBytes(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK));
    const RgbBytes ink = Wx::toRgbBytes(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOTEXT));
    int inked[2] = {0, 0};
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            const bool edge = x == 0 || y == 0 || x == image.GetWidth() - 1 || y == image.GetHeight() - 1;
            const bool margin = x < 3 || y < 3 || x >= image.GetWidth() - 3 || y >= image.GetHeight() - 3;
            const RgbBytes pixel = Tests::pixelAt(image, x, y);
            if (edge)
                ASSERT_EQ(pixel, ink) << "at " << x << ", " << y;
            else if (margin)
                ASSERT_EQ(pixel, paper) << "at " << x << ", " << y;
            else
                inked[y < image.GetHeight() / 2 ? 0 : 1] += pixel == paper ? 0 : 1;
        }
    }
    EXPECT_GT(inked[1], 5);
    EXPECT_GT(inked[0], 2 * inked[1]) << "the first line has more letters";
}

TEST_F(TooltipTest, oneLongWord_isOneLineWiderThanTheLimit)
{
    Tooltip* tooltip = make(std::wstring(80, L'M'));
    ASSERT_EQ(tooltip->lines().size(), 1u);
    rest(tooltip);
    EXPECT_GT(tooltip->GetClientSize().x, Wx::scaleByDpi(250));
}

TEST_F(TooltipTest, longText_isWrappedTo250DesignUnits)
{
    std::wstring text;
    for (int i = 0; i < 60; ++i)
        text += L"word ";
    const Tooltip* tooltip = make(text);
    ASSERT_GT(tooltip->lines().size(), 2u);
    for (std::size_t i = 0; i + 1 < tooltip->lines().size(); ++i) {
        const String& line = tooltip->lines()[i];
        EXPECT_LE(tooltip->GetTextExtent(Wx::toWxString(line)).x, Wx::scaleByDpi(250));
        EXPECT_GT(tooltip->GetTextExtent(Wx::toWxString(line + L" word")).x, Wx::scaleByDpi(250));
    }
}

TEST_F(TooltipTest, setText_whileShown_fitsToTheNewText)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    const wxSize before = tooltip->GetClientSize();
    tooltip->setText(L"a longer text\nof two lines");
    pumpEvents(100);
    EXPECT_GT(tooltip->GetClientSize().x, before.x);
    EXPECT_GT(tooltip->GetClientSize().y, before.y);
    tooltip->setText(String());
    EXPECT_FALSE(tooltip->IsShown());
}

TEST_F(TooltipTest, atTheEdgeOfTheScreen_itStaysInsideAndUp)
{
    const Bucket area = Wx::getMonitorRegionByWindow(frame, Wx::MonitorRegionType::WORK_AREA);
    Tooltip* tooltip = make(L"a text of some length\nand of two lines");
    frame->Move(area.max.x - 300, area.max.y - 200);
    pumpEvents(150);
    const wxPoint corner = owner->ScreenToClient(wxPoint(area.max.x - 3, area.max.y - 3));
    owner->SetSize(400, 400);
    pumpEvents(50);
    rest(tooltip, corner.x, corner.y);
    const wxRect rect = tooltip->GetScreenRect();
    EXPECT_EQ(rect.GetRight(), area.max.x - 1);
    EXPECT_EQ(rect.GetBottom(), area.max.y - 1);
    EXPECT_FALSE(pumpUntil([&] { return !tooltip->IsShown(); }, 4 * SHORT_DELAY))
        << "it lies under the mouse and takes it from the owner";
    leave();
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }));
}

TEST_F(TooltipTest, setText_whileShownAtTheEdgeOfTheScreen_keepsItInside)
{
    const Bucket area = Wx::getMonitorRegionByWindow(frame, Wx::MonitorRegionType::WORK_AREA);
    Tooltip* tooltip = make(L"i");
    frame->Move(area.max.x - 300, area.max.y - 200);
    pumpEvents(150);
    owner->SetSize(400, 400);
    pumpEvents(50);
    const wxPoint corner = owner->ScreenToClient(wxPoint(area.max.x - 40, area.max.y - 40));
    rest(tooltip, corner.x, corner.y);
    const wxPoint before = tooltip->GetScreenPosition();
    tooltip->setText(L"ii");
    pumpEvents(50);
    EXPECT_EQ(tooltip->GetScreenPosition(), before) << "there is room for this one";
    tooltip->setText(L"a text of some length\nand of\nthree lines");
    pumpEvents(100);
    const wxRect rect = tooltip->GetScreenRect();
    EXPECT_EQ(rect.GetRight(), area.max.x - 1);
    EXPECT_EQ(rect.GetBottom(), area.max.y - 1);
    leave();
}

TEST_F(TooltipTest, handlersOfTheOwner_runAsBefore)
{
    int seen = 0;
    const auto count = [&](wxMouseEvent& event) {
        ++seen;
        event.Skip();
    };
    const wxEventTypeTag<wxMouseEvent> types[] = {wxEVT_ENTER_WINDOW, wxEVT_MOTION, wxEVT_LEFT_UP,
                                                  wxEVT_LEAVE_WINDOW};
    for (const auto& type : types)
        owner->Bind(type, count);
    make(L"text"); // bound last, called first
    for (const auto& type : types) {
        wxMouseEvent event(type);
        owner->GetEventHandler()->ProcessEvent(event);
    }
    EXPECT_EQ(seen, 4);
}

TEST_F(TooltipTest, delaysBeyondTheTimersRange_areTakenAsTheNearest)
{
    Tooltip* tooltip = make(L"text");
    tooltip->setDelay(std::numeric_limits<std::int64_t>::max());
    moveTo(40, 30);
    EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 100));
    tooltip->setDelay(-5);
    rest(tooltip);
}

TEST_F(TooltipTest, ownerDestroyedWhileArmed_takesItAlong)
{
    const wxWeakRef<Tooltip> tooltip(make(L"text"));
    moveTo(40, 30);
    owner->Destroy();
    EXPECT_FALSE(tooltip);
    pumpEvents(3 * SHORT_DELAY);
}

TEST_F(TooltipTest, ownerDestroyedWhileShown_takesItAlong)
{
    const wxWeakRef<Tooltip> tooltip(make(L"text"));
    rest(tooltip);
    owner->Destroy();
    EXPECT_FALSE(tooltip);
    pumpEvents(3 * SHORT_DELAY);
}

TEST_F(TooltipTest, frameDestroyedWhileShown_takesItAlong)
{
    const wxWeakRef<Tooltip> tooltip(make(L"text"));
    rest(tooltip);
    destroyFrame();
    EXPECT_FALSE(tooltip);
}

TEST_F(TooltipTest, tooltipDestroyedBeforeItsOwner_listensNoMore)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    tooltip->Destroy();
    pumpEvents(60);
    leave();
    moveTo(40, 30);
    mouse.MouseClick();
    pumpEvents(3 * SHORT_DELAY);
    EXPECT_TRUE(owner->GetChildren().empty());
}

TEST_F(TooltipTest, ownerHiddenWhileArmed_showsNothing)
{
    Tooltip* tooltip = make(L"text", 150);
    moveTo(40, 30);
    panel->Hide();
    EXPECT_FALSE(pumpUntil([&] { return tooltip->IsShown(); }, 400));
}

TEST_F(TooltipTest, frameHiddenWhileShown_takesItOffTheScreen)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    frame->Hide();
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }, 1000));
}

TEST_F(TooltipTest, ownerHiddenWhileShown_takesItOffTheScreen)
{
    Tooltip* tooltip = make(L"text");
    rest(tooltip);
    owner->Hide();
    EXPECT_TRUE(pumpUntil([&] { return !tooltip->IsShown(); }, 1000));
}
