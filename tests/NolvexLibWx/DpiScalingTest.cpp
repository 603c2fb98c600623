// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"

#include <wx/image.h>
#include <wx/utils.h>
#include <wx/window.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using namespace Nolvex;
using Nolvex::Wx::scaleByDpi;

// The environment of a run sets the scale, which is the DPI of the system divided by 96. The tests hold at
// every scale.

namespace {

/// Returns the scale to a thousandth.
double scale()
{
    return wxWindowBase::FromDIP(wxSize(1000, 0), nullptr).GetWidth() / 1000.0;
}

int scaled(int value)
{
    return static_cast<int>(std::lround(value * scale()));
}

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
    wxString expected = "100"; // in percent
    wxGetEnv("NOLVEX_TEST_SCALE", &expected);
    EXPECT_EQ(std::to_string(std::lround(scale() * 100)), expected.utf8_string());
}

TEST(DpiScalingTest, integers_areScaledAndRounded)
{
    for (const int value : {0, 1, 2, 3, 10, 24, 100, 250, 1000})
        EXPECT_EQ(scaleByDpi(value), scaled(value)) << value;
}

TEST(DpiScalingTest, pixels_areScaledInBothCoordinates)
{
    EXPECT_EQ(scaleByDpi(Pixel{10, 100}), (Pixel{scaled(10), scaled(100)}));
}

TEST(DpiScalingTest, sizes_keepTheDefaultCoordinate)
{
    EXPECT_EQ(scaleByDpi(wxSize(-1, 20)), wxSize(-1, scaled(20)));
    EXPECT_EQ(scaleByDpi(wxSize(20, -1)), wxSize(scaled(20), -1));
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
    if (scale() != 1.0)
        return; // the runs at other DPI are about the other tests
    for (const int value : {-5, -1, 0, 1, 7, 12345})
        EXPECT_EQ(scaleByDpi(value), value);
}
