// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "support/Events.h"
#include "support/Screen.h"
#include "support/TickSkin.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/graphics.h>
#include <wx/panel.h>

#include <gtest/gtest.h>

#include <array>
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

// Draws the same tick with wxWidgets alone.
void drawExpected(wxDC& dc, const wxSize& size, bool expanded)
{
    const int w = size.x;
    const int h = size.y;
    std::array<wxPoint, 4> points{wxPoint(0, 0), wxPoint(w, 0), wxPoint(w / 2, h), wxPoint(0, 0)};
    if (!expanded)
        points = {wxPoint(0, 0), wxPoint(w, h / 2), wxPoint(0, h), wxPoint(0, 0)};
    if (wxGraphicsContext* context = dc.GetGraphicsContext())
        context->SetAntialiasMode(wxANTIALIAS_NONE);
    wxPen pen(Wx::toWxColour(Tests::TICK_OUTLINE));
    pen.SetJoin(wxJOIN_MITER);
    pen.SetCap(wxCAP_BUTT);
    dc.SetPen(pen);
    dc.SetBrush(Wx::toWxColour(Tests::TICK_FILL));
    dc.DrawPolygon(4, points.data(), 0, 0, wxWINDING_RULE);
}

wxImage expectedTick(const wxSize& size, bool expanded)
{
    return painted(size, [&](wxDC& dc) { drawExpected(dc, size, expanded); });
}

// Shows the expected tick on the screen, where slanted lines have other pixels than in a bitmap.
class ExpectedWindow : public wxWindow
{
public:
    explicit ExpectedWindow(wxWindow* parent) : wxWindow(parent, wxID_ANY)
    {
        SetBackgroundColour(*wxWHITE);
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxPaintDC dc(this);
            drawExpected(dc, GetClientSize(), m_expanded);
        });
    }

    wxImage shown(const wxSize& size, bool expanded)
    {
        m_expanded = expanded;
        SetSize(wxRect(wxPoint(80, 20), size));
        Refresh();
        Tests::pumpEvents(100);
        return Tests::captureClientArea(this);
    }

private:
    bool m_expanded = false;
};

// Returns a line of letters for each row: o for the outline, x for the inside, - for a pixel that is not
// painted.
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

struct TickTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "tick", wxPoint(100, 100), wxSize(300, 200));
    wxPanel* panel = new wxPanel(frame);
    ExpectedWindow* expected = new ExpectedWindow(panel);

    Tick* shown(const Wx::GuiSkin& skin = Tests::tickSkin())
    {
        panel->SetBackgroundColour(*wxWHITE);
        auto* tick = new Tick(panel, skin);
        tick->Move(20, 20);
        frame->Show();
        frame->Raise();
        Tests::pumpEvents(200);
        return tick;
    }

    void expectShown(Tick* tick, bool expanded) const
    {
        const std::string wanted = rows(expected->shown(tick->GetClientSize(), expanded));
        EXPECT_EQ(rows(Tests::captureClientArea(tick)), wanted);
    }

    ~TickTest() override { Tests::destroyNow(frame); }
};

} // namespace

TEST(TickPixelTest, draw_paintsATriangleDownOrRight)
{
    for (const wxSize size : {Wx::scaleByDpi(wxSize(9, 9)), wxSize(9, 9), wxSize(10, 7), wxSize(24, 31)}) {
        for (const bool expanded : {false, true})
            EXPECT_EQ(rows(drawn(size, expanded)), rows(expectedTick(size, expanded)));
    }
}

TEST(TickPixelTest, draw_usesTheColoursOfTheSkinThatWasPaintedFirst)
{
    const wxSize size(9, 9);
    EXPECT_EQ(rows(drawn(size, true, Tests::tickSkin())), rows(drawn(size, true, otherSkin())));
    EXPECT_EQ(rows(drawn(size, false, Tests::tickSkin())), rows(drawn(size, false, otherSkin())));
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
    Tests::pumpEvents(100);
    EXPECT_EQ(rows(Tests::captureClientArea(tick)), "ooooooooo\n"
                                                    "oxxxxxxxo\n"
                                                    "-oxxxxxxo\n"
                                                    "-oxxxxxo-\n"
                                                    "--oxxxxo-\n"
                                                    "--oxxxo--\n"
                                                    "---oxxo--\n"
                                                    "---oxo---\n"
                                                    "----oo---\n");
    tick->setExpanded(false);
    Tests::pumpEvents(100);
    EXPECT_EQ(rows(Tests::captureClientArea(tick)), "oo-------\n"
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
    const std::string before = rows(Tests::captureClientArea(first));
    first->Destroy();
    EXPECT_EQ(rows(Tests::captureClientArea(shown(otherSkin()))), before);
}
