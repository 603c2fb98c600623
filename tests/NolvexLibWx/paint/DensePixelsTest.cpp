// SPDX-License-Identifier: MIT
#include "NolvexLibWx/paint/DensePixels.h"

#include "NolvexLibWx/paint/CrispLines.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticLine.h"

#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/image.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>

using namespace Nolvex;
using Paint = std::function<void(wxDC&)>;

namespace {

const wxSize PAPER_SIZE(40, 24); // in pixels of wxWidgets
const wxColour PAPER_COLOUR(200, 220, 240);

/// A sheet of paper that has several pixels of the device for each pixel of wxWidgets.
class DensePaper
{
public:
    explicit DensePaper(int density)
    {
        m_bitmap.CreateWithDIPSize(PAPER_SIZE, density, 24);
        wxMemoryDC dc(m_bitmap);
        // On Windows the paper has as many pixels, but GDI draws pixels of the device.
        m_density = dc.GetGraphicsContext() != nullptr ? dc.GetContentScaleFactor() : 1.0;
    }

    bool hasDensity(int density) const { return m_density == density; }

    wxImage painted(const Paint& paint)
    {
        wxMemoryDC dc(m_bitmap);
        dc.SetBackground(wxBrush(PAPER_COLOUR));
        dc.Clear();
        paint(dc);
        dc.SelectObject(wxNullBitmap);
        return m_bitmap.ConvertToImage();
    }

private:
    wxBitmap m_bitmap;
    double m_density = 1.0;
};

int differences(const wxImage& usual, const wxImage& dense, int density)
{
    int count = 0;
    for (int y = 0; y < dense.GetHeight(); ++y) {
        for (int x = 0; x < dense.GetWidth(); ++x) {
            if (Tests::pixelAt(dense, x, y) != Tests::pixelAt(usual, x / density, y / density))
                ++count;
        }
    }
    return count;
}

wxBitmap checks()
{
    wxImage image(9, 7);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 9; ++x)
            image.SetRGB(x, y, (x + y) % 2 == 0 ? 255 : 0, static_cast<unsigned char>(20 * x), 90);
    }
    return wxBitmap(image);
}

Paint border(Flags<OskaBorderState> state)
{
    return [state](wxDC& dc) { OskaBorder::draw(dc, {{0, 0}, {PAPER_SIZE.x, PAPER_SIZE.y}}, state); };
}

struct Drawing
{
    const char* name;
    Paint paint;
};

std::ostream& operator<<(std::ostream& stream, const Drawing& drawing)
{
    return stream << drawing.name;
}

void drawLines(wxDC& dc)
{
    CrispLines lines(dc);
    lines.setPen(*wxRED_PEN);
    lines.drawLine({0, 0}, {30, 0});
    lines.drawLine({0, 0}, {0, 20});
    lines.drawLine({30, 10}, {12, 10});
    lines.drawLine({3, 3}, {20, 14});
    lines.drawRectangle({5, 5, 10, 6});
}

// Lines of two pixels, as focus marks have at a text scale of 150 %.
void drawWideOutline(wxDC& dc)
{
    wxGraphicsContext* const context = dc.GetGraphicsContext();
    context->SetAntialiasMode(wxANTIALIAS_NONE);
    wxPen pen(*wxBLUE, 2);
    pen.SetJoin(wxJOIN_MITER); // round corners would have other shapes
    context->SetPen(pen);
    const DensePixelOffset offset(context, 2);
    context->DrawRectangle(6, 4, 20, 12);
}

const std::array DRAWINGS{
    Drawing{"wideOutline", drawWideOutline},
    Drawing{"lines", drawLines},
    Drawing{"enabledBorder", border(OskaBorderState::ENABLED)},
    Drawing{"hoveredBorder", border({OskaBorderState::ENABLED, OskaBorderState::HOVERED})},
    Drawing{"borderWithoutFrame", border(OskaBorderState::NO_FRAME)},
    Drawing{"engravedLine",
            [](wxDC& dc) {
                const std::array<wxColour, 2> colours{*wxBLACK, *wxWHITE};
                Wx::StaticLine::draw(dc, wxHORIZONTAL, colours, 1.0f);
            }},
    Drawing{"bitmap",
            [](wxDC& dc) {
                drawSharp(dc, checks(), {4, 3}, false);
            }},
    Drawing{"buttonWithIcon",
            [](wxDC& dc) {
                Wx::Button::draw(dc, {{0, 0}, {PAPER_SIZE.x, PAPER_SIZE.y}},
                                 {.border = OskaBorderState::ENABLED,
                                  .bitmap = checks(),
                                  .label = {},
                                  .font = *wxNORMAL_FONT,
                                  .textColour = *wxBLACK});
            }},
};

} // namespace

class DensePixelsTest : public testing::TestWithParam<Drawing>
{
protected:
    void SetUp() override
    {
        if (!DensePaper(2).hasDensity(2))
            GTEST_SKIP() << "a pixel of wxWidgets is a pixel of the device on this system";
    }
};

TEST_P(DensePixelsTest, drawing_isTheUsualOneWithEachPixelEnlarged)
{
    const wxImage usual = DensePaper(1).painted(GetParam().paint);
    for (const int density : {2, 3, 4}) {
        const wxImage dense = DensePaper(density).painted(GetParam().paint);
        ASSERT_EQ(dense.GetSize(), PAPER_SIZE * density);
        EXPECT_EQ(differences(usual, dense, density), 0) << density;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, DensePixelsTest, testing::ValuesIn(DRAWINGS),
                         [](const auto& parameter) { return parameter.param.name; });

TEST(DenseBitmapTest, imageWithMorePixels_takesNoMoreRoom)
{
    const wxBitmap bitmap = denseBitmap(wxImage(20, 10), 2);
    EXPECT_EQ(bitmap.GetSize(), wxSize(20, 10));
    EXPECT_EQ(screenSize(bitmap), wxSize(20, 10) / static_cast<int>(bitmap.GetScaleFactor()));
}

TEST(DenseBitmapTest, invalidBitmap_hasNoSize)
{
    EXPECT_EQ(screenSize(wxBitmap()), wxSize(0, 0));
}
