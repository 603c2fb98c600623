// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerFrame.h"

#include "NolvexLibWx/widgets/GuiSkin.h"
#include "support/ViewerFixture.h"

#include <wx/uiaction.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::coordinate;
using Tests::coordinates;

using ViewerFrameTest = Tests::ViewerFixture;

TEST_F(ViewerFrameTest, smallPicture_standsInTheMiddle)
{
    show(coordinates(60, 40));
    const wxSize size = view->GetClientSize();
    const wxPoint origin((size.x - 60) / 2, (size.y - 40) / 2);
    const wxImage shown = Tests::captureClientArea(view);
    EXPECT_EQ(Tests::pixelAt(shown, origin.x, origin.y), coordinate(0, 0));
    EXPECT_EQ(Tests::pixelAt(shown, origin.x + 59, origin.y + 39), coordinate(59, 39));
    EXPECT_EQ(Tests::pixelAt(shown, origin.x - 1, origin.y), Wx::GuiSkin::DEFAULT().darkBackground);
    EXPECT_EQ(Tests::pixelAt(shown, origin.x, origin.y + 40), Wx::GuiSkin::DEFAULT().darkBackground);
}

TEST_F(ViewerFrameTest, largePicture_scrolls)
{
    show(coordinates(4000, 3000));
    view->showActualSize();
    view->scroll({4000, 3000});
    Tests::pumpEvents(200);
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(view), 0, 0), coordinate(0, 0));
    view->scroll({-640, -320});
    Tests::pumpEvents(200);
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(view), 3, 5), coordinate(643, 325));
}

TEST_F(ViewerFrameTest, pictureWiderThanTheWindowSystemDraws_isShown)
{
    show(coordinates(40000, 20));
    view->showActualSize();
    view->scroll({40000, 0});
    Tests::pumpEvents(200);
    const wxImage shown = Tests::captureClientArea(view);
    const int top = (view->GetClientSize().y - 20) / 2;
    EXPECT_EQ(Tests::pixelAt(shown, 7, top + 3), coordinate(7, 3));
}

TEST_F(ViewerFrameTest, picture_isFramedByTheBorder)
{
    show(coordinates(60, 40));
    wxWindow* border = view->GetParent();
    EXPECT_EQ(view->GetPosition(), wxPoint(2, 2));
    EXPECT_EQ(view->GetSize(), border->GetClientSize() - wxSize(4, 4));
    const wxImage shown = Tests::captureClientArea(border);
    EXPECT_EQ(Tests::pixelAt(shown, 0, 0), (RgbBytes{54, 54, 54}));
    EXPECT_EQ(Tests::pixelAt(shown, 5, shown.GetHeight() - 1), (RgbBytes{85, 85, 85}));
}

TEST_F(ViewerFrameTest, escape_closesTheWindow)
{
    show(coordinates(60, 40));
    focus(view);
    bool closed = false;
    frame->Bind(wxEVT_DESTROY, [&](wxWindowDestroyEvent& event) {
        closed = closed || event.GetEventObject() == frame;
        event.Skip();
    });
    wxUIActionSimulator().Char(WXK_ESCAPE);
    EXPECT_TRUE(Tests::pumpUntil([&] { return closed; }));
    frame = nullptr;
}
