// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/StaticBitmap.h"

#include "NolvexLib/Optional.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::pixelAt;
using Wx::StaticBitmap;

namespace {

constexpr RgbBytes PAPER{255, 255, 255};

/// No two pixels next to each other have the same colour.
RgbBytes patternAt(int x, int y)
{
    return {static_cast<std::uint8_t>(10 * x), static_cast<std::uint8_t>(10 * y), 77};
}

wxImage pattern(const wxSize& size)
{
    wxImage image(size);
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            const RgbBytes colour = patternAt(x, y);
            image.SetRGB(x, y, colour.r, colour.g, colour.b);
        }
    }
    return image;
}

wxBitmap patternBitmap(const wxSize& size)
{
    return {pattern(size), wxBITMAP_SCREEN_DEPTH, 1.0};
}

/// Returns the first pixel that shows neither the pattern, inside a rectangle of the size at the corner, nor
/// white, beside that rectangle. Returns nullopt if there is no such pixel.
Optional<wxPoint> wrongPixel(const wxImage& image, const wxSize& size)
{
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            const bool painted = x < size.x && y < size.y;
            if (pixelAt(image, x, y) != (painted ? patternAt(x, y) : PAPER))
                return wxPoint(x, y);
        }
    }
    return {};
}

/// Waits until the window shows the pattern in a rectangle of the size, and white beside it.
void expectPattern(wxWindow* window, const wxSize& size)
{
    Optional<wxPoint> wrong;
    EXPECT_TRUE(Tests::pumpUntil([&] {
        wrong = wrongPixel(Tests::captureClientArea(window), size);
        return !wrong;
    })) << "wrong at "
        << wrong->x << ", " << wrong->y;
}

struct StaticBitmapTest : Tests::FrameFixture
{
    StaticBitmap* show(const wxBitmap& bitmap)
    {
        auto* window = new StaticBitmap(panel, 4711, bitmap);
        window->SetBackgroundColour(*wxWHITE);
        window->Move(10, 10);
        showFrame();
        return window;
    }
};

} // namespace

TEST_F(StaticBitmapTest, construction_takesTheBitmapsSizeAsItsInitialSize)
{
    StaticBitmap* window = show(patternBitmap({17, 9}));
    EXPECT_EQ(window->GetSize(), wxSize(17, 9));
    EXPECT_EQ(window->GetMinSize(), wxSize(17, 9));
    EXPECT_EQ(window->GetId(), 4711);
}

TEST_F(StaticBitmapTest, window_paintsTheBitmapAtItsTopLeftCorner)
{
    StaticBitmap* window = show(patternBitmap({17, 9}));
    expectPattern(window, {17, 9});
    window->SetSize(20, 20);
    expectPattern(window, {17, 9});
}

TEST_F(StaticBitmapTest, setBitmap_toALargerOne_keepsTheSizeAndClips)
{
    StaticBitmap* window = show(patternBitmap({6, 5}));
    window->setBitmap(patternBitmap({20, 20}));
    EXPECT_EQ(window->GetSize(), wxSize(6, 5));
    expectPattern(window, {6, 5});
    window->SetSize(12, 12);
    expectPattern(window, {12, 12});
}

TEST_F(StaticBitmapTest, setBitmap_toASmallerOne_showsTheBackgroundBesideIt)
{
    StaticBitmap* window = show(patternBitmap({12, 12}));
    window->setBitmap(patternBitmap({5, 3}));
    EXPECT_EQ(window->GetSize(), wxSize(12, 12));
    expectPattern(window, {5, 3});
}

TEST_F(StaticBitmapTest, setBitmap_sharesTheBitmapInsteadOfCopyingItsPixels)
{
    StaticBitmap* window = show(patternBitmap({4, 4}));
    const wxBitmap other = patternBitmap({4, 4});
    window->setBitmap(other);
    EXPECT_TRUE(window->bitmap().IsSameAs(other));
    window->setBitmap(window->bitmap());
    EXPECT_TRUE(window->bitmap().IsSameAs(other));
}

TEST_F(StaticBitmapTest, maskOfTheBitmap_isNotUsed)
{
    wxBitmap bitmap = patternBitmap({6, 6});
    bitmap.SetMask(new wxMask(bitmap, wxColour(10, 10, 77)));
    StaticBitmap* window = show(bitmap);
    expectPattern(window, {6, 6});
}

TEST_F(StaticBitmapTest, withoutAnyBitmap_showsTheBackground)
{
    StaticBitmap* window = show(wxBitmap());
    window->SetSize(8, 8);
    expectPattern(window, {0, 0});
    window->setBitmap(patternBitmap({3, 3}));
    expectPattern(window, {3, 3});
    window->setBitmap(wxBitmap());
    expectPattern(window, {0, 0});
}

TEST_F(StaticBitmapTest, keyboard_doesNotReachIt)
{
    EXPECT_FALSE(show(patternBitmap({8, 8}))->AcceptsFocusFromKeyboard());
}
