// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/HistogramView.h"

#include "NolvexLibWx/widgets/GuiSkin.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::pixelAt;
using Viewer::ChannelStatistics;
using Viewer::drawHistogram;
using Viewer::PictureStatistics;

namespace {

constexpr int BINS = static_cast<int>(ChannelStatistics::BINS);
constexpr RgbBytes PAPER{10, 20, 30};
constexpr RgbBytes GREY{220, 220, 220};
constexpr RgbBytes RED{220, 50, 50};
constexpr RgbBytes RED_AND_GREEN{220, 220, 50};

wxImage drawn(const PictureStatistics& statistics, const wxSize& size = {BINS, 100})
{
    return drawHistogram(statistics, size, wxColour(PAPER.r, PAPER.g, PAPER.b));
}

PictureStatistics blank(std::size_t channels)
{
    PictureStatistics statistics;
    statistics.channels.resize(channels);
    return statistics;
}

// The number of pixels in a column that have this colour.
int count(const wxImage& image, int x, const RgbBytes& colour)
{
    int found = 0;
    for (int y = 0; y < image.GetHeight(); ++y)
        found += pixelAt(image, x, y) == colour ? 1 : 0;
    return found;
}

} // namespace

TEST(HistogramDrawingTest, emptyHistograms_areBackground)
{
    for (const std::size_t channels : {0U, 1U, 3U, 4U}) {
        const wxImage image = drawn(blank(channels));
        ASSERT_EQ(image.GetSize(), wxSize(BINS, 100));
        for (int x = 0; x < BINS; ++x)
            ASSERT_EQ(count(image, x, PAPER), 100) << x;
    }
}

TEST(HistogramDrawingTest, grey_isDrawnInGreyFromTheBottom)
{
    PictureStatistics statistics = blank(1);
    statistics.channels[0].histogram[100] = 5;
    const wxImage image = drawn(statistics);
    EXPECT_EQ(count(image, 100, GREY), 100);
    EXPECT_EQ(count(image, 99, PAPER), 100);
    EXPECT_EQ(count(image, 101, PAPER), 100);
}

TEST(HistogramDrawingTest, height_growsWithTheSquareRoot)
{
    PictureStatistics statistics = blank(1);
    statistics.channels[0].histogram[10] = 10'000;
    statistics.channels[0].histogram[20] = 2'500;
    statistics.channels[0].histogram[30] = 100;
    statistics.channels[0].histogram[40] = 1;
    const wxImage image = drawn(statistics);
    EXPECT_EQ(count(image, 10, GREY), 100);
    EXPECT_EQ(count(image, 20, GREY), 50);
    EXPECT_EQ(count(image, 30, GREY), 10);
    EXPECT_EQ(count(image, 40, GREY), 1);
    EXPECT_EQ(pixelAt(image, 20, 49), PAPER);
    EXPECT_EQ(pixelAt(image, 20, 50), GREY);
}

TEST(HistogramDrawingTest, rarestValue_isSeen)
{
    PictureStatistics statistics = blank(1);
    statistics.channels[0].histogram[10] = std::int64_t(1) << 40;
    statistics.channels[0].histogram[20] = 1;
    EXPECT_EQ(count(drawn(statistics), 20, GREY), 1);
}

TEST(HistogramDrawingTest, ends_doNotFlattenTheRest)
{
    PictureStatistics statistics = blank(1);
    statistics.channels[0].histogram[0] = 1'000'000;
    statistics.channels[0].histogram[BINS - 1] = 1'000'000;
    statistics.channels[0].histogram[10] = 4;
    const wxImage image = drawn(statistics);
    EXPECT_EQ(count(image, 10, GREY), 100);
    EXPECT_EQ(count(image, 0, GREY), 100);
    EXPECT_EQ(count(image, BINS - 1, GREY), 100);
}

TEST(HistogramDrawingTest, coloursThatOverlap_addUp)
{
    PictureStatistics statistics = blank(4);
    statistics.channels[0].histogram[50] = 100;
    statistics.channels[1].histogram[50] = 25;
    statistics.channels[2].histogram[60] = 100;
    statistics.channels[3].histogram[50] = 1'000'000;
    const wxImage image = drawn(statistics);
    EXPECT_EQ(count(image, 50, RED), 50) << "alpha is not drawn";
    EXPECT_EQ(count(image, 50, RED_AND_GREEN), 50);
    EXPECT_EQ(pixelAt(image, 50, 99), RED_AND_GREEN) << "the bottom row";
    EXPECT_EQ(count(image, 60, RgbBytes{50, 50, 220}), 100);
}

TEST(HistogramDrawingTest, narrowPicture_addsNeighboursUp)
{
    PictureStatistics statistics = blank(1);
    statistics.channels[0].histogram[20] = 50;
    statistics.channels[0].histogram[21] = 50;
    statistics.channels[0].histogram[40] = 25;
    const wxImage image = drawn(statistics, {BINS / 2, 100});
    EXPECT_EQ(count(image, 10, GREY), 100);
    EXPECT_EQ(count(image, 20, GREY), 50);
    EXPECT_EQ(count(image, 11, PAPER), 100);
}

TEST(HistogramDrawingTest, widePicture_spreadsAValueOverSeveralColumns)
{
    PictureStatistics statistics = blank(1);
    statistics.channels[0].histogram[20] = 4;
    statistics.channels[0].histogram[30] = 1;
    const wxImage image = drawn(statistics, {2 * BINS, 100});
    for (const int x : {40, 41})
        EXPECT_EQ(count(image, x, GREY), 100) << x;
    for (const int x : {60, 61})
        EXPECT_EQ(count(image, x, GREY), 50) << x;
    for (const int x : {39, 42, 59, 62})
        EXPECT_EQ(count(image, x, PAPER), 100) << x;
}

TEST(HistogramDrawingTest, smallestPictures_areDrawn)
{
    PictureStatistics statistics = blank(3);
    statistics.channels[1].histogram[128] = 1;
    for (const wxSize& size : {wxSize(1, 1), wxSize(2, 1), wxSize(3, 1)}) {
        const wxImage image = drawn(statistics, size);
        EXPECT_EQ(image.GetSize(), size);
        EXPECT_EQ(pixelAt(image, size.x / 2, 0), (RgbBytes{50, 220, 50})) << size.x;
    }
}

struct HistogramViewTest : Tests::FrameFixture
{
    Viewer::HistogramView* view = new Viewer::HistogramView(panel);

    HistogramViewTest() { view->SetSize(20, 10, BINS, 100); }

    // Waits until the column begins with the colour at the bottom.
    bool isSeen(int x, const RgbBytes& colour) const
    {
        return Tests::pumpUntil([&] { return pixelAt(Tests::captureClientArea(view), x, 99) == colour; });
    }
};

TEST_F(HistogramViewTest, statistics_areShownUntilTheyAreTakenAway)
{
    const RgbBytes background = Wx::GuiSkin::DEFAULT().darkBackground;
    showFrame();
    EXPECT_TRUE(isSeen(100, background));
    PictureStatistics statistics = blank(1);
    statistics.channels[0].histogram[100] = 5;
    view->setStatistics(statistics);
    EXPECT_TRUE(isSeen(100, GREY));
    EXPECT_TRUE(isSeen(101, background));
    view->setStatistics({});
    EXPECT_TRUE(isSeen(100, background));
}
