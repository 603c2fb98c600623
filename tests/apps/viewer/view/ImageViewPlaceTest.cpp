// SPDX-License-Identifier: MIT
// Tests which part of its picture a view shows, and how large.
#include "support/ViewFixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

using namespace Nolvex;
using Tests::coordinate;
using Tests::coordinates;
using Tests::pumpUntil;

using ImageViewPlaceTest = Tests::ViewFixture;

TEST_F(ImageViewPlaceTest, newPicture_isShownWholeButNotEnlarged)
{
    show(coordinates(60, 40));
    EXPECT_EQ(view->scale(), 1.0);
    EXPECT_EQ(view->pictureArea(), wxRect(120, 80, 60, 40));
    view->setPicture(coordinates(1200, 200));
    EXPECT_EQ(view->scale(), 0.25);
    EXPECT_EQ(view->pictureArea(), wxRect(0, 75, 300, 50));
    view->setPicture(nullptr);
    EXPECT_TRUE(view->pictureArea().IsEmpty());
}

TEST_F(ImageViewPlaceTest, pictureThatKeepsThePlace_showsTheSamePart)
{
    show(coordinates(3000, 2000));
    view->setScale(3.0);
    view->pan({-17, 23});
    const wxRect area = view->pictureArea();
    viewChanges = 0;
    view->setPicture(coordinates(3000, 2000), true);
    EXPECT_EQ(view->pictureArea(), area);
    EXPECT_EQ(view->scale(), 3.0);
    EXPECT_EQ(viewChanges, 0);
    view->setPicture(coordinates(3000, 2000));
    EXPECT_EQ(view->scale(), 0.1);
    EXPECT_EQ(viewChanges, 1);
}

TEST_F(ImageViewPlaceTest, selection_staysWithThePlace)
{
    show(coordinates(300, 200));
    view->setSelection(wxRect(10, 20, 100, 100));
    view->setPicture(coordinates(300, 200), true);
    EXPECT_EQ(view->selection(), Optional<wxRect>(wxRect(10, 20, 100, 100)));
    view->setPicture(coordinates(50, 200), true);
    EXPECT_EQ(view->selection(), Optional<wxRect>(wxRect(10, 20, 40, 100)));
    view->setPicture(coordinates(50, 200));
    EXPECT_FALSE(view->selection());
    view->setSelection(wxRect(100, 100, 5, 5));
    EXPECT_FALSE(view->selection()) << "beside the picture";
    EXPECT_TRUE(selections.empty()) << "the program's own selections are not told";
}

TEST_F(ImageViewPlaceTest, enlargedPicture_isShownBySquares)
{
    show(coordinates(60, 40));
    view->setScale(8.0);
    view->pan({5, 3});
    const wxPoint corner = view->pictureArea().GetTopLeft();
    Tests::pumpEvents(100);
    const wxImage shown = Tests::captureClientArea(view);
    for (int y = 0; y < HEIGHT; y += 3) {
        for (int x = 0; x < WIDTH; ++x) {
            const Pixel pixel{(x - corner.x) / 8, (y - corner.y) / 8};
            ASSERT_EQ(Tests::pixelAt(shown, x, y), coordinate(pixel.x, pixel.y));
            ASSERT_EQ(view->pixelAt({x, y}), pixel);
        }
    }
}

TEST_F(ImageViewPlaceTest, largeReducedPicture_isAveragedSoon)
{
    Image image = *Image::create(2400, 1600, PixelFormat::UINT8_GREY, 1.0f);
    for (int y = 0; y < 1600; ++y) {
        for (int x = 0; x < 2400; ++x)
            image.row(y)[static_cast<std::size_t>(x)] = std::byte((x + y) % 2 == 0 ? 255 : 0);
    }
    show(std::make_shared<const Viewer::Picture>(L"stripes", std::move(image)));
    EXPECT_TRUE(pumpUntil([&] { return !view->isProvisional(); }));
    for (const wxPoint& place : {wxPoint(0, 0), wxPoint(150, 100), wxPoint(299, 199)})
        EXPECT_EQ(shownAt(place.x, place.y), (RgbBytes{128, 128, 128}));
}

TEST_F(ImageViewPlaceTest, viewDestroyedWhileAPictureIsReduced_isSurvived)
{
    show(std::make_shared<const Viewer::Picture>(
        L"large", *Image::create(6000, 4000, PixelFormat::FLOAT32_RGBA, 1.0f)));
    view->Destroy();
    EXPECT_TRUE(pumpUntil([&] { return view == nullptr; }));
}

TEST_F(ImageViewPlaceTest, fit_followsTheSizeOfTheView)
{
    show(coordinates(60, 40));
    view->fit();
    EXPECT_EQ(view->scale(), 5.0);
    view->SetSize(10, 10, 120, 200);
    EXPECT_TRUE(pumpUntil([&] { return view->scale() == 2.0; }));
    view->showActualSize();
    EXPECT_EQ(view->scale(), 1.0);
    view->SetSize(10, 10, 240, 200);
    Tests::pumpEvents(100);
    EXPECT_EQ(view->scale(), 1.0);
}

TEST_F(ImageViewPlaceTest, zoomInAndOut_areOppositeSteps)
{
    show(coordinates(60, 40));
    view->zoomIn();
    EXPECT_NEAR(view->scale(), std::sqrt(2.0), 1e-9);
    view->zoomIn();
    EXPECT_NEAR(view->scale(), 2.0, 1e-9);
    for (int i = 0; i < 2; ++i)
        view->zoomOut();
    EXPECT_EQ(view->scale(), 1.0);
    EXPECT_EQ(view->pictureArea(), wxRect(120, 80, 60, 40));
    EXPECT_EQ(viewChanges, 4);
}

TEST_F(ImageViewPlaceTest, pictureCannotBeLost)
{
    show(coordinates(60, 40));
    for (const wxPoint& distance : {wxPoint(100000, 100000), wxPoint(-100000, -100000)}) {
        view->pan(distance);
        EXPECT_TRUE(view->pictureArea().Intersects(wxRect(0, 0, WIDTH, HEIGHT)));
    }
}

TEST_F(ImageViewPlaceTest, picturesOfAnyShape_areShownAtAnyScale)
{
    show(coordinates(1, 1));
    for (const Pixel& size : {Pixel{1, 1}, Pixel{1, 30000}, Pixel{30000, 1}}) {
        view->setPicture(coordinates(size.x, size.y));
        for (const double scale : {0.0, 0.02, 1.0, 256.0}) {
            if (scale > 0.0)
                view->setScale(scale);
            view->Refresh();
            Tests::pumpEvents(60);
            wxRect area = view->pictureArea();
            EXPECT_TRUE(area.Inflate(1).Contains(WIDTH / 2, HEIGHT / 2)) << size.x << " at " << scale;
        }
    }
}

TEST_F(ImageViewPlaceTest, displayOfThePicture_isChangedAtOnce)
{
    show(coordinates(60, 40));
    EXPECT_EQ(shownAt(120 + 30, 80 + 20), coordinate(30, 20));
    view->setDisplay({.channel = Viewer::Channel::GREEN});
    EXPECT_EQ(shownAt(120 + 30, 80 + 20), (RgbBytes{20, 20, 20}));
    view->setSurround({1, 2, 3});
    EXPECT_EQ(shownAt(5, 5), (RgbBytes{1, 2, 3}));
}

TEST_F(ImageViewPlaceTest, wholeScene_isTheFrameWithTheDividerOverTheSameColumn)
{
    show(Tests::coordinates(600, 100));
    EXPECT_EQ(view->wholeScene().size, wxSize(600, 100));
    EXPECT_EQ(view->wholeScene().scale, 1.0);
    view->setComparison(Tests::coordinates(600, 100), 0.5f);
    view->setScale(3.0);
    view->pan({-200, 0});
    const Viewer::Scene whole = view->wholeScene();
    EXPECT_EQ(whole.origin, wxPoint(0, 0));
    EXPECT_EQ(whole.comparison, view->comparison());
    // The last pixel of the first picture and the first pixel of the second one
    EXPECT_EQ(whole.divider, pixelUnder({WIDTH / 2 - 2, HEIGHT / 2}).x + 1);
    EXPECT_EQ(whole.divider, pixelUnder({WIDTH / 2 + 1, HEIGHT / 2}).x);
    view->pan({-20000, 0});
    EXPECT_GE(view->wholeScene().divider, 0);
    view->pan({20000, 0});
    EXPECT_LE(view->wholeScene().divider, 600);
    view->setPicture(nullptr);
    EXPECT_EQ(view->wholeScene().picture, nullptr);
}
