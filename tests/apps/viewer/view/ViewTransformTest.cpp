// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ViewTransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using Nolvex::Pixel;
using Nolvex::Viewer::ViewTransform;
using Mode = ViewTransform::Mode;

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();
const double NAN_VALUE = std::nan("");

ViewTransform made(const wxSize& view, const Pixel& picture)
{
    ViewTransform transform;
    transform.setViewSize(view);
    transform.setPictureSize(picture);
    return transform;
}

void expectNear(const wxRealPoint& one, const wxRealPoint& other, double distance)
{
    EXPECT_NEAR(one.x, other.x, distance);
    EXPECT_NEAR(one.y, other.y, distance);
}

// The part of the picture at a point before the place is rounded to whole pixels lies at most this far away.
double rounding(const ViewTransform& transform)
{
    return 1.0 / transform.scale();
}

bool isOverThePicture(const ViewTransform& transform)
{
    const wxRealPoint size = transform.shownSize();
    const wxPoint origin = transform.origin();
    const wxRealPoint middle = transform.middle();
    return origin.x <= middle.x && origin.y <= middle.y && origin.x + size.x + 1 >= middle.x &&
           origin.y + size.y + 1 >= middle.y;
}

} // namespace

TEST(ViewTransformTest, newPicture_isShownWholeButNotEnlarged)
{
    const ViewTransform small = made({400, 300}, {100, 50});
    EXPECT_EQ(small.scale(), 1.0);
    EXPECT_EQ(small.origin(), wxPoint(150, 125));
    const ViewTransform large = made({400, 300}, {1600, 600});
    EXPECT_EQ(large.scale(), 0.25);
    EXPECT_EQ(large.origin(), wxPoint(0, 75));
}

TEST(ViewTransformTest, automaticMode_followsTheSizeOfTheView)
{
    ViewTransform transform = made({400, 300}, {400, 300});
    transform.setViewSize({200, 300});
    EXPECT_EQ(transform.scale(), 0.5);
    transform.setViewSize({800, 800});
    EXPECT_EQ(transform.scale(), 1.0);
    EXPECT_EQ(transform.origin(), wxPoint(200, 250));
}

TEST(ViewTransformTest, fit_enlargesAndFollowsTheSizeOfTheView)
{
    ViewTransform transform = made({400, 300}, {100, 50});
    transform.setMode(Mode::FIT);
    EXPECT_EQ(transform.scale(), 4.0);
    EXPECT_EQ(transform.origin(), wxPoint(0, 50));
    transform.setViewSize({200, 300});
    EXPECT_EQ(transform.scale(), 2.0);
}

TEST(ViewTransformTest, zoomAt_keepsThePointUnderThePointer)
{
    ViewTransform transform = made({1000, 800}, {4000, 3000});
    const wxRealPoint pointer(733.0, 210.0);
    const wxRealPoint before = transform.toPicture(pointer);
    for (int i = 0; i < 40; ++i) {
        transform.zoomAt(pointer, 1.19);
        expectNear(transform.toPicture(pointer), before, 4.0 * rounding(transform));
    }
    for (int i = 0; i < 20; ++i)
        transform.zoomAt(pointer, 1.0 / 1.19);
    expectNear(transform.toPicture(pointer), before, 4.0 * rounding(transform));
}

TEST(ViewTransformTest, zoomOverOneToOne_stopsThere)
{
    ViewTransform transform = made({1000, 800}, {1700, 1300});
    ASSERT_LT(transform.scale(), 1.0);
    transform.zoomAt({10.0, 10.0}, 4.0);
    EXPECT_EQ(transform.scale(), 1.0);
    transform.zoomAt({10.0, 10.0}, 4.0);
    EXPECT_EQ(transform.scale(), 4.0);
    transform.zoomAt({10.0, 10.0}, 0.1);
    EXPECT_EQ(transform.scale(), 1.0);
    transform.zoomAt({10.0, 10.0}, 0.1);
    EXPECT_DOUBLE_EQ(transform.scale(), 0.1);
}

TEST(ViewTransformTest, mapping_leadsBackToThePoint)
{
    ViewTransform transform = made({1000, 800}, {30000, 30000});
    for (const double scale : {0.01, 0.37, 1.0, 3.3, 256.0}) {
        transform.setScale(scale, {400.0, 300.0});
        const wxRealPoint point(123.0, 456.0);
        expectNear(transform.toView(transform.toPicture(point)), point, 1e-6);
    }
}

TEST(ViewTransformTest, pan_movesThePictureButNeverLosesIt)
{
    for (const Pixel& size : {Pixel{1, 1}, Pixel{1, 30000}, Pixel{30000, 30000}, Pixel{300, 200}}) {
        for (const double scale : {ViewTransform::MIN_SCALE, 0.37, 1.0, ViewTransform::MAX_SCALE}) {
            ViewTransform transform = made({1000, 800}, size);
            transform.setScale(scale, transform.middle());
            for (const wxRealPoint& distance :
                 {wxRealPoint(1e12, 1e12), wxRealPoint(-1e300, 5.0), wxRealPoint(3.0, -1e300)}) {
                transform.pan(distance);
                EXPECT_TRUE(isOverThePicture(transform)) << size.x << " x " << size.y << " at " << scale;
            }
        }
    }
    ViewTransform transform = made({1000, 800}, {2000, 2000});
    transform.setScale(1.0, transform.middle());
    const wxPoint before = transform.origin();
    transform.pan({-30.0, 12.0});
    EXPECT_EQ(transform.origin(), before + wxPoint(-30, 12));
}

TEST(ViewTransformTest, scroll_endsAtTheEdges)
{
    ViewTransform transform = made({100, 100}, {300, 50});
    transform.setScale(1.0, {50.0, 50.0});
    EXPECT_EQ(transform.origin(), wxPoint(-100, 25));
    transform.scroll({1000.0, 1000.0});
    EXPECT_EQ(transform.origin(), wxPoint(0, 25)) << "the whole height can be seen";
    transform.scroll({-1000.0, 0.0});
    EXPECT_EQ(transform.origin(), wxPoint(-200, 25));
    transform.scroll({16.0, 0.0});
    EXPECT_EQ(transform.origin(), wxPoint(-184, 25));
}

TEST(ViewTransformTest, scrollOfAPictureBesideItsEdges_doesNotJump)
{
    ViewTransform transform = made({100, 100}, {300, 300});
    transform.setScale(1.0, {50.0, 50.0});
    transform.pan({1000.0, 0.0});
    ASSERT_EQ(transform.origin().x, 50);
    transform.scroll({16.0, 0.0});
    EXPECT_EQ(transform.origin().x, 50);
    transform.scroll({-16.0, 0.0});
    EXPECT_EQ(transform.origin().x, 34);
}

TEST(ViewTransformTest, scrollWithoutEffect_keepsTheMode)
{
    ViewTransform transform = made({100, 100}, {30, 30});
    transform.scroll({16.0, 16.0});
    EXPECT_EQ(transform.mode(), Mode::AUTOMATIC);
}

TEST(ViewTransformTest, viewOfAnotherSize_keepsTheMiddle)
{
    ViewTransform transform = made({100, 100}, {3000, 3000});
    transform.setScale(1.0, {13.0, 77.0});
    const wxRealPoint before = transform.toPicture(transform.middle());
    transform.setViewSize({640, 480});
    EXPECT_EQ(transform.scale(), 1.0);
    expectNear(transform.toPicture(transform.middle()), before, 1.0);
}

TEST(ViewTransformTest, replacedPicture_keepsScaleAndPlace)
{
    ViewTransform transform = made({100, 100}, {3000, 2000});
    transform.setScale(2.0, {13.0, 77.0});
    const ViewTransform before = transform;
    transform.replacePictureSize({3000, 2000});
    EXPECT_EQ(transform.origin(), before.origin());
    EXPECT_EQ(transform.scale(), 2.0);
    const wxRealPoint middle = before.toPicture(before.middle());
    transform.replacePictureSize({1500, 4000});
    EXPECT_EQ(transform.scale(), 2.0);
    expectNear(transform.toPicture(transform.middle()), {middle.x / 2.0, middle.y * 2.0}, 1.0);
}

TEST(ViewTransformTest, replacedPictureInTheAutomaticMode_isShownWhole)
{
    ViewTransform transform = made({100, 100}, {200, 100});
    transform.replacePictureSize({1000, 1000});
    EXPECT_EQ(transform.scale(), 0.1);
    transform.replacePictureSize({0, 0});
    transform.replacePictureSize({10, 10});
    EXPECT_EQ(transform.scale(), 1.0);
    EXPECT_EQ(transform.origin(), wxPoint(45, 45));
}

TEST(ViewTransformTest, numbersThatAreNone_changeNothing)
{
    ViewTransform transform = made({100, 100}, {300, 300});
    transform.setScale(2.0, {10.0, 10.0});
    const ViewTransform before = transform;
    for (const double bad : {INF, -INF, NAN_VALUE}) {
        transform.setScale(bad, {10.0, 10.0});
        transform.setScale(3.0, {bad, 10.0});
        transform.zoomAt({10.0, 10.0}, bad);
        transform.zoomAt({10.0, bad}, 2.0);
        transform.pan({bad, 1.0});
        transform.scroll({1.0, bad});
    }
    transform.zoomAt({10.0, 10.0}, 0.0);
    transform.zoomAt({10.0, 10.0}, -2.0);
    EXPECT_EQ(transform, before);
}

TEST(ViewTransformTest, scale_isLimited)
{
    ViewTransform transform = made({100, 100}, {30000, 30000});
    transform.setScale(1e300, {50.0, 50.0});
    EXPECT_EQ(transform.scale(), ViewTransform::MAX_SCALE);
    transform.setScale(1e-300, {50.0, 50.0});
    EXPECT_EQ(transform.scale(), ViewTransform::MIN_SCALE);
    EXPECT_EQ(made({100, 100}, {1, 1}).scale(), 1.0);
    EXPECT_DOUBLE_EQ(made({1000, 600}, {1, 30000}).scale(), 0.02);
}

TEST(ViewTransformTest, thinPicture_staysInTheMiddleAtAnyScale)
{
    ViewTransform transform = made({101, 101}, {30000, 3});
    transform.setScale(20.0, transform.middle());
    EXPECT_EQ(transform.origin().y, 20); // (101 - 60) / 2
}

TEST(ViewTransformTest, nothingToShow_isSurvived)
{
    ViewTransform transform;
    transform.zoomAt({1.0, 1.0}, 2.0);
    transform.pan({5.0, 5.0});
    transform.setViewSize({-5, 100});
    EXPECT_EQ(transform.viewSize(), wxSize(0, 100));
    transform.setPictureSize({100, 100});
    EXPECT_EQ(transform.scale(), ViewTransform::MIN_SCALE);
    transform.setViewSize({200, 200});
    EXPECT_EQ(transform.scale(), 1.0);
}
