// SPDX-License-Identifier: MIT
// Tests the pixels of a drop-down button's face at the scale of the screen.
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using enum OskaBorderState;
using Wx::DropdownButton;

namespace {

constexpr RgbBytes PAPER{0, 0, 0};
constexpr RgbBytes OUTER{54, 54, 54};
constexpr RgbBytes INNER{37, 37, 37};
constexpr RgbBytes BOTTOM_OUTER{70, 70, 70};
constexpr RgbBytes BOTTOM_INNER{85, 85, 85};
constexpr RgbBytes HIGHLIGHT{0, 114, 188};
constexpr RgbBytes ACCENT{11, 22, 33};
constexpr RgbBytes DISABLED_CORNER{135, 135, 135};

struct DropdownButtonPixelTest : testing::Test
{
    wxSize size = Wx::scaleByDpi(wxSize(90, 30));

    wxImage painted(Flags<OskaBorderState> state) const
    {
        wxBitmap bitmap(size, 24);
        {
            wxMemoryDC dc(bitmap);
            dc.SetBackground(*wxBLACK_BRUSH);
            dc.Clear();
            const Wx::Button::Face plain{
                .border = state, .bitmap = {}, .label = {}, .font = {}, .textColour = {}};
            DropdownButton::draw(dc, {{0, 0}, Wx::toPixel(size)}, {.button = plain, .accent = ACCENT});
        }
        return bitmap.ConvertToImage();
    }

    RgbBytes borderAt(int x, int y, const RgbBytes& inner) const
    {
        const int right = size.x - 1;
        const int bottom = size.y - 1;
        if (y == bottom)
            return x == 0 || x == right ? BOTTOM_OUTER : BOTTOM_INNER;
        if (x == 0 || y == 0 || x == right)
            return OUTER;
        return x == 1 || y == 1 || x == right - 1 || y == bottom - 1 ? inner : PAPER;
    }

    /// Expects the border with a line of that colour, and the triangle of the other colour in the corner.
    void expectPainted(Flags<OskaBorderState> state, const RgbBytes& line, const RgbBytes& inside) const
    {
        const wxImage actual = painted(state);
        const wxPoint corner(size.x - 2, size.y - 2);
        const wxPoint left(size.x - Wx::scaleByDpi(10), corner.y);
        for (int y = 0; y < size.y; ++y) {
            for (int x = 0; x < size.x; ++x) {
                const int beyondTheSlope = x + y - left.x - left.y;
                RgbBytes expected = inside;
                if (x > corner.x || y > corner.y || beyondTheSlope < 0)
                    expected = borderAt(x, y, line);
                else if (x == corner.x || y == corner.y || beyondTheSlope == 0)
                    expected = line;
                else if (beyondTheSlope == 1)
                    continue; // the width of slanting lines differs between the systems
                ASSERT_EQ(Tests::pixelAt(actual, x, y), expected) << "at " << x << ", " << y;
            }
        }
    }
};

} // namespace

TEST_F(DropdownButtonPixelTest, enabled_hasATriangleOfTheAccentColour)
{
    expectPainted(ENABLED, INNER, ACCENT);
}

TEST_F(DropdownButtonPixelTest, hovered_isLinedInTheHighlightColour)
{
    expectPainted(Flags(ENABLED) | HOVERED, HIGHLIGHT, ACCENT);
}

TEST_F(DropdownButtonPixelTest, disabled_hasAGreyTriangle)
{
    expectPainted({}, INNER, DISABLED_CORNER);
}

TEST_F(DropdownButtonPixelTest, disabledAndHovered_looksDisabled)
{
    expectPainted(HOVERED, INNER, DISABLED_CORNER);
}
