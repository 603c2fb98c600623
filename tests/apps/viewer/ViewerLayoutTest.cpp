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

TEST_F(ViewerLayoutTest, wholePicture_isShownWithoutScrollBars)
{
    EXPECT_FALSE(view->HasScrollbar(wxHORIZONTAL));
    EXPECT_FALSE(view->HasScrollbar(wxVERTICAL));
}

TEST_F(ViewerLayoutTest, optionsThatTakeHeight_forceNoHorizontalScrollBar)
{
    Tests::findIn<Wx::CollapsiblePanel>(frame)->setCollapsed(false);
    EXPECT_TRUE(Tests::pumpUntil([&] { return view->HasScrollbar(wxVERTICAL); }));
    Tests::pumpEvents(100);
    EXPECT_FALSE(view->HasScrollbar(wxHORIZONTAL));
}
