// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/StaticLine.h"

#include "NolvexLib/StopException.h"
#include "support/Events.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/sizer.h>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using namespace Nolvex;
using Tests::pixelAt;
using Wx::StaticLine;

namespace {

constexpr RgbBytes PAPER{255, 255, 255};
constexpr RgbBytes DARK{37, 37, 37};
constexpr RgbBytes LIGHT{100, 100, 100};
constexpr RgbBytes COLOURS[] = {{10, 20, 30}, {200, 100, 127}, {128, 255, 0}};
constexpr RgbBytes BRIGHT_COLOURS[] = {{20, 40, 60}, {255, 200, 254}, {255, 255, 0}};

static_assert(std::is_base_of_v<wxPanel, StaticLine>);

struct PlaceOfFailure
{
    std::string file;
    int line = 0;
};

template<class Act>
PlaceOfFailure placeOfFailure(const Act& act)
{
    try {
        act();
    } catch (const StopException& failure) {
        return {failure.file(), failure.line()};
    }
    return {};
}

Array<wxColour> toolkitColours(ArrayView<const RgbBytes> colours)
{
    Array<wxColour> result;
    for (const RgbBytes& colour : colours)
        result.emplace_back(colour.r, colour.g, colour.b);
    return result;
}

wxImage drawn(const wxSize& paper, wxOrientation orientation, ArrayView<const RgbBytes> colours,
              float lengthScale)
{
    wxBitmap bitmap(paper, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxWHITE_BRUSH);
        dc.Clear();
        StaticLine::draw(dc, orientation, toolkitColours(colours), lengthScale);
    }
    return bitmap.ConvertToImage();
}

/// Tells whether the image shows the stripes for `length` pixels, and white everywhere else.
testing::AssertionResult hasStripes(const wxImage& image, wxOrientation orientation,
                                    ArrayView<const RgbBytes> stripes, int length)
{
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            const int along = orientation == wxHORIZONTAL ? x : y;
            const auto across = static_cast<std::size_t>(orientation == wxHORIZONTAL ? y : x);
            const bool painted = along < length && across < stripes.size();
            const RgbBytes found = pixelAt(image, x, y);
            if (!(found == (painted ? stripes[across] : PAPER)))
                return testing::AssertionFailure()
                       << testing::PrintToString(found) << " at " << x << ", " << y;
        }
    }
    return testing::AssertionSuccess();
}

void expectStripes(const wxImage& image, wxOrientation orientation, ArrayView<const RgbBytes> stripes,
                   int length)
{
    EXPECT_TRUE(hasStripes(image, orientation, stripes, length));
}

/// Shows lines 200 pixels long, with a white background.
struct StaticLineWindowTest : Tests::FrameFixture
{
    StaticLineWindowTest() : FrameFixture("line", wxSize(300, 300)) {}

    StaticLine* show(StaticLine* line)
    {
        line->SetBackgroundColour(*wxWHITE);
        if (line->orientation() == wxHORIZONTAL)
            line->SetSize(10, 10, 200, line->GetMinHeight());
        else
            line->SetSize(10, 10, line->GetMinWidth(), 200);
        showFrame();
        return line;
    }

    static void expectShown(StaticLine* line, ArrayView<const RgbBytes> stripes, int length)
    {
        Tests::pumpUntil([&] {
            return bool(hasStripes(Tests::captureClientArea(line), line->orientation(), stripes, length));
        });
        const wxImage image = Tests::captureClientArea(line);
        const int across = line->orientation() == wxHORIZONTAL ? image.GetHeight() : image.GetWidth();
        EXPECT_EQ(static_cast<std::size_t>(across), stripes.size());
        expectStripes(image, line->orientation(), stripes, length);
    }
};

} // namespace

TEST(StaticLineTest, draw_inBothOrientations_paintsAStripeAColourFromTheOrigin)
{
    for (const wxOrientation orientation : {wxHORIZONTAL, wxVERTICAL}) {
        for (std::size_t count = 0; count <= 3; ++count) {
            const ArrayView<const RgbBytes> colours(COLOURS, count);
            expectStripes(drawn({30, 25}, orientation, colours, 1.0f), orientation, colours,
                          orientation == wxHORIZONTAL ? 30 : 25);
        }
    }
}

TEST(StaticLineTest, draw_ofAPart_isTwiceAsBrightAndItsLengthIsCut)
{
    const ArrayView<const RgbBytes> bright(BRIGHT_COLOURS);
    const std::pair<float, int> lengths[] = {{0.5f, 12}, {0.0f, 0}, {0.99f, 24}, {0.03f, 0}, {0.04f, 1}};
    for (const wxOrientation orientation : {wxHORIZONTAL, wxVERTICAL}) {
        for (const auto& [scale, length] : lengths)
            expectStripes(drawn({25, 25}, orientation, COLOURS, scale), orientation, bright, length);
    }
}

TEST(StaticLineTest, draw_ofAPart_capsDoubledChannelsAt255)
{
    const RgbBytes colours[] = {{200, 127, 128}};
    EXPECT_EQ(pixelAt(drawn({4, 1}, wxHORIZONTAL, colours, 0.9f), 0, 0), (RgbBytes{255, 254, 255}));
}

TEST(StaticLineTest, draw_inAnyOtherOrientation_stops)
{
    const PlaceOfFailure place = placeOfFailure([] { drawn({4, 4}, wxBOTH, COLOURS, 1.0f); });
    EXPECT_EQ(place.file, "widgets/StaticLine");
    EXPECT_EQ(place.line, 80);
}

TEST_F(StaticLineWindowTest, construction_inAnyOtherOrientation_stopsAndLeavesNoWindow)
{
    for (const wxOrientation orientation : {wxBOTH, wxOrientation(0)}) {
        const PlaceOfFailure place = placeOfFailure([&] { const StaticLine line(panel, orientation); });
        EXPECT_EQ(place.file, "widgets/StaticLine");
        EXPECT_EQ(place.line, 39);
    }
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(StaticLineWindowTest, horizontalByDefault_isTwoPixelsHighDarkOverLight)
{
    StaticLine* line = show(new StaticLine(panel, wxHORIZONTAL));
    EXPECT_EQ(line->GetMinSize(), wxSize(wxDefaultCoord, 2));
    EXPECT_EQ(line->GetMaxSize(), wxSize(wxDefaultCoord, 2));
    EXPECT_EQ(line->lengthScale(), 1.0f);
    expectShown(line, {{DARK, LIGHT}}, 200);
}

TEST_F(StaticLineWindowTest, verticalByDefault_isTwoPixelsWideDarkBesideLight)
{
    StaticLine* line = show(new StaticLine(panel, wxVERTICAL));
    EXPECT_EQ(line->GetMinSize(), wxSize(2, wxDefaultCoord));
    EXPECT_EQ(line->GetMaxSize(), wxSize(2, wxDefaultCoord));
    expectShown(line, {{DARK, LIGHT}}, 200);
}

TEST_F(StaticLineWindowTest, layout_stretchesItAlongAndNotAcross)
{
    auto* line = new StaticLine(panel, wxHORIZONTAL, COLOURS);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(line, wxSizerFlags().Expand());
    sizer->AddStretchSpacer();
    panel->SetSizer(sizer);
    panel->SetSize(0, 0, 150, 90);
    panel->Layout();
    EXPECT_EQ(line->GetSize(), wxSize(150, 3));
}

TEST_F(StaticLineWindowTest, withoutColours_hasNoThickness)
{
    const StaticLine line(panel, wxHORIZONTAL, ArrayView<const RgbBytes>());
    EXPECT_EQ(line.GetMinHeight(), 0);
    EXPECT_EQ(line.GetMaxHeight(), 0);
    const StaticLine column(panel, wxVERTICAL, ArrayView<const RgbBytes>());
    EXPECT_EQ(column.GetMinWidth(), 0);
    EXPECT_EQ(column.GetMaxWidth(), 0);
}

TEST_F(StaticLineWindowTest, withoutColours_paintsNothing)
{
    auto* line = new StaticLine(panel, wxHORIZONTAL, ArrayView<const RgbBytes>());
    show(line)->SetSize(10, 10, 50, 5);
    Tests::pumpEvents(100);
    const wxImage image = Tests::captureClientArea(line);
    ASSERT_EQ(image.GetSize(), wxSize(50, 5));
    expectStripes(image, wxHORIZONTAL, {}, 0);
}

TEST_F(StaticLineWindowTest, setLengthScale_toAHalf_drawsHalfOfEachStripeTwiceAsBright)
{
    for (const wxOrientation orientation : {wxHORIZONTAL, wxVERTICAL}) {
        StaticLine* line = show(new StaticLine(panel, orientation));
        line->setLengthScale(0.5f);
        expectShown(line, {{{74, 74, 74}, {200, 200, 200}}}, 100);
        line->setLengthScale(1.0f);
        expectShown(line, {{DARK, LIGHT}}, 200);
        line->Destroy();
    }
}

TEST_F(StaticLineWindowTest, setLengthScale_beyondItsRange_isClamped)
{
    StaticLine* line = show(new StaticLine(panel, wxHORIZONTAL));
    line->setLengthScale(-1.0f);
    EXPECT_EQ(line->lengthScale(), 0.0f);
    expectShown(line, {{DARK, LIGHT}}, 0);
    line->setLengthScale(2.0f);
    EXPECT_EQ(line->lengthScale(), 1.0f);
    expectShown(line, {{DARK, LIGHT}}, 200);
}

TEST_F(StaticLineWindowTest, setLengthScale_toNoNumber_drawsNothing)
{
    StaticLine* line = show(new StaticLine(panel, wxHORIZONTAL));
    line->setLengthScale(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(line->lengthScale(), 0.0f);
}

TEST_F(StaticLineWindowTest, construction_clampsTheLengthScaleToo)
{
    EXPECT_EQ(StaticLine(panel, wxHORIZONTAL, COLOURS, 7.0f).lengthScale(), 1.0f);
    EXPECT_EQ(StaticLine(panel, wxHORIZONTAL, COLOURS, -7.0f).lengthScale(), 0.0f);
    StaticLine* line = show(new StaticLine(panel, wxHORIZONTAL, COLOURS, 0.25f));
    expectShown(line, BRIGHT_COLOURS, 50);
}

TEST_F(StaticLineWindowTest, setLengthScale_repaintsAtOnce)
{
    StaticLine* line = show(new StaticLine(panel, wxHORIZONTAL));
    int paints = 0;
    line->Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
        ++paints;
        event.Skip();
    });
    line->setLengthScale(0.5f);
    EXPECT_EQ(paints, 1) << "before any other event";
}
