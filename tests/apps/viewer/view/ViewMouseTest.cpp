// SPDX-License-Identifier: MIT
// Tests a view by the mouse, the wheel and pinches.
#include "apps/viewer/view/ViewMouse.h"

#include "NolvexLibWx/DpiScaling.h"
#include "support/TouchPad.h"
#include "support/ViewFixture.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::coordinates;
using Tests::pumpUntil;

using ViewMouseTest = Tests::ViewFixture;

TEST_F(ViewMouseTest, wheel_zoomsAtThePointer)
{
    show(coordinates(3000, 2000));
    const wxPoint pointer(221, 45);
    const Pixel before = pixelUnder(pointer);
    for (int i = 0; i < 20; ++i)
        turnWheel(120, false, wxMOUSE_WHEEL_VERTICAL, pointer);
    EXPECT_GT(view->scale(), 1.0);
    const Pixel now = pixelUnder(pointer);
    EXPECT_NEAR(now.x, before.x, 10); // a pixel of the reduced picture
    EXPECT_NEAR(now.y, before.y, 10);
    EXPECT_EQ(viewChanges, 20);
    const double enlarged = view->scale();
    turnWheel(-120, false, wxMOUSE_WHEEL_VERTICAL, pointer);
    EXPECT_LT(view->scale(), enlarged);
}

TEST_F(ViewMouseTest, finelyDividedTurns_zoomAsFarAsAWholeOne)
{
    show(coordinates(3000, 2000));
    view->setScale(2.0);
    for (int i = 0; i < 8; ++i)
        turnWheel(15);
    const double inParts = view->scale();
    view->setScale(2.0);
    turnWheel(120);
    EXPECT_NEAR(inParts, view->scale(), 1e-9);
}

TEST_F(ViewMouseTest, wheelWithShiftOrTurnedSideways_scrolls)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    const wxPoint place = view->pictureArea().GetTopLeft();
    turnWheel(120, true);
    EXPECT_GT(view->pictureArea().x, place.x);
    turnWheel(-120, true);
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place);
    turnWheel(120, false, wxMOUSE_WHEEL_HORIZONTAL);
    EXPECT_LT(view->pictureArea().x, place.x);
    EXPECT_EQ(view->pictureArea().y, place.y);
    EXPECT_EQ(view->scale(), 1.0);
}

TEST_F(ViewMouseTest, pinch_zooms)
{
    show(coordinates(3000, 2000));
    const double before = view->scale();
    if (!Tests::pinchTouchPad(view, {1.2, 1.5}))
        GTEST_SKIP() << "This system has no such events.";
    EXPECT_TRUE(pumpUntil([&] { return view->scale() > before; }));
    Tests::pinchTouchPad(view, {0.8, 0.5});
    EXPECT_TRUE(pumpUntil([&] { return std::abs(view->scale() - before) < 1e-9; }));
}

TEST_F(ViewMouseTest, drag_movesThePicture)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    const wxPoint place = view->pictureArea().GetTopLeft();
    const Pixel grabbed = pixelUnder({100, 100});
    drag({100, 100}, {160, 70});
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place + wxPoint(60, -30));
    EXPECT_EQ(pixelUnder({160, 70}), grabbed) << "the pixel stays under the pointer";
    Tests::moveMouse(view, {30, 30});
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place + wxPoint(60, -30)) << "the button is up";
}

TEST_F(ViewMouseTest, dragWithTheMiddleButton_movesThePicture)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    const wxPoint place = view->pictureArea().GetTopLeft();
    Tests::moveMouse(view, {100, 100});
    wxUIActionSimulator().MouseDown(wxMOUSE_BTN_MIDDLE);
    Tests::pumpEvents();
    Tests::moveMouse(view, {110, 110});
    Tests::moveMouse(view, {120, 140});
    wxUIActionSimulator().MouseUp(wxMOUSE_BTN_MIDDLE);
    Tests::pumpEvents();
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place + wxPoint(20, 40));
}

TEST_F(ViewMouseTest, dragBeyondTheView_goesOn)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    const wxPoint place = view->pictureArea().GetTopLeft();
    drag({50, 50}, {-30, 50});
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place + wxPoint(-80, 0));
}

TEST_F(ViewMouseTest, lostCapture_endsTheDrag)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    dragTo({100, 100}, {120, 100});
    ASSERT_EQ(wxWindow::GetCapture(), view);
    const wxPoint place = view->pictureArea().GetTopLeft();
    wxMouseCaptureLostEvent lost(view->GetId());
    lost.SetEventObject(view);
    view->ProcessWindowEvent(lost);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::moveMouse(view, {200, 150});
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place);
    Tests::releaseMouse();
    drag({100, 100}, {130, 100});
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place + wxPoint(30, 0)) << "and the next drag works";
}

TEST_F(ViewMouseTest, hiddenDuringADrag_letsTheMouseGo)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    dragTo({100, 100}, {120, 100});
    view->Hide();
    Tests::pumpEvents(100);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
}

TEST_F(ViewMouseTest, otherButtonDuringADrag_doesNotEndIt)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    const wxPoint place = view->pictureArea().GetTopLeft();
    dragTo({100, 100}, {120, 100});
    wxUIActionSimulator().MouseClick(wxMOUSE_BTN_MIDDLE);
    Tests::pumpEvents();
    Tests::moveMouse(view, {140, 100});
    EXPECT_EQ(view->pictureArea().GetTopLeft(), place + wxPoint(40, 0));
    Tests::releaseMouse();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ViewMouseTest, doubleClick_changesBetweenTheViewAndOneToOne)
{
    show(coordinates(3000, 2000));
    const wxPoint pointer(210, 60);
    const double fitted = view->scale();
    const Pixel before = pixelUnder(pointer);
    Tests::moveMouse(view, pointer);
    wxUIActionSimulator().MouseDblClick();
    ASSERT_TRUE(pumpUntil([&] { return view->scale() == 1.0; }));
    EXPECT_NEAR(pixelUnder(pointer).x, before.x, 10);
    EXPECT_NEAR(pixelUnder(pointer).y, before.y, 10);
    Tests::pumpEvents(1000); // not to become a triple click
    wxUIActionSimulator().MouseDblClick();
    EXPECT_TRUE(pumpUntil([&] { return view->scale() == fitted; }));
}

TEST_F(ViewMouseTest, dragWithShift_selectsPixels)
{
    show(coordinates(3000, 2000));
    view->setScale(4.0);
    const wxPoint from(100, 40);
    const wxPoint to(181, 123);
    const Pixel first = pixelUnder(from);
    const Pixel last = pixelUnder(to);
    const wxRect expected(first.x, first.y, last.x - first.x + 1, last.y - first.y + 1);
    const wxRect place = view->pictureArea();
    shiftDrag(from, to);
    ASSERT_TRUE(view->selection());
    EXPECT_EQ(*view->selection(), expected);
    EXPECT_EQ(view->pictureArea(), place) << "the picture stays";
    ASSERT_EQ(selections.size(), 1u) << "told at the end";
    EXPECT_EQ(selections[0], expected);
    shiftDrag(to, from);
    EXPECT_EQ(*view->selection(), expected) << "in the other direction";
    EXPECT_EQ(selections.size(), 1u) << "nothing has changed";
}

TEST_F(ViewMouseTest, selectionBesideThePicture_endsAtItsEdge)
{
    show(coordinates(20, 10));
    view->setScale(4.0);
    shiftDrag(view->pictureArea().GetTopLeft() + wxPoint(6, 6), {WIDTH + 20, HEIGHT + 20});
    ASSERT_TRUE(view->selection());
    EXPECT_EQ(*view->selection(), wxRect(1, 1, 19, 9));
}

TEST_F(ViewMouseTest, click_clearsTheSelection)
{
    show(coordinates(3000, 2000));
    view->setSelection(wxRect(5, 5, 10, 10));
    Tests::clickAt(view, {100, 100});
    EXPECT_FALSE(view->selection());
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_FALSE(selections[0]);
    view->setSelection(wxRect(5, 5, 10, 10));
    drag({100, 100}, {140, 100});
    EXPECT_TRUE(view->selection()) << "a drag keeps the selection";
    shiftDrag({100, 100}, {100, 100});
    EXPECT_FALSE(view->selection());
}

TEST_F(ViewMouseTest, lostCaptureOfASelection_takesItBack)
{
    show(coordinates(3000, 2000));
    view->setSelection(wxRect(5, 5, 10, 10));
    wxUIActionSimulator().KeyDown(WXK_SHIFT);
    dragTo({100, 100}, {150, 150});
    EXPECT_NE(view->selection(), Optional<wxRect>(wxRect(5, 5, 10, 10)));
    wxMouseCaptureLostEvent lost(view->GetId());
    lost.SetEventObject(view);
    view->ProcessWindowEvent(lost);
    EXPECT_EQ(view->selection(), Optional<wxRect>(wxRect(5, 5, 10, 10)));
    EXPECT_TRUE(selections.empty());
    Tests::releaseMouse();
    wxUIActionSimulator().KeyUp(WXK_SHIFT);
}

TEST_F(ViewMouseTest, divider_isDragged)
{
    show(coordinates(300, 200));
    view->setComparison(coordinates(300, 200), 0.5f);
    const wxRect place = view->pictureArea();
    drag({150, 100}, {240, 30});
    EXPECT_FLOAT_EQ(view->divider(), 0.8f);
    ASSERT_FALSE(dividers.empty());
    EXPECT_FLOAT_EQ(dividers.back(), 0.8f);
    EXPECT_EQ(view->pictureArea(), place);
    drag({240, 30}, {WIDTH + 50, 30});
    EXPECT_EQ(view->divider(), 1.0f);
    drag({WIDTH - 1, 30}, {-50, 30});
    EXPECT_EQ(view->divider(), 0.0f);
    view->setComparison(nullptr, 0.0f);
    drag({0, 30}, {50, 30});
    EXPECT_EQ(view->divider(), 0.0f) << "without a comparison there is nothing to drag";
}

TEST_F(ViewMouseTest, nothingToShow_isSurvived)
{
    show(nullptr);
    drag({100, 100}, {140, 120});
    shiftDrag({100, 100}, {140, 120});
    turnWheel(120);
    turnWheel(120, true);
    Tests::moveMouse(view, {60, 60});
    wxUIActionSimulator().MouseDblClick();
    Tests::pumpEvents();
    EXPECT_FALSE(view->selection());
    EXPECT_FALSE(view->pixelAt({100, 100}));
}

TEST_F(ViewMouseTest, callbackThatDestroysTheViewDuringADrag_isSurvived)
{
    show(coordinates(3000, 2000));
    view->showActualSize();
    view->onViewChanged = [this] { view->Destroy(); };
    dragTo({100, 100}, {140, 100});
    EXPECT_TRUE(pumpUntil([&] { return view == nullptr; }));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
}

TEST_F(ViewMouseTest, callbackThatDestroysTheViewAtTheWheel_isSurvived)
{
    show(coordinates(3000, 2000));
    view->onViewChanged = [this] { view->Destroy(); };
    turnWheel(120);
    EXPECT_TRUE(pumpUntil([&] { return view == nullptr; }));
}

TEST_F(ViewMouseTest, callbackThatDestroysTheViewAfterASelection_isSurvived)
{
    show(coordinates(3000, 2000));
    view->onSelection = [this](const Optional<wxRect>&) { view->Destroy(); };
    shiftDrag({100, 100}, {140, 130});
    EXPECT_TRUE(pumpUntil([&] { return view == nullptr; }));
}

TEST_F(ViewMouseTest, callbackThatDestroysTheViewWithItsDivider_isSurvived)
{
    show(coordinates(3000, 2000));
    view->setComparison(coordinates(30, 20), 0.5f);
    view->onDividerMoved = [this](float) { view->Destroy(); };
    dragTo({150, 100}, {200, 100});
    EXPECT_TRUE(pumpUntil([&] { return view == nullptr; }));
    Tests::releaseMouse();
}
