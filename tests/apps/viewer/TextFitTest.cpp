// SPDX-License-Identifier: MIT
// Looks for cut text in the viewer. tools/testing/looks.sh runs these tests with the themes, languages and
// fonts of several desktops.
#include "support/TextFit.h"

#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

struct ViewerTextFitTest : Tests::ViewerFixture
{
    void expectNoMisfits() const
    {
        Tests::pumpEvents(100);
        for (const wxString& misfit : Tests::misfitsIn(*frame))
            ADD_FAILURE() << misfit.utf8_str();
    }
};

} // namespace

TEST_F(ViewerTextFitTest, window_showsAllOfItsTexts)
{
    show(Tests::coordinates(400, 300));
    expectNoMisfits();
}

TEST_F(ViewerTextFitTest, optionsAndLog_areShownWithAllOfTheirTexts)
{
    show(Tests::coordinates(400, 300));
    Tests::findIn<Wx::CollapsiblePanel>(frame)->setCollapsed(false);
    frame->showLog(true);
    expectNoMisfits();
}

TEST_F(ViewerTextFitTest, smallPicture_leavesRoomForTheTexts)
{
    show(Tests::coordinates(4, 4));
    expectNoMisfits();
}
