// SPDX-License-Identifier: MIT
// Tests what a view draws over its picture, as the screen shows it.
#include "apps/viewer/view/ViewMarks.h"

#include "apps/viewer/view/ColorLegend.h"
#include "apps/viewer/view/ColorMap.h"
#include "support/ViewFixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <set>
#include <tuple>

using namespace Nolvex;
using Tests::coordinates;

namespace {

constexpr RgbBytes BLACK{0, 0, 0};
constexpr RgbBytes WHITE{255, 255, 255};
constexpr RgbBytes FRAME{128, 128, 128};

Viewer::SharedPicture uniform(const Rgb& value, int width, int height)
{
    Image image = *Image::create(width, height, PixelFormat::FLOAT32_RGBA, 1.0f);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            std::memcpy(image.row(y).data() + sizeof(Rgb) * static_cast<std::size_t>(x), &value,
                        sizeof(value));
    }
    return std::make_shared<const Viewer::Picture>(L"uniform", std::move(image));
}

struct ViewMarksTest : Tests::ViewFixture
{
    wxImage shown() const
    {
        Tests::pumpEvents(100);
        return Tests::captureClientArea(view);
    }

    static int count(const wxImage& image, const wxRect& area, const RgbBytes& color)
    {
        int found = 0;
        for (int y = area.y; y <= area.GetBottom(); ++y) {
            for (int x = area.x; x <= area.GetRight(); ++x)
                found += Tests::pixelAt(image, x, y) == color ? 1 : 0;
        }
        return found;
    }

    /// Letters are smooth, so that few of their pixels have their colour.
    static int countOfLetters(const wxImage& image, const wxRect& area, bool isLight)
    {
        int found = 0;
        for (int y = area.y; y <= area.GetBottom(); ++y) {
            for (int x = area.x; x <= area.GetRight(); ++x) {
                const int green = image.GetGreen(x, y);
                found += (isLight ? green > 170 : green < 85) ? 1 : 0;
            }
        }
        return found;
    }
};

} // namespace

TEST_F(ViewMarksTest, largePixels_haveTheirValuesWrittenIntoThem)
{
    show(uniform({0.25f, 0.25f, 0.25f, 1.0f}, 3, 2));
    view->setScale(40.0);
    EXPECT_EQ(count(shown(), view->pictureArea(), {64, 64, 64}), 120 * 80) << "too small for numbers";
    view->setScale(90.0);
    const wxImage image = shown();
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            const wxRect square(view->pictureArea().GetTopLeft() + wxPoint(x * 90, y * 90), wxSize(90, 90));
            EXPECT_GT(countOfLetters(image, square, true), 40)
                << x << ", " << y << ": white letters on dark pixels";
            EXPECT_GT(count(image, square, {64, 64, 64}), 90 * 90 * 7 / 10);
            EXPECT_EQ(Tests::pixelAt(image, square.x, square.y), (RgbBytes{64, 64, 64}));
        }
    }
}

TEST_F(ViewMarksTest, valuesOfLightPixels_areBlack)
{
    show(uniform({2.0f, 2.0f, 2.0f, 1.0f}, 3, 2));
    view->setScale(90.0);
    EXPECT_GT(countOfLetters(shown(), {105, 55, 90, 90}, false), 40);
}

TEST_F(ViewMarksTest, valuesThatAreNoNumbers_areWritten)
{
    const float inf = std::numeric_limits<float>::infinity();
    show(uniform({std::nanf(""), inf, -inf, std::nanf("")}, 3, 2));
    view->setDisplay({.channel = Viewer::Channel::RED});
    view->setScale(90.0);
    EXPECT_GT(countOfLetters(shown(), {105, 55, 90, 90}, true), 10);
}

TEST_F(ViewMarksTest, frame_isOutlinedWhereTheImageDiffersFromIt)
{
    Viewer::ReadImage read{*Image::create(40, 20, PixelFormat::UINT8_GREY, 1.0f)};
    read.origin = {10, 5};
    read.frameSize = Pixel{100, 60};
    show(std::make_shared<const Viewer::Picture>(L"part", std::move(read), nullptr, 0));
    EXPECT_EQ(view->shownSize(), wxSize(100, 60));
    const wxRect outline(100, 70, 100, 60);
    EXPECT_EQ(view->pictureArea(), wxRect(110, 75, 40, 20));
    const wxImage image = shown();
    EXPECT_EQ(Tests::pixelAt(image, outline.x - 1, outline.y - 1), FRAME);
    EXPECT_EQ(Tests::pixelAt(image, outline.x + outline.width, outline.y + outline.height), FRAME);
    EXPECT_EQ(Tests::pixelAt(image, 110, 75), BLACK);
    EXPECT_EQ(view->pixelAt({110, 75}), (Pixel{0, 0})) << "pixels are counted in the image";
    EXPECT_EQ(view->pixelAt({149, 94}), (Pixel{39, 19}));
    EXPECT_FALSE(view->pixelAt({109, 75}));
    EXPECT_FALSE(view->pixelAt({150, 94}));
}

TEST_F(ViewMarksTest, pictureThatFillsItsFrame_hasNoOutline)
{
    show(coordinates(100, 60));
    EXPECT_EQ(count(shown(), wxRect(0, 0, WIDTH, HEIGHT), FRAME), 0);
}

TEST_F(ViewMarksTest, selection_isSurroundedByBlackAndWhite)
{
    for (const Rgb& value : {Rgb{0, 0, 0, 1}, Rgb{1, 1, 1, 1}, Rgb{0.5f, 0.5f, 0.5f, 1}}) {
        if (view == nullptr)
            show(uniform(value, 100, 60));
        view->setPicture(uniform(value, 100, 60));
        view->setSelection(wxRect(20, 10, 40, 30));
        const wxImage image = shown();
        const wxRect line(119, 79, 42, 1); // the frame of the selection lies around its pixels
        EXPECT_GT(count(image, line, BLACK), 8);
        EXPECT_GT(count(image, line, WHITE), 8);
        EXPECT_EQ(count(image, wxRect(120, 80, 40, 30), Tests::pixelAt(image, 101, 71)), 40 * 30)
            << "no pixel of the selection is covered";
    }
}

TEST_F(ViewMarksTest, hugeSelection_isDrawn)
{
    show(coordinates(30000, 2));
    view->setSelection(wxRect(0, 0, 30000, 2));
    view->setScale(256.0);
    shown();
    EXPECT_EQ(view->selection(), Optional<wxRect>(wxRect(0, 0, 30000, 2)));
}

TEST_F(ViewMarksTest, comparison_isShownRightOfTheDivider)
{
    show(uniform({1.0f, 0.0f, 0.0f, 1.0f}, 100, 60));
    view->setComparison(uniform({0.0f, 1.0f, 0.0f, 1.0f}, 100, 60), 0.5f);
    const wxImage image = shown();
    EXPECT_EQ(Tests::pixelAt(image, 149, 100), (RgbBytes{255, 0, 0}));
    EXPECT_EQ(Tests::pixelAt(image, 150, 100), WHITE);
    EXPECT_EQ(Tests::pixelAt(image, 151, 100), BLACK);
    EXPECT_EQ(Tests::pixelAt(image, 152, 100), (RgbBytes{0, 255, 0}));
    EXPECT_EQ(view->pictureAt({149, 100}), view->picture());
    EXPECT_EQ(view->pictureAt({150, 100}), view->comparison());
    view->setComparison(nullptr, 0.5f);
    EXPECT_EQ(Tests::pixelAt(shown(), 152, 100), (RgbBytes{255, 0, 0}));
}

TEST_F(ViewMarksTest, comparisonOfAnotherSize_liesAtTheSamePlace)
{
    show(coordinates(100, 60));
    view->setComparison(coordinates(140, 20), 0.0f);
    const wxImage image = shown();
    EXPECT_EQ(Tests::pixelAt(image, 230, 80), Tests::coordinate(130, 10));
    EXPECT_EQ(view->pixelAt({230, 80}), (Pixel{130, 10}));
    EXPECT_FALSE(view->pixelAt({150, 95})) << "below the second picture";
}

TEST_F(ViewMarksTest, falseColor_hasALegend)
{
    show(uniform({0.5f, 0.5f, 0.5f, 1.0f}, 10, 10));
    view->setDisplay({.falseColor = Viewer::FalseColor::VALUES});
    const wxImage image = shown();
    const wxRect legend = Viewer::legendRect(wxRect(0, 0, WIDTH, HEIGHT));
    const wxRect lower(legend.x, legend.y + legend.height / 2, legend.width, legend.height / 2);
    EXPECT_TRUE(wxRect(0, 0, WIDTH, HEIGHT).Contains(legend));
    std::set<std::tuple<int, int, int>> colors;
    for (int x = legend.x; x < legend.GetRight(); ++x) {
        const RgbBytes color = Tests::pixelAt(image, x, legend.y + legend.height / 3);
        colors.insert({color.r, color.g, color.b});
    }
    EXPECT_GT(colors.size(), 100u) << "all colours are there";
    EXPECT_GT(countOfLetters(image, lower, true), 20) << "and numbers";
    view->setDisplay({});
    EXPECT_EQ(countOfLetters(shown(), lower, true), 0);
}
