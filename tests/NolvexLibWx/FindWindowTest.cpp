// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FindWindow.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/NativeWindows.h"
#include "support/FrameFixture.h"

#include <wx/dialog.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::findWindowByPosition;
using Wx::FindWindowFlag;

namespace {

wxPanel* addPanel(wxWindow* parent, const wxRect& rect)
{
    return new wxPanel(parent, wxID_ANY, rect.GetTopLeft(), rect.GetSize());
}

/// A frame filled by a panel of 400 by 300 pixels.
struct FindWindowTest : Tests::FrameFixture
{
    FindWindowTest()
    {
        frame->SetClientSize(400, 300);
        // When the panel has been painted, the window manager has placed the frame, and the rectangles no
        // longer change.
        showFrame();
        EXPECT_TRUE(Tests::pumpUntil([this] { return panel->GetSize() == wxSize(400, 300); }));
    }

    Pixel onScreen(int x, int y) const { return Wx::toPixel(panel->ClientToScreen(wxPoint(x, y))); }
};

} // namespace

TEST_F(FindWindowTest, byPosition_findsTheDeepestWindow)
{
    wxPanel* outer = addPanel(panel, {20, 20, 200, 200});
    wxPanel* inner = addPanel(outer, {30, 30, 50, 50});
    wxPanel* innermost = addPanel(inner, {10, 10, 10, 10});
    EXPECT_EQ(findWindowByPosition(panel, onScreen(65, 65), {}), innermost);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(55, 55), {}), inner);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(25, 25), {}), outer);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(5, 5), {}), panel);
    EXPECT_EQ(findWindowByPosition(frame, onScreen(65, 65), {}), innermost);
}

TEST_F(FindWindowTest, byPosition_takesRectanglesHalfOpen)
{
    wxPanel* child = addPanel(panel, {20, 20, 40, 40});
    EXPECT_EQ(findWindowByPosition(panel, onScreen(20, 20), {}), child);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(59, 59), {}), child);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(60, 59), {}), panel);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(19, 20), {}), panel);
}

TEST_F(FindWindowTest, byPosition_outsideEverything_isNull)
{
    addPanel(panel, {20, 20, 40, 40});
    EXPECT_EQ(findWindowByPosition(panel, onScreen(-200, -200), {}), nullptr);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(400, 10), {}), nullptr);
}

TEST_F(FindWindowTest, byPosition_nullRoot_isNull)
{
    EXPECT_EQ(findWindowByPosition(nullptr, {0, 0}, {}), nullptr);
}

TEST_F(FindWindowTest, byPosition_outsideTheRoot_findsAChildThatReachesThere)
{
    wxPanel* root = addPanel(panel, {20, 20, 100, 100});
    wxPanel* child = addPanel(root, {80, 80, 100, 100});
    EXPECT_EQ(findWindowByPosition(root, onScreen(150, 150), {}), child);
}

TEST_F(FindWindowTest, byPosition_overlappingSiblings_theFirstInTheListWins)
{
    wxPanel* first = addPanel(panel, {20, 20, 100, 100});
    wxPanel* second = addPanel(panel, {60, 60, 100, 100});
    EXPECT_EQ(findWindowByPosition(panel, onScreen(80, 80), {}), first);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(140, 140), {}), second);
}

TEST_F(FindWindowTest, byPosition_firstSiblingWins_overTheSecondOnesChildren)
{
    wxPanel* first = addPanel(panel, {20, 20, 100, 100});
    wxPanel* second = addPanel(panel, {20, 20, 100, 100});
    addPanel(second, {0, 0, 100, 100});
    EXPECT_EQ(findWindowByPosition(panel, onScreen(50, 50), {}), first);
}

TEST_F(FindWindowTest, byPosition_hiddenParent_hidesItsSubtree)
{
    wxPanel* parent = addPanel(panel, {20, 20, 100, 100});
    wxPanel* child = addPanel(parent, {10, 10, 50, 50});
    parent->Hide();
    ASSERT_TRUE(child->IsShown());
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), {}), panel);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), FindWindowFlag::INCLUDE_DISABLED), panel);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), FindWindowFlag::INCLUDE_HIDDEN), child);
}

TEST_F(FindWindowTest, byPosition_disabledParent_hidesItsSubtree)
{
    wxPanel* parent = addPanel(panel, {20, 20, 100, 100});
    wxPanel* child = addPanel(parent, {10, 10, 50, 50});
    parent->Disable();
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), {}), panel);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), FindWindowFlag::INCLUDE_HIDDEN), panel);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), FindWindowFlag::INCLUDE_DISABLED), child);
}

TEST_F(FindWindowTest, byPosition_hiddenAndDisabled_needsBothFlags)
{
    wxPanel* child = addPanel(panel, {20, 20, 100, 100});
    child->Disable();
    child->Hide();
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), FindWindowFlag::INCLUDE_HIDDEN), panel);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40), FindWindowFlag::INCLUDE_DISABLED), panel);
    EXPECT_EQ(findWindowByPosition(panel, onScreen(40, 40),
                                   {FindWindowFlag::INCLUDE_HIDDEN, FindWindowFlag::INCLUDE_DISABLED}),
              child);
}

TEST_F(FindWindowTest, byPosition_hiddenRoot_isNoResult)
{
    wxPanel* child = addPanel(panel, {20, 20, 100, 100});
    child->Hide();
    EXPECT_EQ(findWindowByPosition(child, onScreen(40, 40), {}), nullptr);
}

TEST_F(FindWindowTest, flags_haveTheirBits)
{
    EXPECT_EQ(Flags<FindWindowFlag>(FindWindowFlag::INCLUDE_HIDDEN).bits(), 1u);
    EXPECT_EQ(Flags<FindWindowFlag>(FindWindowFlag::INCLUDE_DISABLED).bits(), 2u);
}

TEST_F(FindWindowTest, byNativeHandle_findsAnyWindowOfTheTree)
{
    wxPanel* child = addPanel(panel, {20, 20, 100, 100});
    wxPanel* hidden = addPanel(child, {10, 10, 50, 50});
    hidden->Hide();
    hidden->Disable();
    for (wxWindow* window :
         {static_cast<wxWindow*>(panel), static_cast<wxWindow*>(child), static_cast<wxWindow*>(hidden)})
        EXPECT_EQ(Wx::findWindowByNativeHandle(panel, Wx::getWindowNativeHandle(window)), window);
}

TEST_F(FindWindowTest, byNativeHandle_ofNoneOrOutsideTheTree_isNull)
{
    wxPanel* child = addPanel(panel, {20, 20, 100, 100});
    EXPECT_EQ(Wx::findWindowByNativeHandle(panel, {}), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(child, Wx::getWindowNativeHandle(panel)), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(nullptr, Wx::getWindowNativeHandle(panel)), nullptr);
}

TEST_F(FindWindowTest, byNativeHandle_null_doesNotFindAWindowNotYetCreated)
{
    auto* blank = new wxFrame;
    EXPECT_EQ(Wx::findWindowByNativeHandle(blank, {}), nullptr);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle({}), nullptr);
    delete blank;
}

TEST_F(FindWindowTest, topLevelForNativeHandle_findsFramesAndDialogs)
{
    auto* dialog = new wxDialog(frame, wxID_ANY, "dialog");
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(Wx::getWindowNativeHandle(frame)), frame.get());
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(Wx::getWindowNativeHandle(dialog)), dialog);
}

TEST_F(FindWindowTest, topLevelForNativeHandle_ofAChildOrNone_isNull)
{
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(Wx::getWindowNativeHandle(panel)), nullptr);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle({}), nullptr);
}

TEST_F(FindWindowTest, topMostParent_followsParentsToTheEnd)
{
    auto* dialog = new wxDialog(frame, wxID_ANY, "dialog");
    wxPanel* inner = addPanel(dialog, {0, 0, 10, 10});
    EXPECT_EQ(Wx::topMostParent(inner), frame.get());
    EXPECT_EQ(Wx::topMostParent(panel), frame.get());
    EXPECT_EQ(Wx::topMostParent(frame), frame.get());
    EXPECT_EQ(Wx::topMostParent(nullptr), nullptr);
}
