// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/DeviceRegion.h"

#include "../CapturedRegions.h"
#include "NolvexLib/Array.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "support/PictureWindow.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Platform::TakeScreenRow;
using Tests::fromBytes;
using Tests::TRANSPARENT_BLACK;
using Wx::ScreenCaptureFailure;
using Wx::ScreenCaptureResult;
using Wx::Detail::composeDeviceRegion;
using Wx::Detail::DeviceScale;

namespace {

constexpr std::int32_t LOWEST = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t HIGHEST = std::numeric_limits<std::int32_t>::max();

// Each pixel of the device shows its place as its colour.
void readPlaces(const Bucket& area, const TakeScreenRow& take)
{
    for (std::int32_t y = area.min.y; y < area.max.y; ++y) {
        Array<std::uint8_t> row;
        for (std::int32_t x = area.min.x; x < area.max.x; ++x)
            for (const int byte : {x, y, 7, 99})
                row.push_back(static_cast<std::uint8_t>(byte));
        take({area.min.x, y}, row.data(), area.width());
    }
}

void readNothing(const Bucket& /*area*/, const TakeScreenRow& /*take*/) {}

Rgb placeColour(std::int32_t x, std::int32_t y)
{
    return fromBytes(7, y & 255, x & 255);
}

BitmapImpl<Rgb> composed(const Bucket& region, const Array<Bucket>& displays, const DeviceScale& scale)
{
    const ScreenCaptureResult result = composeDeviceRegion(region, displays, scale, readPlaces);
    EXPECT_TRUE(result) << static_cast<int>(result.error());
    return result ? *result : BitmapImpl<Rgb>();
}

void expectFailure(const ScreenCaptureResult& result, ScreenCaptureFailure failure)
{
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), failure);
}

} // namespace

TEST(DeviceRegionTest, scaleOfOne_keepsTheRegion)
{
    const BitmapImpl<Rgb> image = composed({{2, 3}, {6, 5}}, {{{0, 0}, {100, 100}}}, DeviceScale(1));
    Tests::expectPixels(image, {{2, 3}, {6, 5}}, placeColour);
}

TEST(DeviceRegionTest, scaleOfTwo_givesEveryPixelOfTheDevice)
{
    const BitmapImpl<Rgb> image = composed({{2, 3}, {6, 5}}, {{{0, 0}, {100, 100}}}, DeviceScale(2));
    Tests::expectPixels(image, {{4, 6}, {12, 10}}, placeColour);
}

TEST(DeviceRegionTest, placesOutsideOfTheDisplays_areTransparentAtTheirScaledPlaces)
{
    const BitmapImpl<Rgb> image = composed({{-3, -2}, {3, 2}}, {{{0, 0}, {2, 1}}}, DeviceScale(3));
    const Bucket shown{{0, 0}, {6, 3}};
    Tests::expectPixels(image, {{-9, -6}, {9, 6}}, [&](std::int32_t x, std::int32_t y) {
        return shown.contains({x, y}) ? placeColour(x, y) : TRANSPARENT_BLACK;
    });
}

TEST(DeviceRegionTest, regionsFarAway_areTransparent)
{
    for (const Pixel corner : {Pixel{HIGHEST - 5, HIGHEST - 4}, Pixel{LOWEST, LOWEST}, Pixel{LOWEST, 0}}) {
        const BitmapImpl<Rgb> image =
            composed({corner, corner + Pixel{5, 4}}, {{{0, 0}, {100, 100}}}, DeviceScale(4));
        ASSERT_EQ(image.size(), (Pixel{20, 16}));
        EXPECT_EQ(image.at(19, 15), TRANSPARENT_BLACK);
    }
}

TEST(DeviceRegionTest, regionsWithoutPixels_giveAnEmptyImage)
{
    for (const Bucket region : {Bucket{}, Bucket{{5, 5}, {5, 9}}, Bucket{{9, 9}, {5, 5}},
                                Bucket{{HIGHEST, HIGHEST}, {LOWEST, LOWEST}}}) {
        const ScreenCaptureResult result =
            composeDeviceRegion(region, Array<Bucket>{{{0, 0}, {100, 100}}}, DeviceScale(2), readPlaces);
        ASSERT_TRUE(result);
        EXPECT_TRUE(result->isEmpty());
    }
}

TEST(DeviceRegionTest, pixelsOfTheDevice_countForTheLimit)
{
    constexpr std::int32_t SIDE = 1 << 13;
    static_assert(std::int64_t(SIDE) * SIDE <= Wx::MAX_SCREEN_REGION_PIXELS);
    const Array<Bucket> displays{{{0, 0}, {100, 100}}};
    for (const Bucket region : {Bucket{{0, 0}, {SIDE, SIDE}}, Bucket{{LOWEST, LOWEST}, {HIGHEST, HIGHEST}}})
        expectFailure(composeDeviceRegion(region, displays, DeviceScale(2), readNothing),
                      ScreenCaptureFailure::TOO_LARGE);
}

TEST(DeviceRegionTest, displayThatCannotBeRead_isUnavailable)
{
    const Array<Bucket> displays{{{0, 0}, {100, 100}}};
    expectFailure(composeDeviceRegion({{-5, -5}, {5, 5}}, displays, DeviceScale(1), readNothing),
                  ScreenCaptureFailure::UNAVAILABLE);
}

TEST(DeviceRegionTest, regionWithoutADisplay_isTransparentEvenIfNothingCanBeRead)
{
    const Array<Bucket> displays{{{0, 0}, {100, 100}}};
    const ScreenCaptureResult result =
        composeDeviceRegion({{-5, -5}, {0, 0}}, displays, DeviceScale(1), readNothing);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->at(0, 0), TRANSPARENT_BLACK);
}

TEST(DeviceRegionTest, pictureOfTheDesktop_beginsAtTheCornerOfAllDisplays)
{
    const Array<Bucket> displays{{{-100, 10}, {0, 60}}, {{0, 0}, {50, 50}}};
    const Optional<DeviceScale> scale = DeviceScale::ofPicture({300, 120}, displays);
    ASSERT_TRUE(scale);
    // The left display begins 10 pixels below the top, which are 20 pixels of the picture.
    const BitmapImpl<Rgb> image = composed({{-100, 8}, {-98, 12}}, displays, *scale);
    Tests::expectPixels(image, {{0, 16}, {4, 24}}, [](std::int32_t x, std::int32_t y) {
        return y >= 20 ? placeColour(x, y) : TRANSPARENT_BLACK;
    });
}

TEST(DeviceRegionTest, fractionalScale_hasNeighboursThatMeet)
{
    // A desktop of 1920 x 1080 pixels at a scale of 1.5.
    const Array<Bucket> displays{{{0, 0}, {1280, 720}}};
    const Optional<DeviceScale> scale = DeviceScale::ofPicture({1920, 1080}, displays);
    ASSERT_TRUE(scale);
    EXPECT_EQ(scale->x(0), 0);
    EXPECT_EQ(scale->x(1280), 1920);
    EXPECT_EQ(scale->y(720), 1080);
    std::int64_t total = 0;
    for (std::int32_t x = 0; x < 1280; ++x) {
        const BitmapImpl<Rgb> column = composed({{x, 0}, {x + 1, 1}}, displays, *scale);
        EXPECT_EQ(column.at(0, 0), placeColour(static_cast<std::int32_t>(total), 0)) << x;
        total += column.width();
    }
    EXPECT_EQ(total, 1920);
}

TEST(DeviceRegionTest, regionThatTheDeviceShowsInNoPixel_isEmpty)
{
    const Array<Bucket> displays{{{0, 0}, {100, 100}}};
    const Optional<DeviceScale> scale = DeviceScale::ofPicture({10, 10}, displays);
    ASSERT_TRUE(scale);
    EXPECT_TRUE(composed({{1, 1}, {2, 2}}, displays, *scale).isEmpty());
}

TEST(DeviceRegionTest, picturesOfSomethingElse_areRefused)
{
    const Array<Bucket> displays{{{0, 0}, {1280, 800}}, {{1280, 100}, {2080, 700}}};
    for (const Pixel size : {Pixel{1280, 800}, Pixel{800, 600}, Pixel{2080, 700}, Pixel{800, 2080},
                             Pixel{0, 0}, Pixel{2080, 0}, Pixel{2070, 800}})
        EXPECT_FALSE(DeviceScale::ofPicture(size, displays)) << size.x << " x " << size.y;
    EXPECT_FALSE(DeviceScale::ofPicture({100, 100}, Array<Bucket>()));
}

TEST(DeviceRegionTest, roundedSides_areAccepted)
{
    const Array<Bucket> displays{{{0, 0}, {1366, 768}}};
    for (const Pixel size :
         {Pixel{1366, 768}, Pixel{1707, 960}, Pixel{1708, 960}, Pixel{2049, 1152}, Pixel{2732, 1536}})
        EXPECT_TRUE(DeviceScale::ofPicture(size, displays)) << size.x << " x " << size.y;
}
