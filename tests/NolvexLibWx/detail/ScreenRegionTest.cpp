// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/ScreenRegion.h"

#include "../CapturedRegions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "support/PictureWindow.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Platform::TakeScreenRow;
using Tests::expectPixels;
using Tests::fromBytes;
using Tests::isOnOneOf;
using Tests::TRANSPARENT_BLACK;
using Wx::Detail::composeScreenRegion;

namespace {

// Every display of the composed screens shows the place of each pixel as its colour. The fourth byte is
// noise.
void readPlaces(const Bucket& area, const TakeScreenRow& take)
{
    for (std::int32_t y = area.min.y; y < area.max.y; ++y) {
        Array<std::uint8_t> row;
        for (std::int32_t x = area.min.x; x < area.max.x; ++x)
            row.insert(row.end(), {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 7, 99});
        take({area.min.x, y}, row.data(), area.width());
    }
}

Rgb placeColour(std::int32_t x, std::int32_t y)
{
    return fromBytes(7, y & 255, x & 255);
}

void expectComposed(const Bucket& region, const Array<Bucket>& displays)
{
    const BitmapImpl<Rgb> image = composeScreenRegion(region, displays, readPlaces);
    expectPixels(image, region, [&](std::int32_t x, std::int32_t y) {
        return isOnOneOf(displays, {x, y}) ? placeColour(x, y) : TRANSPARENT_BLACK;
    });
}

} // namespace

TEST(ScreenRegionTest, putsEachDisplayInItsPlace_andLeavesGapsTransparent)
{
    const Array<Bucket> displays{{{-4, -3}, {0, 0}}, {{2, 0}, {5, 2}}};
    expectComposed({{-6, -5}, {7, 4}}, displays);
    expectComposed({{-4, -3}, {0, 0}}, displays);
    expectComposed({{-2, -1}, {3, 1}}, displays);
    expectComposed({{0, 0}, {2, 2}}, displays);
    expectComposed({{100, 100}, {103, 102}}, displays);
}

TEST(ScreenRegionTest, makesEveryByteAFloatAndIgnoresTheFourth)
{
    const Array<Bucket> displays{{{0, 0}, {256, 1}}};
    expectComposed({{0, 0}, {256, 1}}, displays);
}

TEST(ScreenRegionTest, asksForTheMeetingsInTheOrderOfTheDisplays)
{
    const Array<Bucket> displays{{{10, 0}, {20, 10}}, {{0, 0}, {10, 10}},  {{50, 50}, {60, 60}},
                                 {{0, 50}, {20, 60}}, {{50, 0}, {60, 20}}, {{0, 10}, {20, 20}}};
    Array<Bucket> asked;
    composeScreenRegion({{5, 5}, {15, 11}}, displays,
                        [&](const Bucket& area, const TakeScreenRow&) { asked.push_back(area); });
    EXPECT_EQ(asked, (Array<Bucket>{{{10, 5}, {15, 10}}, {{5, 5}, {10, 10}}, {{5, 10}, {15, 11}}}));
}

TEST(ScreenRegionTest, leavesWhatCannotBeReadTransparent)
{
    const Array<Bucket> displays{{{0, 0}, {4, 4}}};
    const Bucket region{{0, 0}, {4, 4}};
    const auto readTheSecondRow = [](const Bucket& area, const TakeScreenRow& take) {
        readPlaces({{area.min.x + 1, 1}, {area.max.x, 2}}, take);
    };
    expectPixels(composeScreenRegion(region, displays, readTheSecondRow), region,
                 [](std::int32_t x, std::int32_t y) {
                     return y == 1 && x >= 1 ? placeColour(x, y) : TRANSPARENT_BLACK;
                 });
}

TEST(ScreenRegionTest, withoutDisplays_isTransparentBlack)
{
    expectComposed({{-1, -2}, {6, 5}}, {});
}

TEST(ScreenRegionTest, regionsWithoutPixels_askNoDisplay)
{
    const Array<Bucket> displays{{{0, 0}, {100, 100}}};
    const auto fail = [](const Bucket&, const TakeScreenRow&) { FAIL() << "a display was asked"; };
    for (const Bucket region : {Bucket{}, Bucket{{5, 5}, {5, 9}}, Bucket{{9, 9}, {5, 5}}})
        EXPECT_TRUE(composeScreenRegion(region, displays, fail).isEmpty());
}

TEST(ScreenRegionTest, regionsLargerThanTheLimit_askNoDisplay)
{
    constexpr std::int32_t LOWEST = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t HIGHEST = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t SIDE = 1 << 14;
    static_assert(Wx::MAX_SCREEN_REGION_PIXELS < std::int64_t(SIDE) * SIDE);
    const Array<Bucket> displays{{{0, 0}, {100, 100}}};
    const auto fail = [](const Bucket&, const TakeScreenRow&) { FAIL() << "a display was asked"; };
    for (const Bucket region : {Bucket{{0, 0}, {SIDE, SIDE}}, Bucket{{LOWEST, LOWEST}, {HIGHEST, HIGHEST}},
                                Bucket{{LOWEST, 0}, {HIGHEST, 1}}})
        EXPECT_TRUE(composeScreenRegion(region, displays, fail).isEmpty());
}

TEST(ScreenRegionTest, displaysThatOverlap_areBothAskedAndTheLastIsSeen)
{
    const Array<Bucket> displays{{{0, 0}, {4, 2}}, {{2, 0}, {6, 2}}};
    std::uint8_t blue = 0;
    const auto readInOneColour = [&blue](const Bucket& area, const TakeScreenRow& take) {
        blue = static_cast<std::uint8_t>(blue + 100);
        for (std::int32_t y = area.min.y; y < area.max.y; ++y) {
            Array<std::uint8_t> row;
            for (std::int32_t x = area.min.x; x < area.max.x; ++x)
                row.insert(row.end(), {blue, 0, 0, 0});
            take({area.min.x, y}, row.data(), area.width());
        }
    };
    const Bucket region{{0, 0}, {6, 2}};
    expectPixels(composeScreenRegion(region, displays, readInOneColour), region,
                 [](std::int32_t x, std::int32_t) { return fromBytes(0, 0, x < 2 ? 100 : 200); });
}
