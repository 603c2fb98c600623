// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"

#include "support/RunScale.h"
#include "support/ScreenResolution.h"

#include <wx/image.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using namespace Nolvex::Tests;
using Nolvex::Wx::scaleByDpi;

namespace {

wxBitmap checkeredBitmap()
{
    wxImage image(3, 2);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x)
            image.SetRGB(x, y, static_cast<unsigned char>(40 * x), static_cast<unsigned char>(90 * y), 200);
    }
    return wxBitmap(image);
}

} // namespace

TEST(DpiScalingTest, system_hasTheScaleThatTheRunWasStartedFor)
{
    EXPECT_EQ(scaleByDpi(10000), scaledByRun(10000));
}

TEST(DpiScalingTest, integers_areScaledAndRounded)
{
    for (const int value : {0, 1, 2, 3, 10, 24, 100, 250, 1000})
        EXPECT_EQ(scaleByDpi(value), scaledByRun(value)) << value;
}

TEST(DpiScalingTest, pixels_areScaledInBothCoordinates)
{
    EXPECT_EQ(scaleByDpi(Pixel{10, 100}), (Pixel{scaledByRun(10), scaledByRun(100)}));
}

TEST(DpiScalingTest, sizes_keepTheDefaultCoordinate)
{
    EXPECT_EQ(scaleByDpi(wxSize(-1, 20)), wxSize(-1, scaledByRun(20)));
    EXPECT_EQ(scaleByDpi(wxSize(20, -1)), wxSize(scaledByRun(20), -1));
    EXPECT_EQ(scaleByDpi(wxDefaultSize), wxDefaultSize);
}

TEST(DpiScalingTest, bitmaps_areEnlargedByTheScaleOfOneUnit)
{
    const wxBitmap bitmap = checkeredBitmap();
    const int factor = scaleByDpi(1);
    const wxBitmap result = scaleByDpi(bitmap);
    ASSERT_EQ(result.GetSize(), wxSize(3 * factor, 2 * factor));
    // wxWidgets takes the nearest pixels: at three times the size some of them are a pixel beside the exact
    // place.
    const wxImage expected = bitmap.ConvertToImage().Scale(3 * factor, 2 * factor, wxIMAGE_QUALITY_NORMAL);
    const wxImage after = result.ConvertToImage();
    for (int y = 0; y < 2 * factor; ++y) {
        for (int x = 0; x < 3 * factor; ++x) {
            EXPECT_EQ(after.GetRed(x, y), expected.GetRed(x, y)) << x << ", " << y;
            EXPECT_EQ(after.GetGreen(x, y), expected.GetGreen(x, y)) << x << ", " << y;
        }
    }
}

TEST(DpiScalingTest, bitmapThatIsNotEnlarged_sharesItsData)
{
    const wxBitmap bitmap = checkeredBitmap();
    EXPECT_EQ(scaleByDpi(bitmap).IsSameAs(bitmap), scaleByDpi(1) <= 1);
}

TEST(DpiScalingTest, invalidBitmap_comesBackInvalid)
{
    EXPECT_FALSE(scaleByDpi(wxBitmap()).IsOk());
}

TEST(DpiScalingTest, at96Dpi_nothingChanges)
{
    if (runScale() != 1.0)
        return; // the runs at other DPI are about the other tests
    for (const int value : {-5, -1, 0, 1, 7, 12345})
        EXPECT_EQ(scaleByDpi(value), value);
}

TEST(DpiScalingTest, resolutionOfFonts_isTheScaleOnGtk)
{
    const ScreenResolution resolution(144.0);
    if (!resolution.isSet())
        GTEST_SKIP() << "the system's resolution is fixed while a program runs; the runs at other DPI cover "
                        "this";
    EXPECT_EQ(scaleByDpi(10), 15);
    EXPECT_EQ(scaleByDpi(1), 2);
    EXPECT_EQ(scaleByDpi(-1), -1);
    EXPECT_EQ(scaleByDpi(wxSize(-1, 20)), wxSize(-1, 30));
}

TEST(DpiScalingTest, anyResolution_leavesAPixelOfADesignUnitAndKeepsLengthsInRange)
{
    for (const double strange : {0.001, 10.0, 1e9}) {
        const ScreenResolution resolution(strange);
        if (!resolution.isSet())
            GTEST_SKIP() << "the system's resolution is fixed while a program runs";
        EXPECT_GE(scaleByDpi(1), 1) << strange;
        EXPECT_LE(scaleByDpi(450), 45000) << strange;
    }
}
