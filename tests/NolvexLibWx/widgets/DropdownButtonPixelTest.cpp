// SPDX-License-Identifier: MIT
// What a drop-down button's face is made of, at whatever scale the screen has.
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "support/Events.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <gtest/gtest.h>

#include <functional>

using namespace Nolvex;
using Wx::DropdownButton;

namespace {

const RgbBytes INNER{37, 37, 37};
const RgbBytes DISABLED_CORNER{135, 135, 135};

struct DropdownButtonPixelTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "pixels");
    DropdownButton* button =
        new DropdownButton(frame, Wx::GuiSkin::DEFAULT(), {1, 2}, {L"one", L"two"}, {}, {},
                           {Function<void()>(), Function<void()>()}, DropdownButton::Behavior::PUSH, true);
    wxSize size = Wx::scaleByDpi(wxSize(90, 30));

    ~DropdownButtonPixelTest() override { Tests::destroyNow(frame); }

    wxImage painted(const std::function<void(wxDC&)>& paint) const
    {
        wxBitmap bitmap(size, 24);
        {
            wxMemoryDC dc(bitmap);
            dc.SetBackground(*wxBLACK_BRUSH);
            dc.Clear();
            paint(dc);
        }
        return bitmap.ConvertToImage();
    }

    // A plain button's face, with the triangle put on it pixel by pixel.
    void expectCorner(const RgbBytes& inside, const RgbBytes& line) const
    {
        const wxImage actual = painted([this](wxDC& dc) { button->drawFace(dc); });
        const wxImage plain = painted([this](wxDC& dc) {
            Wx::Button::draw(dc, {{0, 0}, Wx::toPixel(size)}, button->face());
        });
        const wxPoint corner(size.x - 2, size.y - 2);
        const wxPoint left(size.x - Wx::scaleByDpi(10), corner.y);
        for (int y = 0; y < size.y; ++y) {
            for (int x = 0; x < size.x; ++x) {
                const int beyondTheSlope = x + y - left.x - left.y;
                RgbBytes expected = inside;
                if (x > corner.x || y > corner.y || beyondTheSlope < 0)
                    expected = Tests::pixelAt(plain, x, y);
                else if (x == corner.x || y == corner.y || beyondTheSlope == 0)
                    expected = line;
                else if (beyondTheSlope == 1)
                    continue; // how wide a slanting line is, is up to the system
                ASSERT_EQ(Tests::pixelAt(actual, x, y), expected) << "at " << x << ", " << y;
            }
        }
    }
};

} // namespace

TEST_F(DropdownButtonPixelTest, corner_isOfTheAccentColour)
{
    expectCorner(Wx::GuiSkin::DEFAULT().accent, INNER);
}

TEST_F(DropdownButtonPixelTest, corner_hovered_isLinedInTheHighlightColour)
{
    wxMouseEvent entered(wxEVT_ENTER_WINDOW);
    button->GetEventHandler()->ProcessEvent(entered);
    expectCorner(Wx::GuiSkin::DEFAULT().accent, Wx::GuiSkin::DEFAULT().highlight);
}

TEST_F(DropdownButtonPixelTest, corner_disabled_isGrey)
{
    button->Enable(false);
    expectCorner(DISABLED_CORNER, INNER);
}
