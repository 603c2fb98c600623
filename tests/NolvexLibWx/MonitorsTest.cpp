// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Monitors.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/NativeWindows.h"
#include "support/FrameFixture.h"
#include "support/NoApplication.h"

#include <wx/display.h>

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Wx::MonitorRegionType;
using Wx::Detail::nearestMonitor;
using Wx::Detail::positionInWorkArea;
using Wx::Detail::regionAround;

namespace {

constexpr int MAX_COORDINATE = std::numeric_limits<int>::max();
constexpr int MIN_COORDINATE = std::numeric_limits<int>::min();

struct MonitorsWindowTest : Tests::FrameFixture
{
    MonitorsWindowTest() : FrameFixture(L"monitors", {300, 200}, wxBORDER_NONE)
    {
        // The window manager may move the frame until the frame has been painted.
        showFrame();
        EXPECT_TRUE(Tests::pumpUntil([this] { return region().size() == Pixel{300, 200}; }));
    }

    Bucket region() const { return Wx::getScreenRegion(Wx::getWindowNativeHandle(frame)); }

    bool comesTo(Pixel topLeft) const
    {
        return Tests::pumpUntil([&] { return region().min == topLeft; });
    }

    // Beyond a corner of the first monitor there may be another one.
    static Bucket workAreaAt(Pixel point)
    {
        return Wx::getMonitorRegionByPoint(point, MonitorRegionType::WORK_AREA);
    }

    static Bucket workArea() { return Wx::toBucket(wxDisplay(0u).GetClientArea()); }
};

} // namespace

TEST(MonitorsTest, regionAround_nothing_isEmpty)
{
    EXPECT_TRUE(regionAround({}).isEmpty());
}

TEST(MonitorsTest, regionAround_severalRegions_holdsThemAll)
{
    const Array<Bucket> regions{{{0, 10}, {30, 40}}, {{-20, 0}, {0, 25}}, {{5, 40}, {50, 45}}};
    EXPECT_EQ(regionAround(regions), (Bucket{{-20, 0}, {50, 45}}));
}

TEST(MonitorsTest, getDesktopRegion_touchesAMonitorAtEachSide)
{
    const Bucket desktop = Wx::getDesktopRegion();
    bool isLeft = false;
    bool isTop = false;
    bool isRight = false;
    bool isBottom = false;
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index) {
        const Bucket monitor = Wx::toBucket(wxDisplay(index).GetGeometry());
        EXPECT_EQ(monitor.intersected(desktop), monitor);
        isLeft |= monitor.min.x == desktop.min.x;
        isTop |= monitor.min.y == desktop.min.y;
        isRight |= monitor.max.x == desktop.max.x;
        isBottom |= monitor.max.y == desktop.max.y;
    }
    EXPECT_TRUE(isLeft && isTop && isRight && isBottom);
}

TEST(MonitorsTest, nearestMonitor_ofNone_isMinusOne)
{
    EXPECT_EQ(nearestMonitor({}, {0, 0}), -1);
}

TEST(MonitorsTest, nearestMonitor_isTheOneThatHoldsThePoint)
{
    const Array<wxRect> monitors{{0, 0, 1920, 1080}, {1920, 0, 1280, 1024}, {-1600, -200, 1600, 1200}};
    EXPECT_EQ(nearestMonitor(monitors, {0, 0}), 0);
    EXPECT_EQ(nearestMonitor(monitors, {1919, 1079}), 0);
    EXPECT_EQ(nearestMonitor(monitors, {1920, 0}), 1);
    EXPECT_EQ(nearestMonitor(monitors, {-1, 0}), 2);
    EXPECT_EQ(nearestMonitor(monitors, {-1600, -200}), 2);
}

TEST(MonitorsTest, nearestMonitor_inAGap_isTheNearerOne)
{
    // Last pixel 99, first pixel 200.
    const Array<wxRect> monitors{{0, 0, 100, 100}, {200, 0, 100, 100}};
    EXPECT_EQ(nearestMonitor(monitors, {149, 50}), 0);
    EXPECT_EQ(nearestMonitor(monitors, {150, 50}), 1);
}

TEST(MonitorsTest, nearestMonitor_atEqualDistance_isTheFirst)
{
    const Array<wxRect> monitors{{0, 0, 100, 100}, {199, 0, 100, 100}, {149, 150, 1, 1}};
    EXPECT_EQ(nearestMonitor(monitors, {149, 50}), 0);
    const Array<wxRect> swapped{{199, 0, 100, 100}, {0, 0, 100, 100}};
    EXPECT_EQ(nearestMonitor(swapped, {149, 50}), 0);
    const Array<wxRect> mirrored{{0, 0, 100, 100}, {0, 0, 100, 100}};
    EXPECT_EQ(nearestMonitor(mirrored, {50, 50}), 0);
}

TEST(MonitorsTest, nearestMonitor_measuresAcrossCornersToo)
{
    // The point is 30 pixels right of and 40 below the first monitor, a distance of 50, and 45 above the
    // second one.
    const Array<wxRect> monitors{{0, 0, 100, 100}, {100, 184, 100, 100}};
    EXPECT_EQ(nearestMonitor(monitors, {129, 139}), 1);
    const Array<wxRect> further{{0, 0, 100, 100}, {100, 190, 100, 100}};
    EXPECT_EQ(nearestMonitor(further, {129, 139}), 0);
}

TEST(MonitorsTest, nearestMonitor_farOutside_overflowsNowhere)
{
    const Array<wxRect> monitors{{0, 0, 40, 100}, {-40, 0, 40, 100}};
    EXPECT_EQ(nearestMonitor(monitors, {MIN_COORDINATE, 50}), 0) << "too far to tell the two apart";
    EXPECT_EQ(nearestMonitor(monitors, {-1000000, 50}), 1);
    EXPECT_EQ(nearestMonitor(monitors, {MAX_COORDINATE, MAX_COORDINATE}), 0);
    EXPECT_EQ(nearestMonitor(Array<wxRect>{{MAX_COORDINATE, MAX_COORDINATE, 100, 100}},
                             {MIN_COORDINATE, MIN_COORDINATE}),
              0);
}

TEST(MonitorsTest, positionInWorkArea_inside_isKept)
{
    EXPECT_EQ(positionInWorkArea({0, 0, 1920, 1040}, {300, 200}, {100, 50}), (Pixel{100, 50}));
    EXPECT_EQ(positionInWorkArea({-1600, -200, 1600, 1200}, {300, 200}, {-1, -1}), (Pixel{-300, -1}));
}

TEST(MonitorsTest, positionInWorkArea_touchesTheEdgesExactly)
{
    const wxRect workArea(10, 20, 1000, 800);
    EXPECT_EQ(positionInWorkArea(workArea, {300, 200}, {710, 620}), (Pixel{710, 620}));
    EXPECT_EQ(positionInWorkArea(workArea, {300, 200}, {711, 621}), (Pixel{710, 620}));
    EXPECT_EQ(positionInWorkArea(workArea, {300, 200}, {9, 19}), (Pixel{10, 20}));
    EXPECT_EQ(positionInWorkArea(workArea, {300, 200}, {-5000, 5000}), (Pixel{10, 620}));
}

TEST(MonitorsTest, positionInWorkArea_ofAWindowTooLarge_isTheEdge)
{
    EXPECT_EQ(positionInWorkArea({0, 0, 1920, 1080}, {3000, 100}, {500, 60}), (Pixel{0, 60}));
    EXPECT_EQ(positionInWorkArea({-1600, 30, 1600, 900}, {2000, 1000}, {-800, 400}), (Pixel{-1600, 30}));
    EXPECT_EQ(positionInWorkArea({5, 6, 100, 100}, {100, 100}, {50, 50}), (Pixel{5, 6}));
}

TEST(MonitorsTest, positionInWorkArea_survivesExtremes)
{
    EXPECT_EQ(positionInWorkArea({0, 0, 1920, 1080}, {MAX_COORDINATE, MAX_COORDINATE},
                                 {MIN_COORDINATE, MAX_COORDINATE}),
              (Pixel{0, 0}));
    EXPECT_EQ(positionInWorkArea({MAX_COORDINATE - 10, 0, 100, 100}, {20, 20}, {MAX_COORDINATE, 0}),
              (Pixel{MAX_COORDINATE, 0}));
    EXPECT_EQ(positionInWorkArea({}, {300, 200}, {100, 100}), (Pixel{0, 0})) << "no monitor";
}

TEST(MonitorsTest, regionByPoint_isThatOfTheToolkitsDisplay)
{
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index) {
        const wxDisplay display(index);
        const Pixel centre = Wx::getRectCenter(display.GetGeometry());
        EXPECT_EQ(Wx::getMonitorRegionByPoint(centre, MonitorRegionType::FULL_AREA),
                  Wx::toBucket(display.GetGeometry()));
        EXPECT_EQ(Wx::getMonitorRegionByPoint(centre, MonitorRegionType::WORK_AREA),
                  Wx::toBucket(display.GetClientArea()));
        EXPECT_EQ(Wx::getMonitorRegionByPoint(centre, static_cast<MonitorRegionType>(5)),
                  Wx::toBucket(display.GetGeometry()));
    }
}

TEST(MonitorsTest, regionByPoint_offTheScreen_isThatOfAMonitor)
{
    const Bucket region = Wx::getMonitorRegionByPoint({-100000, -100000}, MonitorRegionType::FULL_AREA);
    EXPECT_FALSE(region.isEmpty());
    EXPECT_GE(wxDisplay::GetFromPoint(Wx::toWxPoint(region.min)), 0);
    EXPECT_GE(wxDisplay::GetFromPoint(Wx::toWxPoint(region.max - Pixel{1, 1})), 0);
}

TEST(MonitorsTest, region_withoutAnApplication_isEmpty)
{
    const Tests::NoApplication none;
    for (const auto type : {MonitorRegionType::WORK_AREA, MonitorRegionType::FULL_AREA})
        EXPECT_EQ(Wx::getMonitorRegionByPoint({10, 10}, type), Bucket());
    EXPECT_EQ(Wx::getDesktopRegion(), Bucket());
}

TEST(MonitorsTest, noWindow_hasNoRegionAndIsNotPositioned)
{
    EXPECT_EQ(Wx::getMonitorRegionByWindow(nullptr, MonitorRegionType::FULL_AREA), Bucket());
    Wx::smartPositionWindow(nullptr, {10, 10});
}

TEST(MonitorsTest, regionTypes_haveTheirValues)
{
    EXPECT_EQ(static_cast<int>(MonitorRegionType::WORK_AREA), 0);
    EXPECT_NE(static_cast<int>(MonitorRegionType::FULL_AREA), 0);
}

TEST_F(MonitorsWindowTest, regionByWindow_isThatOfItsCentre)
{
    const Pixel centre = Wx::getRectCenter(frame->GetScreenRect());
    for (const auto type : {MonitorRegionType::WORK_AREA, MonitorRegionType::FULL_AREA}) {
        EXPECT_EQ(Wx::getMonitorRegionByWindow(frame, type), Wx::getMonitorRegionByPoint(centre, type));
        EXPECT_FALSE(Wx::getMonitorRegionByWindow(frame, type).isEmpty());
    }
}

TEST_F(MonitorsWindowTest, smartPosition_insideTheWorkArea_isTaken)
{
    const Pixel wanted = workArea().min + Pixel{120, 90};
    Wx::smartPositionWindow(frame, wanted);
    EXPECT_TRUE(comesTo(wanted));
}

TEST_F(MonitorsWindowTest, smartPosition_beyondTheLastCorner_endsAtIt)
{
    const Pixel beyond{100000, 100000};
    Wx::smartPositionWindow(frame, beyond);
    EXPECT_TRUE(comesTo(workAreaAt(beyond).max - Pixel{300, 200}));
}

TEST_F(MonitorsWindowTest, smartPosition_beforeTheFirstCorner_startsAtIt)
{
    const Pixel before{-100000, -100000};
    Wx::smartPositionWindow(frame, before);
    EXPECT_TRUE(comesTo(workAreaAt(before).min));
}

TEST_F(MonitorsWindowTest, smartPosition_ofAWindowTooWide_isTheLeftEdge)
{
    frame->SetSize(3000, 200);
    ASSERT_TRUE(Tests::pumpUntil([this] { return region().width() == 3000; }));
    Wx::smartPositionWindow(frame, workArea().min + Pixel{200, 100});
    EXPECT_TRUE(comesTo(workArea().min + Pixel{0, 100}));
}

TEST_F(MonitorsWindowTest, smartPosition_ofAWindowTooHigh_isTheTopEdge)
{
    frame->SetSize(300, 3000);
    ASSERT_TRUE(Tests::pumpUntil([this] { return region().height() == 3000; }));
    Wx::smartPositionWindow(frame, workArea().min + Pixel{200, 100});
    EXPECT_TRUE(comesTo(workArea().min + Pixel{200, 0}));
}

TEST_F(MonitorsWindowTest, windowBeingDestroyed_mayBeAskedAndPositioned)
{
    Bucket region;
    frame->Bind(wxEVT_DESTROY, [&](wxWindowDestroyEvent& event) {
        event.Skip();
        if (event.GetEventObject() != frame)
            return;
        region = Wx::getMonitorRegionByWindow(frame, MonitorRegionType::FULL_AREA);
        Wx::smartPositionWindow(frame, {30, 40});
    });
    frame->Destroy();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !region.isEmpty(); }));
}
