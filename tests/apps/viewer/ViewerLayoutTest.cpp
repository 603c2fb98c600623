// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/PicturesPanel.h"
#include "support/ViewerFixture.h"

#include <wx/sizer.h>

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

struct ViewerLayoutTest : Tests::ViewerFixture
{
    ViewerLayoutTest() { show(Tests::coordinates(600, 400)); }
};

} // namespace

TEST_F(ViewerLayoutTest, wholePicture_isShownInItsOwnSize)
{
    EXPECT_EQ(view->scale(), 1.0);
    EXPECT_TRUE(wxRect(view->GetClientSize()).Contains(view->pictureArea()));
}

TEST_F(ViewerLayoutTest, optionsThatTakeHeight_leaveTheWholePictureInView)
{
    Tests::findIn<Wx::CollapsiblePanel>(frame)->setCollapsed(false);
    EXPECT_TRUE(Tests::pumpUntil([&] { return view->scale() < 1.0; }));
    Tests::pumpEvents(100);
    EXPECT_TRUE(wxRect(view->GetClientSize()).Contains(view->pictureArea()));
}

TEST_F(ViewerLayoutTest, sizeOfAnOlderEvent_leavesThePanelsTheirLeastSizes)
{
    frame->openPictures({Tests::testPicture(L"pattern.png"), Tests::testPicture(L"pattern.bmp")});
    command(Viewer::Command::SHOW_LOG);
    auto* const list = Tests::findIn<Viewer::PicturesPanel>(frame);
    ASSERT_TRUE(list->IsShown());
    const wxSize least = list->GetSizer()->CalcMin();
    list->GetParent()->SetSize(wxSize(100, 60));
    EXPECT_GE(list->GetSize().x, least.x);
    EXPECT_GE(list->GetSize().y, least.y);
}
