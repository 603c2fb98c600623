// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "support/ViewerFixture.h"

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
