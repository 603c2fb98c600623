// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScopedClippingRegion.h"

#include "support/Screen.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::ScopedClippingRegion;

static_assert(!std::is_copy_constructible_v<ScopedClippingRegion>);

namespace {

constexpr RgbBytes BLACK{0, 0, 0};
constexpr RgbBytes RED{255, 0, 0};

/// A black square of 20 pixels to draw on.
class ScopedClippingRegionTest : public testing::Test
{
protected:
    void SetUp() override { fill(*wxBLACK); }

    void fill(const wxColour& colour)
    {
        m_dc.SetPen(*wxTRANSPARENT_PEN);
        m_dc.SetBrush(wxBrush(colour));
        m_dc.DrawRectangle(0, 0, 20, 20);
    }

    RgbBytes pixel(int x, int y)
    {
        m_dc.SelectObject(wxNullBitmap);
        const RgbBytes colour = Tests::pixelAt(m_bitmap.ConvertToImage(), x, y);
        m_dc.SelectObject(m_bitmap);
        return colour;
    }

    wxBitmap m_bitmap = wxBitmap(20, 20, 24);
    wxMemoryDC m_dc = wxMemoryDC(m_bitmap);
};

} // namespace

TEST_F(ScopedClippingRegionTest, whileItLives_nothingIsDrawnOutside)
{
    {
        const ScopedClippingRegion clipping(m_dc, wxRect(5, 6, 7, 8));
        fill(*wxRED);
    }
    EXPECT_EQ(pixel(5, 6), RED);
    EXPECT_EQ(pixel(11, 13), RED);
    EXPECT_EQ(pixel(4, 6), BLACK);
    EXPECT_EQ(pixel(5, 5), BLACK);
    EXPECT_EQ(pixel(12, 13), BLACK);
    EXPECT_EQ(pixel(11, 14), BLACK);
}

TEST_F(ScopedClippingRegionTest, atItsEnd_everythingIsDrawnAgain)
{
    {
        const ScopedClippingRegion clipping(m_dc, wxRect(5, 6, 7, 8));
    }
    fill(*wxRED);
    EXPECT_EQ(pixel(0, 0), RED);
    EXPECT_EQ(pixel(19, 19), RED);
}

TEST_F(ScopedClippingRegionTest, nested_drawsInTheCommonPart)
{
    const ScopedClippingRegion outer(m_dc, wxRect(0, 0, 10, 10));
    const ScopedClippingRegion inner(m_dc, wxRect(5, 5, 10, 10));
    wxRect common;
    ASSERT_TRUE(m_dc.GetClippingBox(common));
    EXPECT_EQ(common, wxRect(5, 5, 5, 5));
}

TEST_F(ScopedClippingRegionTest, nested_atItsEnd_endsAllClipping)
{
    const ScopedClippingRegion outer(m_dc, wxRect(0, 0, 10, 10));
    {
        const ScopedClippingRegion inner(m_dc, wxRect(5, 5, 10, 10));
    }
    fill(*wxRED);
    EXPECT_EQ(pixel(19, 19), RED);
}
