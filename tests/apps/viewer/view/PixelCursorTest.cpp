// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PixelCursor.h"

#include "apps/viewer/view/ViewAccount.h"
#include "support/FloatImage.h"
#include "support/ViewFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

using namespace Nolvex;
using Tests::coordinates;
using Tests::typeKey;
using Viewer::PixelCursor;

namespace {

struct PixelCursorTest : Tests::ViewFixture
{
    int changes = 0;

    void showAt(Viewer::SharedPicture picture, double scale)
    {
        show(std::move(picture));
        view->setScale(scale);
        focusView();
        cursor().onChanged = [this] { ++changes; };
    }

    PixelCursor& cursor() const { return view->pixelCursor(); }

    void expectInSight() const
    {
        EXPECT_TRUE(wxRect(view->GetClientSize()).Contains(cursor().area()))
            << cursor().area().x << ", " << cursor().area().y;
    }
};

} // namespace

TEST_F(PixelCursorTest, keys_moveItAndTellEachChange)
{
    showAt(coordinates(3000, 2000), 1.0);
    typeKey(WXK_LEFT, wxMOD_CONTROL);
    const Optional<Pixel> first = cursor().pixel();
    ASSERT_TRUE(first);
    EXPECT_EQ(first, pixelUnder({WIDTH / 2, HEIGHT / 2}));
    typeKey(WXK_LEFT, wxMOD_CONTROL);
    typeKey(WXK_UP, wxMOD_CONTROL);
    EXPECT_EQ(cursor().pixel(), *first - (Pixel{1, 1}));
    EXPECT_EQ(changes, 3);
    EXPECT_FALSE(view->selection());
}

TEST_F(PixelCursorTest, shift_isForTheSelectionWhileThereIsOne)
{
    showAt(coordinates(3000, 2000), 1.0);
    cursor().set(Pixel{100, 100});
    view->setSelection(wxRect(90, 90, 20, 20));
    typeKey(WXK_RIGHT, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(cursor().pixel(), (Pixel{100, 100}));
    EXPECT_GT(view->selection()->x, 90);
    view->setSelection({});
    typeKey(WXK_RIGHT, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(cursor().pixel(), (Pixel{110, 100}));
    EXPECT_FALSE(view->selection());
}

TEST_F(PixelCursorTest, viewScrollsAlongAtEveryScale)
{
    for (const double scale : {0.3, 1.0, 7.0, 100.0}) {
        if (view)
            view->Destroy();
        showAt(coordinates(3000, 2000), scale);
        typeKey(WXK_END, wxMOD_CONTROL);
        EXPECT_EQ(cursor().pixel(), (Pixel{2999, 1999}));
        expectInSight();
        typeKey(WXK_HOME, wxMOD_CONTROL);
        EXPECT_EQ(cursor().pixel(), (Pixel{0, 0}));
        expectInSight();
        cursor().set(Pixel{1500, -7});
        EXPECT_EQ(cursor().pixel(), (Pixel{1500, 0}));
        expectInSight();
    }
}

TEST_F(PixelCursorTest, frame_isDrawnAroundThePixelInTwoTones)
{
    showAt(coordinates(30, 20), 32.0);
    cursor().set(Pixel{12, 10});
    const wxRect area = cursor().area();
    EXPECT_EQ(area.GetSize(), wxSize(32, 32));
    EXPECT_EQ(shownAt(area.x, area.y), Tests::coordinate(12, 10)) << "the frame covers nothing of the pixel";
    EXPECT_EQ(shownAt(area.x - 1, area.y + 9), (RgbBytes{255, 255, 255}));
    EXPECT_EQ(shownAt(area.x - 2, area.y + 9), (RgbBytes{0, 0, 0}));
}

TEST_F(PixelCursorTest, anotherPicture_keepsThePixelIfThePlaceStays)
{
    showAt(coordinates(300, 200), 1.0);
    cursor().set(Pixel{250, 190});
    view->setPicture(coordinates(200, 100), true);
    EXPECT_EQ(cursor().pixel(), (Pixel{199, 99}));
    view->setPicture(coordinates(200, 100));
    EXPECT_FALSE(cursor().pixel());
    cursor().set(Pixel{1, 1});
    view->setPicture(nullptr, true);
    EXPECT_FALSE(cursor().pixel());
    cursor().move({1, 0});
    EXPECT_FALSE(cursor().pixel()) << "there is no picture";
}

TEST_F(PixelCursorTest, behindTheDivider_isThePixelOfTheSecondPictureInTheSamePlace)
{
    showAt(coordinates(300, 200), 1.0);
    Viewer::ReadImage read{Tests::placesAsFloats(100, 200, 1.0f)};
    read.origin = {150, 10};
    read.frameSize = Pixel{300, 200};
    const auto second = std::make_shared<const Viewer::Picture>(L"part", std::move(read), nullptr, 0);
    view->setComparison(second, 0.5f);
    cursor().set(Pixel{20, 30});
    EXPECT_EQ(cursor().shown()->picture, view->picture());
    EXPECT_EQ(cursor().shown()->pixel, (Pixel{20, 30}));
    cursor().set(Pixel{200, 30});
    EXPECT_EQ(cursor().shown()->picture, second);
    EXPECT_EQ(cursor().shown()->pixel, (Pixel{50, 20}));
    cursor().set(Pixel{280, 30});
    EXPECT_FALSE(cursor().shown()) << "beside the second picture";
}

TEST_F(PixelCursorTest, account_tellsThePixelAndItsValuesOrTheScale)
{
    showAt(std::make_shared<const Viewer::Picture>(L"places", Tests::placesAsFloats(64, 64, 1.0f)), 2.0);
    const Viewer::ViewAccount account(*view);
    EXPECT_EQ(account.name(), L"places");
    EXPECT_EQ(account.valueText(), L"200 %");
    cursor().set(Pixel{16, 32});
    EXPECT_EQ(account.valueText(), L"pixel 16, 32: 0.25, 0.5, 0.5, 0.75");
    cursor().set({});
    view->setDisplay(
        {.falseColor = Viewer::FalseColor::STOPS, .falseColorFrom = -2.0f, .falseColorTo = 3.5f});
    EXPECT_EQ(account.valueText(), L"200 %, false colour from 2^-2 to 2^3.5");
    view->setPicture(nullptr);
    EXPECT_EQ(account.name(), L"No picture");
    EXPECT_EQ(account.valueText(), L"");
}

TEST_F(PixelCursorTest, callbackThatDestroysTheView_isSurvived)
{
    showAt(coordinates(3000, 2000), 1.0);
    cursor().onChanged = [this] { Tests::destroyNow(view); };
    typeKey(WXK_END, wxMOD_CONTROL);
    EXPECT_FALSE(view);
}

TEST_F(PixelCursorTest, nextStateOfThePicture_leavesTheViewWhereTheUserMovedIt)
{
    showAt(coordinates(3000, 2000), 1.0);
    cursor().set(Pixel{10, 10});
    view->pan({-1500, -1000});
    const wxPoint place = view->transform().origin();
    changes = 0;
    view->setPicture(coordinates(3000, 2000), true);
    EXPECT_EQ(view->transform().origin(), place);
    EXPECT_EQ(cursor().pixel(), (Pixel{10, 10}));
    EXPECT_EQ(changes, 1) << "the values may be others";
}
