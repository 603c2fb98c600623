// SPDX-License-Identifier: MIT
// Tests that need several monitors. tools/testing/monitors.sh runs them on a display that has several.
#include "NolvexLib/Array.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "support/Events.h"
#include "support/PictureWindow.h"

#include <wx/display.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Nolvex;
using Tests::PictureWindow;
using Wx::MonitorRegionType;

namespace {

constexpr Rgb TRANSPARENT_BLACK{};
constexpr Pixel WINDOW_SIZE{300, 200};

Array<Bucket> monitors()
{
    Array<Bucket> regions;
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
        regions.push_back(Wx::toBucket(wxDisplay(index).GetGeometry()));
    return regions;
}

Bucket workAreaOf(std::size_t index)
{
    return Wx::toBucket(wxDisplay(static_cast<unsigned>(index)).GetClientArea());
}

Bucket wholeOf(const Array<Bucket>& regions)
{
    Bucket whole = regions.at(0);
    for (const Bucket& region : regions) {
        whole.min = {std::min(whole.min.x, region.min.x), std::min(whole.min.y, region.min.y)};
        whole.max = {std::max(whole.max.x, region.max.x), std::max(whole.max.y, region.max.y)};
    }
    return whole;
}

bool isOnOneOf(const Array<Bucket>& regions, Pixel point)
{
    return std::ranges::any_of(regions, [&](const Bucket& region) { return region.contains(point); });
}

struct SeveralMonitorsTest : testing::Test
{
    void SetUp() override
    {
        if (wxDisplay::GetCount() < 2)
            GTEST_SKIP() << "there is only one monitor here";
    }

    // The window manager may move the window until the window is seen on the screen.
    static std::unique_ptr<PictureWindow> shownWindow()
    {
        auto window = std::make_unique<PictureWindow>(wxSize(WINDOW_SIZE.x, WINDOW_SIZE.y));
        window->show(Tests::patternPicture({WINDOW_SIZE.x, WINDOW_SIZE.y}, 5));
        EXPECT_TRUE(window->isSeen());
        Tests::pumpEvents(50);
        return window;
    }

    static Bucket regionOf(const PictureWindow& window)
    {
        return Wx::getScreenRegion(Wx::getWindowNativeHandle(window.frame()));
    }

    static bool comesTo(const PictureWindow& window, Pixel corner)
    {
        return Tests::pumpUntil([&] { return regionOf(window).min == corner; });
    }

    static void expectStayingOnMonitor(const PictureWindow& window, std::size_t index)
    {
        const Bucket area = workAreaOf(index);
        Wx::smartPositionWindow(window.frame(), area.min + Pixel{10, 20});
        EXPECT_TRUE(comesTo(window, area.min + Pixel{10, 20})) << index;
        Wx::smartPositionWindow(window.frame(), area.max - Pixel{1, 1});
        EXPECT_TRUE(comesTo(window, area.max - WINDOW_SIZE)) << index;
        Wx::smartPositionWindow(window.frame(), area.min);
        EXPECT_TRUE(comesTo(window, area.min)) << index;
    }

    // Returns the indices of two monitors side by side, the left one first, or equal indices if there are
    // none.
    static std::pair<std::size_t, std::size_t> neighbours()
    {
        const Array<Bucket> all = monitors();
        for (std::size_t left = 0; left < all.size(); ++left) {
            for (std::size_t right = 0; right < all.size(); ++right) {
                const bool touching = all[left].max.x == all[right].min.x;
                if (touching && all[left].min.y < all[right].max.y && all[right].min.y < all[left].max.y)
                    return {left, right};
            }
        }
        return {0, 0};
    }
};

} // namespace

TEST_F(SeveralMonitorsTest, everyPointOfAMonitor_isOnThatMonitor)
{
    const Array<Bucket> all = monitors();
    for (const Bucket& region : all) {
        for (const Pixel point : {region.min, region.max - Pixel{1, 1}, Pixel{region.min.x, region.max.y - 1},
                                  Pixel{region.max.x - 1, region.min.y}})
            EXPECT_EQ(Wx::getMonitorRegionByPoint(point, MonitorRegionType::FULL_AREA), region);
    }
    EXPECT_NE(all[0], all[1]);
}

TEST_F(SeveralMonitorsTest, pointBesideAll_isOnTheNearest)
{
    const Array<Bucket> all = monitors();
    const auto rightmost =
        std::ranges::max_element(all, {}, [](const Bucket& region) { return region.max.x; });
    const Pixel beside{rightmost->max.x + 500, (rightmost->min.y + rightmost->max.y) / 2};
    EXPECT_EQ(Wx::getMonitorRegionByPoint(beside, MonitorRegionType::FULL_AREA), *rightmost);
}

TEST_F(SeveralMonitorsTest, workArea_liesInItsMonitor)
{
    const Array<Bucket> all = monitors();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Bucket area = Wx::getMonitorRegionByPoint(all[i].min, MonitorRegionType::WORK_AREA);
        EXPECT_EQ(area, workAreaOf(i));
        EXPECT_EQ(area.intersected(all[i]), area);
        EXPECT_FALSE(area.isEmpty());
    }
}

TEST_F(SeveralMonitorsTest, window_isPositionedOnTheMonitorOfThePoint)
{
    const std::unique_ptr<PictureWindow> shown = shownWindow();
    const PictureWindow& window = *shown;
    for (std::size_t i = 0; i < monitors().size(); ++i) {
        expectStayingOnMonitor(window, i);
        EXPECT_EQ(Wx::getMonitorRegionByWindow(window.frame(), MonitorRegionType::FULL_AREA), monitors()[i]);
    }
}

TEST_F(SeveralMonitorsTest, windowTooLargeForTheMonitor_startsAtItsCorner)
{
    const Bucket area = workAreaOf(1);
    const std::unique_ptr<PictureWindow> shown = shownWindow();
    const PictureWindow& window = *shown;
    const Pixel size{area.width() + 50, area.height() + 30};
    window.frame()->SetSize(size.x, size.y);
    ASSERT_TRUE(Tests::pumpUntil([&] { return regionOf(window).size() == size; }));
    Wx::smartPositionWindow(window.frame(), area.min + Pixel{70, 60});
    EXPECT_TRUE(comesTo(window, area.min));
}

TEST_F(SeveralMonitorsTest, captureAcrossTheBoundary_showsTheWindowThatLiesAcross)
{
    const auto [left, right] = neighbours();
    if (left == right)
        GTEST_SKIP() << "no two monitors are side by side";
    const Array<Bucket> all = monitors();
    const Pixel corner{all[right].min.x - WINDOW_SIZE.x / 2,
                       std::max(all[left].min.y, all[right].min.y) + 40};
    const std::unique_ptr<PictureWindow> shown = shownWindow();
    const PictureWindow& window = *shown;
    window.frame()->Move(Wx::toWxPoint(corner));
    ASSERT_TRUE(comesTo(window, corner));
    EXPECT_TRUE(window.isSeen());
}

TEST_F(SeveralMonitorsTest, captureOfAll_isTransparentWhereNoMonitorIs)
{
    const Array<Bucket> all = monitors();
    Bucket whole = wholeOf(all);
    whole.min -= Pixel{9, 7};
    whole.max += Pixel{5, 3};
    const BitmapImpl<Rgb> image = Wx::getScreenRegionColors(whole);
    ASSERT_EQ(image.size(), whole.size());
    for (std::int32_t y = whole.min.y; y < whole.max.y; ++y) {
        for (std::int32_t x = whole.min.x; x < whole.max.x; ++x) {
            const Rgb colour = image.at(x - whole.min.x, y - whole.min.y);
            if (isOnOneOf(all, {x, y}))
                ASSERT_EQ(colour.a, 1.0f) << "at " << x << ", " << y;
            else
                ASSERT_EQ(colour, TRANSPARENT_BLACK) << "at " << x << ", " << y;
        }
    }
}

TEST_F(SeveralMonitorsTest, captureOfASingleMonitor_isOpaque)
{
    for (const Bucket& region : monitors()) {
        const BitmapImpl<Rgb> image = Wx::getScreenRegionColors(region);
        ASSERT_EQ(image.size(), region.size());
        EXPECT_EQ(image.at(0, 0).a, 1.0f);
        EXPECT_EQ(image.at(region.width() - 1, region.height() - 1).a, 1.0f);
    }
}
