// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/OskaBorder.h"

#include "NolvexLibWx/widgets/GuiSkin.h"
#include "support/DefaultSkinGuard.h"
#include "support/Events.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/pen.h>
#include <wx/sizer.h>

#include <map>
#include <string>
#include <vector>

using namespace Nolvex;
using Tests::pixelAt;

namespace {

constexpr RgbBytes PAPER{255, 255, 255};
constexpr RgbBytes OUTER{54, 54, 54};
constexpr RgbBytes INNER{37, 37, 37};
constexpr RgbBytes BOTTOM_OUTER{70, 70, 70};
constexpr RgbBytes BOTTOM_INNER{85, 85, 85};
constexpr RgbBytes HIGHLIGHT{0, 114, 188};

constexpr OskaBorderState NO_FRAME = OskaBorderState::NO_FRAME;
constexpr OskaBorderState HOVERED = OskaBorderState::HOVERED;
constexpr OskaBorderState ENABLED = OskaBorderState::ENABLED;

wxImage drawn(const wxSize& paper, const Bucket& rect, Flags<OskaBorderState> flags)
{
    wxBitmap bitmap(paper, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxWHITE_BRUSH);
        dc.Clear();
        OskaBorder::draw(dc, rect, flags);
    }
    return bitmap.ConvertToImage();
}

bool onOutline(int x, int y, const wxRect& rect)
{
    return rect.Contains(x, y) &&
           (x == rect.x || y == rect.y || x == rect.GetRight() || y == rect.GetBottom());
}

// Returns a pixel of the border of a rectangle at the origin, by rules written down pixel by pixel.
RgbBytes expectedPixel(int x, int y, const wxSize& size, Flags<OskaBorderState> flags)
{
    const bool framed = !flags.has(NO_FRAME);
    if (framed && y == size.y - 1 && x >= 0 && x < size.x)
        return x == 0 || x == size.x - 1 ? BOTTOM_OUTER : BOTTOM_INNER;
    if (framed && onOutline(x, y, wxRect(size)))
        return OUTER;
    const wxRect inner = framed ? wxRect(1, 1, size.x - 2, size.y - 2) : wxRect(size);
    if (onOutline(x, y, inner))
        return flags.has(HOVERED) && flags.has(ENABLED) ? HIGHLIGHT : INNER;
    return PAPER;
}

bool isBorder(const wxImage& image, const wxSize& size, Flags<OskaBorderState> flags)
{
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            if (!(pixelAt(image, x, y) == expectedPixel(x, y, size, flags)))
                return false;
        }
    }
    return true;
}

void expectBorder(const wxImage& image, const wxSize& size, Flags<OskaBorderState> flags)
{
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x)
            ASSERT_EQ(pixelAt(image, x, y), expectedPixel(x, y, size, flags))
                << "at " << x << ", " << y << " of " << size.x << " x " << size.y << " with flags "
                << flags.bits();
    }
}

/// Expects each pixel to have the colour of its letter: "." paper, "o" outer, "i" inner, "a" the first pixel
/// of the bottom edge, "b" the pixels after it.
void expectPixels(const wxImage& image, const wxPoint& origin, const std::vector<std::string>& rows)
{
    const std::map<char, RgbBytes> colours{
        {'.', PAPER}, {'o', OUTER}, {'i', INNER}, {'a', BOTTOM_OUTER}, {'b', BOTTOM_INNER}};
    for (int y = 0; y < static_cast<int>(rows.size()); ++y) {
        const std::string& row = rows[static_cast<std::size_t>(y)];
        for (int x = 0; x < static_cast<int>(row.size()); ++x)
            EXPECT_EQ(pixelAt(image, origin.x + x, origin.y + y),
                      colours.at(row[static_cast<std::size_t>(x)]))
                << "at " << origin.x + x << ", " << origin.y + y;
    }
}

/// A border of 40 x 20 on white, shown where the mouse is not.
struct OskaBorderWindowTest : Tests::FrameFixture
{
    OskaBorderWindowTest() : FrameFixture("border", wxSize(300, 200)) {}

    OskaBorder* show(Flags<OskaBorderState> flags) const
    {
        auto* border = new OskaBorder(panel, flags);
        border->SetSize(10, 10, 40, 20);
        border->SetBackgroundColour(*wxWHITE);
        showFrame();
        return border;
    }

    static void sendMouse(wxWindow* window, wxEventType type)
    {
        wxMouseEvent event(type);
        event.SetEventObject(window);
        window->GetEventHandler()->ProcessEvent(event);
    }

    /// Expects the screen to show the border in this state, soon.
    static void expectShown(OskaBorder* border, Flags<OskaBorderState> flags)
    {
        const wxSize size(40, 20);
        Tests::pumpUntil([&] { return isBorder(Tests::captureClientArea(border), size, flags); });
        expectBorder(Tests::captureClientArea(border), size, flags);
    }
};

} // namespace

TEST(OskaBorderTest, flags_haveTheseValues)
{
    EXPECT_EQ(static_cast<std::uint32_t>(OskaBorderState::HOVERED), 2u);
    EXPECT_EQ(static_cast<std::uint32_t>(OskaBorderState::ENABLED), 4u);
    EXPECT_EQ(static_cast<std::uint32_t>(OskaBorderState::NO_FRAME), 8u);
}

TEST(OskaBorderTest, draw_inEveryCombinationOfFlags_paintsTheseVeryPixels)
{
    for (std::uint32_t bits = 0; bits < 16; bits += 2) {
        for (const wxSize size : {wxSize(40, 20), wxSize(9, 7), wxSize(5, 5)})
            expectBorder(
                drawn(wxSize(48, 24), {{0, 0}, {size.x, size.y}}, Flags<OskaBorderState>::fromBits(bits)),
                size, Flags<OskaBorderState>::fromBits(bits));
    }
}

TEST(OskaBorderTest, draw_ofTheSmallestSizes_paintsNothingElse)
{
    for (const Flags<OskaBorderState> flags : {Flags<OskaBorderState>(), Flags<OskaBorderState>(NO_FRAME)}) {
        for (int height = 2; height <= 4; ++height) {
            for (int width = 2; width <= 4; ++width)
                expectBorder(drawn(wxSize(8, 8), {{0, 0}, {width, height}}, flags), {width, height}, flags);
        }
    }
}

TEST(OskaBorderTest, draw_ofTwoByTwoPixels_isCoveredByTheFrame)
{
    const wxImage image = drawn(wxSize(4, 4), {{0, 0}, {2, 2}}, {});
    EXPECT_EQ(pixelAt(image, 0, 0), OUTER);
    EXPECT_EQ(pixelAt(image, 1, 0), OUTER);
    EXPECT_EQ(pixelAt(image, 0, 1), BOTTOM_OUTER);
    EXPECT_EQ(pixelAt(image, 1, 1), BOTTOM_OUTER);
    EXPECT_EQ(pixelAt(image, 2, 2), PAPER);
}

TEST(OskaBorderTest, draw_ofNothing_paintsOnlyNothing)
{
    const wxImage image = drawn(wxSize(4, 4), {{0, 0}, {0, 0}}, NO_FRAME);
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(pixelAt(image, i % 4, i / 4), PAPER);
}

TEST(OskaBorderTest, draw_ofASinglePixelsWidthOrHeight_paintsTheFrameAndTheBottomLines)
{
    // The second bottom line of a border one pixel wide leads to the left, from x 1 to x 0, and paints x 1.
    expectPixels(drawn(wxSize(4, 4), {{0, 0}, {1, 3}}, {}), {0, 0}, {"o...", "o...", "ab..", "...."});
    expectPixels(drawn(wxSize(4, 4), {{0, 0}, {1, 1}}, {}), {0, 0}, {"ab..", "....", "...."});
    expectPixels(drawn(wxSize(5, 4), {{0, 0}, {4, 1}}, {}), {0, 0}, {"abba.", ".....", "....."});
    expectPixels(drawn(wxSize(4, 4), {{0, 0}, {1, 3}}, NO_FRAME), {0, 0}, {"i...", "i...", "i...", "...."});
    expectPixels(drawn(wxSize(4, 4), {{0, 0}, {3, 1}}, NO_FRAME), {0, 0}, {"iii.", "...."});
    expectPixels(drawn(wxSize(4, 4), {{0, 0}, {1, 1}}, NO_FRAME), {0, 0}, {"i...", "...."});
}

TEST(OskaBorderTest, draw_toTheRightOfTheOrigin_leadsTheBottomLinesLeftwards)
{
    // The lines lead from x 30 to 10 and from x 31 to 9, without the pixels at their ends.
    const wxImage image = drawn(wxSize(50, 12), {{30, 0}, {40, 10}}, {});
    for (int x = 0; x < 50; ++x) {
        const RgbBytes expected = x < 10 ? PAPER : x <= 31 ? BOTTOM_INNER : x < 40 ? OUTER : PAPER;
        EXPECT_EQ(pixelAt(image, x, 9), expected) << "at " << x;
    }
}

TEST(OskaBorderTest, draw_awayFromTheOrigin_endsTheBottomLinesAtWidthAndHeight)
{
    // The lines rise from (4, 13) towards (20, 9) and from (5, 13) towards (19, 9).
    expectPixels(drawn(wxSize(40, 30), {{4, 4}, {24, 14}}, {}), {3, 8},
                 {".oi................io.", ".oi............ba..io.", ".oi........bbbb....io.",
                  ".oi....abbb........io.", ".oiabbbbiiiiiiiiiiiio.", ".abbooooooooooooooooo.",
                  "......................"});
}

TEST(OskaBorderTest, draw_farBelowTheOrigin_leadsTheBottomLinesUpwards)
{
    expectPixels(drawn(wxSize(40, 40), {{2, 20}, {8, 30}}, {}), {1, 8},
                 {"........", "........", "....ba..", "....ba..", "....b...", "....b...",
                  "...ba...", "...ba...", "...ba...", "...b....", "...b....", "...b....",
                  ".oobooo.", ".oibiio.", ".oab.io.", ".oab.io.", ".ob..io.", ".ob..io.",
                  ".ob..io.", ".ab..io.", ".abiiio.", ".aboooo.", "........"});
}

TEST(OskaBorderTest, highlight_isReadFromTheDefaultSkinAtEachDrawing)
{
    const Tests::DefaultSkinGuard guard;
    Wx::GuiSkin::DEFAULT().highlight = {250, 10, 20};
    const wxImage image = drawn(wxSize(10, 10), {{0, 0}, {10, 10}}, {HOVERED, ENABLED});
    EXPECT_EQ(pixelAt(image, 1, 1), (RgbBytes{250, 10, 20}));
}

TEST(OskaBorderTest, pens_areSolidAndOnePixelWide)
{
    const Tests::DefaultSkinGuard guard;
    Wx::GuiSkin::DEFAULT().highlight = {1, 2, 3};
    const std::pair<wxPen, wxColour> pens[] = {{OskaBorder::OUTER(), {54, 54, 54}},
                                               {OskaBorder::INNER(), {37, 37, 37}},
                                               {OskaBorder::BOTTOM_OUTER(), {70, 70, 70}},
                                               {OskaBorder::BOTTOM_INNER(), {85, 85, 85}},
                                               {OskaBorder::SELECTED(), {1, 2, 3}}};
    for (const auto& [pen, colour] : pens) {
        EXPECT_EQ(pen.GetColour(), colour);
        EXPECT_EQ(pen.GetWidth(), 1);
        EXPECT_EQ(pen.GetStyle(), wxPENSTYLE_SOLID);
    }
}

TEST_F(OskaBorderWindowTest, window_paintsItsStateOverItsWholeClientArea)
{
    for (const std::uint32_t bits : {0u, 4u, 8u, 12u}) {
        OskaBorder* border = show(Flags<OskaBorderState>::fromBits(bits));
        expectShown(border, Flags<OskaBorderState>::fromBits(bits));
        border->Destroy();
    }
}

TEST_F(OskaBorderWindowTest, enteringAndLeaving_setAndClearHovered)
{
    OskaBorder* border = show(ENABLED);
    sendMouse(border, wxEVT_ENTER_WINDOW);
    EXPECT_TRUE(border->borderState().has(HOVERED));
    expectShown(border, {HOVERED, ENABLED});
    sendMouse(border, wxEVT_LEAVE_WINDOW);
    EXPECT_EQ(border->borderState(), Flags<OskaBorderState>(ENABLED));
    expectShown(border, ENABLED);
}

TEST_F(OskaBorderWindowTest, mouseThatComesAndGoes_lightsTheInnerLine)
{
    OskaBorder* border = show(ENABLED);
    wxUIActionSimulator mouse;
    mouse.MouseMove(border->ClientToScreen(wxPoint(15, 10)));
    EXPECT_TRUE(Tests::pumpUntil([&] { return border->borderState().has(HOVERED); }));
    expectShown(border, {HOVERED, ENABLED});
    mouse.MouseMove(border->ClientToScreen(wxPoint(15, 60)));
    EXPECT_TRUE(Tests::pumpUntil([&] { return !border->borderState().has(HOVERED); }));
    expectShown(border, ENABLED);
}

TEST_F(OskaBorderWindowTest, hoveredButDisabled_keepsTheInnerColour)
{
    OskaBorder* border = show({});
    sendMouse(border, wxEVT_ENTER_WINDOW);
    expectShown(border, HOVERED);
}

TEST_F(OskaBorderWindowTest, changedHighlight_showsAtTheNextPaint)
{
    const Tests::DefaultSkinGuard guard;
    OskaBorder* border = show(ENABLED);
    sendMouse(border, wxEVT_ENTER_WINDOW);
    Wx::GuiSkin::DEFAULT().highlight = {200, 100, 50};
    border->Refresh();
    EXPECT_TRUE(Tests::pumpUntil([&] {
        return pixelAt(Tests::captureClientArea(border), 1, 1) == RgbBytes{200, 100, 50};
    }));
}

TEST_F(OskaBorderWindowTest, enable_keepsTheFlagInStepAndReturnsTheToolkitsAnswer)
{
    OskaBorder* border = show({HOVERED, ENABLED, NO_FRAME});
    EXPECT_TRUE(border->Enable(false));
    EXPECT_EQ(border->borderState(), Flags<OskaBorderState>({HOVERED, NO_FRAME}));
    EXPECT_FALSE(border->IsEnabled());
    EXPECT_FALSE(border->Enable(false)) << "nothing changed";
    EXPECT_TRUE(border->Enable(true));
    EXPECT_EQ(border->borderState(), Flags<OskaBorderState>({HOVERED, ENABLED, NO_FRAME}));
}

TEST_F(OskaBorderWindowTest, addChild_framesItAtTwoPixelsAndFits)
{
    OskaBorder* border = show(ENABLED);
    auto* child = new wxPanel(border);
    child->SetMinSize(wxSize(50, 30));
    border->addChild(child);
    EXPECT_EQ(border->GetClientSize(), wxSize(54, 34));
    border->SetSize(100, 80);
    border->Layout();
    EXPECT_EQ(child->GetRect(), wxRect(2, 2, 96, 76));
}

TEST_F(OskaBorderWindowTest, addChild_ofTheSameWindowTwice_framesItOnce)
{
    OskaBorder* border = show(ENABLED);
    auto* child = new wxPanel(border);
    child->SetMinSize(wxSize(50, 30));
    border->addChild(child);
    border->addChild(child);
    EXPECT_EQ(border->GetSizer()->GetItemCount(), 1u);
    EXPECT_EQ(child->GetContainingSizer(), border->GetSizer());
    child->Destroy();
    EXPECT_EQ(border->GetSizer()->GetItemCount(), 0u);
    border->Layout();
}

TEST_F(OskaBorderWindowTest, addChild_again_framesTheOther)
{
    OskaBorder* border = show(ENABLED);
    auto* first = new wxPanel(border);
    first->SetMinSize(wxSize(50, 30));
    border->addChild(first);
    auto* second = new wxPanel(border);
    second->SetMinSize(wxSize(20, 10));
    border->addChild(second);
    EXPECT_EQ(border->GetSizer()->GetItemCount(), 1u);
    EXPECT_EQ(border->GetClientSize(), wxSize(24, 14));
    EXPECT_EQ(second->GetRect(), wxRect(2, 2, 20, 10));
}
