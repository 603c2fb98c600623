// SPDX-License-Identifier: MIT
#include "apps/viewer/OpenMenus.h"

#include "support/FrameFixture.h"

#include <wx/menu.h>

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

struct OpenMenusTest : Tests::FrameFixture
{
    Viewer::OpenMenus menus{*frame};
    wxMenu menu;

    // The frame refers to the members.
    ~OpenMenusTest() override { destroyFrame(); }

    void send(wxEventType type)
    {
        wxMenuEvent event(type, 0, &menu);
        frame->GetEventHandler()->ProcessEvent(event);
    }
};

} // namespace

TEST_F(OpenMenusTest, menu_isOpenUntilItCloses)
{
    EXPECT_FALSE(menus.isAnyOpen());
    send(wxEVT_MENU_OPEN);
    EXPECT_TRUE(menus.isAnyOpen());
    send(wxEVT_MENU_CLOSE);
    EXPECT_FALSE(menus.isAnyOpen());
}

TEST_F(OpenMenusTest, submenu_isOneMore)
{
    send(wxEVT_MENU_OPEN);
    send(wxEVT_MENU_OPEN);
    send(wxEVT_MENU_CLOSE);
    EXPECT_TRUE(menus.isAnyOpen());
    send(wxEVT_MENU_CLOSE);
    EXPECT_FALSE(menus.isAnyOpen());
}

TEST_F(OpenMenusTest, closeWithoutOpen_countsForNothing)
{
    send(wxEVT_MENU_CLOSE);
    send(wxEVT_MENU_OPEN);
    EXPECT_TRUE(menus.isAnyOpen());
}

TEST_F(OpenMenusTest, events_goOnToOthers)
{
    int seen = 0;
    frame->wxEvtHandler::Bind(wxEVT_MENU_OPEN, [&seen](wxMenuEvent&) { ++seen; });
    Viewer::OpenMenus later(*frame);
    send(wxEVT_MENU_OPEN);
    EXPECT_EQ(seen, 1);
    EXPECT_TRUE(later.isAnyOpen());
}
