// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"
#include "support/TickSkin.h"

#include <wx/button.h>
#include <wx/dcmemory.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>
#include <type_traits>

using namespace Nolvex;
using Tests::pixelAt;
using Tick = Wx::CollapsiblePanel::Tick;

namespace {

static_assert(std::is_base_of_v<wxPanel, Tick>);

constexpr RgbBytes PAPER{255, 255, 255};

Wx::GuiSkin otherSkin()
{
    Wx::GuiSkin skin;
    skin.darkBackground = {1, 2, 3};
    skin.accent = {4, 5, 6};
    return skin;
}

template<class Paint>
wxImage painted(const wxSize& size, const Paint& paint)
{
    wxBitmap bitmap(size, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxWHITE_BRUSH);
        dc.Clear();
        paint(dc);
    }
    return bitmap.ConvertToImage();
}

wxImage drawn(const wxSize& size, bool expanded, const Wx::GuiSkin& skin = Tests::tickSkin())
{
    return painted(size, [&](wxDC& dc) { Tick::draw(dc, size, expanded, skin); });
}

/// Returns a line of letters for each row: o for the outline, x for the inside, - for a pixel that is not
/// painted, ? for a pixel of another colour.
std::string rows(const wxImage& image)
{
    std::string text;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            const RgbBytes pixel = pixelAt(image, x, y);
            text += pixel == Tests::TICK_OUTLINE ? 'o'
                    : pixel == Tests::TICK_FILL  ? 'x'
                    : pixel == PAPER             ? '-'
                                                 : '?';
        }
        text += '\n';
    }
    return text;
}

using Triangle = std::array<wxPoint, 3>;

/// A tick that is folded open points down, and a folded tick points to the right.
Triangle triangleOf(const wxSize& size, bool expanded)
{
    if (expanded)
        return {wxPoint(0, 0), wxPoint(size.x, 0), wxPoint(size.x / 2, size.y)};
    return {wxPoint(0, 0), wxPoint(size.x, size.y / 2), wxPoint(0, size.y)};
}

/// Returns how far the pixel lies from the edge, measured across the longer direction of the edge, or a large
/// number for a pixel that lies beside the ends of the edge.
double distanceFrom(const wxPoint& from, const wxPoint& to, const wxPoint& pixel)
{
    constexpr double FAR_AWAY = 1000.0;
    const wxPoint edge = to - from;
    const wxPoint offset = pixel - from;
    const bool isSteep = std::abs(edge.y) > std::abs(edge.x);
    const double along = isSteep ? double(offset.y) / edge.y : double(offset.x) / edge.x;
    if (along < 0.0 || along > 1.0)
        return FAR_AWAY;
    return std::abs(isSteep ? offset.x - along * edge.x : offset.y - along * edge.y);
}

double distanceFromOutline(const Triangle& triangle, const wxPoint& pixel)
{
    return std::min({distanceFrom(triangle[0], triangle[1], pixel),
                     distanceFrom(triangle[1], triangle[2], pixel),
                     distanceFrom(triangle[2], triangle[0], pixel)});
}

bool isInside(const Triangle& triangle, const wxPoint& pixel)
{
    for (std::size_t i = 0; i < triangle.size(); ++i) {
        const wxPoint edge = triangle[(i + 1) % triangle.size()] - triangle[i];
        const wxPoint offset = pixel - triangle[i];
        if (edge.x * offset.y - edge.y * offset.x <= 0)
            return false;
    }
    return true;
}

/// Returns the letters of rows() that are right for the pixel. Each system has its own choice of pixels
/// beside a slanted line, and GTK fills the point of the triangle with the colour of the outline in a bitmap.
std::string lettersAt(const Triangle& triangle, const wxPoint& pixel)
{
    const double distance = distanceFromOutline(triangle, pixel);
    if (distance < 0.5)
        return "o";
    if (distance <= 1.0)
        return "ox-";
    if (!isInside(triangle, pixel))
        return "-";
    return distance < 2.0 ? "ox" : "x";
}

/// Returns whether each letter of rows() is right for a tick of the size.
bool areRowsOfTick(const std::string& letters, const wxSize& size, bool expanded)
{
    const Triangle triangle = triangleOf(size, expanded);
    std::size_t index = 0;
    for (int y = 0; y < size.y; ++y, ++index) {
        for (int x = 0; x < size.x; ++x, ++index) {
            if (lettersAt(triangle, {x, y}).find(letters[index]) == std::string::npos)
                return false;
        }
    }
    return true;
}

struct TickTest : Tests::FrameFixture
{
    // A tick in focus has a mark of dots. The button takes the focus instead.
    wxButton* button = new wxButton(panel, wxID_ANY, "focus", wxPoint(100, 100));

    TickTest() { panel->SetBackgroundColour(*wxWHITE); }

    Tick* shown(const Wx::GuiSkin& skin = Tests::tickSkin(), const wxPoint& position = {20, 20})
    {
        auto* tick = new Tick(panel, skin);
        tick->Move(position);
        button->SetFocus();
        showFrame();
        return tick;
    }

    static void expectShown(Tick* tick, bool expanded)
    {
        std::string letters;
        EXPECT_TRUE(Tests::pumpUntil([&] {
            letters = rows(Tests::captureClientArea(tick));
            return areRowsOfTick(letters, tick->GetClientSize(), expanded);
        })) << letters;
    }

    static void expectRows(Tick* tick, const std::string& expected)
    {
        std::string letters;
        EXPECT_TRUE(Tests::pumpUntil([&] {
            letters = rows(Tests::captureClientArea(tick));
            return letters == expected;
        })) << letters;
    }
};

} // namespace

TEST(TickPixelTest, draw_paintsATriangleDownOrRight)
{
    for (const wxSize size :
         {Wx::scaleByDpi(wxSize(9, 9)), wxSize(9, 9), wxSize(10, 7), wxSize(18, 18), wxSize(24, 31)}) {
        for (const bool expanded : {false, true}) {
            const std::string letters = rows(drawn(size, expanded));
            EXPECT_TRUE(areRowsOfTick(letters, size, expanded)) << letters;
        }
    }
}

TEST(TickPixelTest, draw_usesTheColoursOfTheSkinThatWasPaintedFirst)
{
    const wxSize size(9, 9);
    for (const bool expanded : {true, false}) {
        const std::string first = rows(drawn(size, expanded, Tests::tickSkin()));
        EXPECT_EQ(rows(drawn(size, expanded, otherSkin())), first);
    }
}

TEST_F(TickTest, construction_isExpandedAndFixedInSize)
{
    const Tick* tick = shown();
    const wxSize size = Wx::scaleByDpi(wxSize(9, 9));
    EXPECT_TRUE(tick->isExpanded());
    EXPECT_EQ(tick->GetClientSize(), size);
    EXPECT_EQ(tick->GetMinClientSize(), size);
    EXPECT_EQ(tick->GetMaxClientSize(), size);
    EXPECT_TRUE(tick->HasFlag(wxTAB_TRAVERSAL));
    EXPECT_TRUE(tick->HasFlag(wxNO_BORDER));
}

TEST_F(TickTest, window_paintsItsStateAtOnce)
{
    Tick* tick = shown();
    expectShown(tick, true);
    tick->setExpanded(false);
    expectShown(tick, false);
    tick->setExpanded(true);
    expectShown(tick, true);
}

TEST_F(TickTest, windowOfNineByNine_paintsTheseVeryPixels)
{
    Tick* tick = shown();
    tick->SetMaxSize(wxDefaultSize);
    tick->SetMinSize(wxDefaultSize);
    tick->SetClientSize(wxSize(9, 9));
    expectRows(tick, "ooooooooo\n"
                     "oxxxxxxxo\n"
                     "-oxxxxxxo\n"
                     "-oxxxxxo-\n"
                     "--oxxxxo-\n"
                     "--oxxxo--\n"
                     "---oxxo--\n"
                     "---oxo---\n"
                     "----oo---\n");
    tick->setExpanded(false);
    expectRows(tick, "oo-------\n"
                     "oxoo-----\n"
                     "oxxxoo---\n"
                     "oxxxxxoo-\n"
                     "oxxxxxxxo\n"
                     "oxxxxxxoo\n"
                     "oxxxxoo--\n"
                     "oxxoo----\n"
                     "ooo------\n");
}

TEST_F(TickTest, windowOfAnotherSkin_hasTheColoursOfTheFirst)
{
    Tick* first = shown();
    expectShown(first, true);
    first->Destroy();
    expectShown(shown(otherSkin(), {80, 80}), true);
}
