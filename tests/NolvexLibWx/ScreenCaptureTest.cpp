// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScreenCapture.h"

#include "CapturedRegions.h"
#include "NolvexLib/Array.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "support/Events.h"
#include "support/NoApplication.h"
#include "support/PictureWindow.h"

#include <wx/display.h>

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Tests::expectPixels;
using Tests::isOnOneOf;
using Tests::patternPicture;
using Tests::PictureWindow;
using Tests::TRANSPARENT_BLACK;
using Wx::getScreenRegionColors;

namespace {

constexpr std::int32_t MIN_COORDINATE = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t MAX_COORDINATE = std::numeric_limits<std::int32_t>::max();

Array<Bucket> displays()
{
    Array<Bucket> geometries;
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
        geometries.push_back(Wx::toBucket(wxDisplay(index).GetGeometry()));
    return geometries;
}

Bucket firstDisplay()
{
    return displays().at(0);
}

void expectAlphaOnDisplaysOnly(const Bucket& region)
{
    const Array<Bucket> all = displays();
    const BitmapImpl<Rgb> image = getScreenRegionColors(region);
    ASSERT_EQ(image.size(), region.size());
    for (std::int32_t y = region.min.y; y < region.max.y; ++y) {
        for (std::int32_t x = region.min.x; x < region.max.x; ++x) {
            const Rgb colour = image.at(x - region.min.x, y - region.min.y);
            if (isOnOneOf(all, {x, y}))
                ASSERT_EQ(colour.a, 1.0f) << "at " << x << ", " << y;
            else
                ASSERT_EQ(colour, TRANSPARENT_BLACK) << "at " << x << ", " << y;
        }
    }
}

// The X server sends small regions in one piece and large regions through shared memory.
constexpr int SMALL[] = {40, 30};
constexpr int LARGE[] = {300, 220};

void expectCaptured(const int (&size)[2])
{
    const wxSize pictureSize(size[0], size[1]);
    PictureWindow window(pictureSize);
    window.show(patternPicture(pictureSize, 0));
    EXPECT_TRUE(window.isSeen());
    const Bucket region = window.region();
    const BitmapImpl<Rgb> expected = window.expectedColours();
    expectPixels(getScreenRegionColors(region), region, [&](std::int32_t x, std::int32_t y) {
        return expected.at(x - region.min.x, y - region.min.y);
    });
}

} // namespace

TEST(ScreenCaptureTest, withoutAnApplication_isTransparentBlack)
{
    const Tests::NoApplication none;
    const BitmapImpl<Rgb> image = getScreenRegionColors({{0, 0}, {3, 2}});
    expectPixels(image, {{0, 0}, {3, 2}}, [](std::int32_t, std::int32_t) { return TRANSPARENT_BLACK; });
}

TEST(ScreenCaptureTest, regionsWithoutPixels_giveTheEmptyImage)
{
    for (const Bucket region :
         {Bucket{}, Bucket{{5, 5}, {5, 9}}, Bucket{{5, 5}, {9, 5}}, Bucket{{9, 9}, {5, 5}},
          Bucket{{9, 5}, {5, 9}}, Bucket{{MAX_COORDINATE, MAX_COORDINATE}, {MIN_COORDINATE, MIN_COORDINATE}},
          Bucket{{MAX_COORDINATE, 0}, {MIN_COORDINATE, 5}}})
        EXPECT_EQ(getScreenRegionColors(region), BitmapImpl<Rgb>());
}

TEST(ScreenCaptureTest, regionsTooLarge_giveTheEmptyImage)
{
    constexpr std::int32_t LIMIT = static_cast<std::int32_t>(Wx::MAX_SCREEN_REGION_PIXELS);
    for (const Bucket region :
         {Bucket{{MIN_COORDINATE, MIN_COORDINATE}, {MAX_COORDINATE, MAX_COORDINATE}},
          Bucket{{0, 0}, {MAX_COORDINATE, MAX_COORDINATE}}, Bucket{{0, 0}, {65536, 65536}},
          Bucket{{MIN_COORDINATE, 0}, {MAX_COORDINATE, 1}}, Bucket{{0, 0}, {1, MAX_COORDINATE}},
          Bucket{{-1, 0}, {LIMIT, 1}}, Bucket{{0, 0}, {3, LIMIT / 3 + 1}}})
        EXPECT_EQ(getScreenRegionColors(region), BitmapImpl<Rgb>());
}

TEST(ScreenCaptureTest, thinRegionAcrossEverything_isWhole)
{
    expectAlphaOnDisplaysOnly({{-100000, 3}, {100000, 4}});
}

TEST(ScreenCaptureTest, regionsPartlyOutside_areTransparentThere)
{
    const Bucket display = firstDisplay();
    expectAlphaOnDisplaysOnly({display.min - Pixel{10, 7}, display.min + Pixel{20, 13}});
    expectAlphaOnDisplaysOnly({display.max - Pixel{20, 13}, display.max + Pixel{10, 7}});
    expectAlphaOnDisplaysOnly({display.min - Pixel{3, 3}, display.max + Pixel{3, 3}});
}

TEST(ScreenCaptureTest, regionsWhollyOutside_areTransparentBlack)
{
    for (const Pixel corner :
         {Pixel{-100000, -100000}, Pixel{100000, 0}, Pixel{MAX_COORDINATE - 5, MAX_COORDINATE - 4},
          Pixel{MIN_COORDINATE, MIN_COORDINATE}}) {
        const Bucket region{corner, corner + Pixel{5, 4}};
        expectPixels(getScreenRegionColors(region), region,
                     [](std::int32_t, std::int32_t) { return TRANSPARENT_BLACK; });
    }
}

TEST(ScreenCaptureTest, smallWindow_isCapturedPixelByPixel)
{
    expectCaptured(SMALL);
}

TEST(ScreenCaptureTest, largeWindow_isCapturedPixelByPixel)
{
    expectCaptured(LARGE);
}

TEST(ScreenCaptureTest, partOfAWindow_isCapturedFromThere)
{
    const wxSize size(60, 50);
    PictureWindow window(size);
    window.show(patternPicture(size, 9));
    ASSERT_TRUE(window.isSeen());
    const Bucket region = window.region();
    const BitmapImpl<Rgb> expected = window.expectedColours();
    const Bucket part{region.min + Pixel{7, 5}, region.max - Pixel{30, 20}};
    expectPixels(getScreenRegionColors(part), part, [&](std::int32_t x, std::int32_t y) {
        return expected.at(x - region.min.x, y - region.min.y);
    });
}

TEST(ScreenCaptureTest, everyCapture_showsTheScreenAsItIsThen)
{
    const wxSize size(LARGE[0], LARGE[1]);
    PictureWindow window(size);
    for (int seed = 0; seed < 5; ++seed) {
        window.show(patternPicture(size, seed));
        EXPECT_TRUE(window.isSeen()) << seed;
    }
}

TEST(ScreenCaptureTest, tensOfThousandsOfCaptures_useNothingUp)
{
    // The number of captures exceeds the number of drawing objects that Windows allows.
    const Pixel corner = firstDisplay().min;
    const Bucket onePixel{corner, corner + Pixel{1, 1}};
    for (int i = 0; i < 35000; ++i)
        ASSERT_EQ(getScreenRegionColors(onePixel).at(0, 0).a, 1.0f) << i;
}
