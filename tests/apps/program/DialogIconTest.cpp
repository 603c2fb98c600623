// SPDX-License-Identifier: MIT
#include "apps/program/DialogIcon.h"

#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/WindowIcon.h"
#include "support/FrameFixture.h"

#include <wx/bitmap.h>
#include <wx/icon.h>

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

struct DialogIconTest : Tests::FrameFixture
{
    ~DialogIconTest() override { Wx::MessageDialog::overrideFrameIcon({}); }

    static bool hasDialogAnIcon()
    {
        const Wx::MessageDialogControl* const controls[] = {&Wx::MessageDialogControl::FRAME_ICON};
        const Wx::MessageDialog dialog({}, L"Title", L"Message", Wx::MessageDialogIcon::NONE, controls);
        return !dialog.GetIcons().IsEmpty() && dialog.GetIcons().GetIconByIndex(0).IsOk();
    }
};

} // namespace

TEST_F(DialogIconTest, iconOfTheWindow_isShownByDialogs)
{
    Wx::setZephraIcon(frame);
    EXPECT_FALSE(hasDialogAnIcon());
    Program::useIconInDialogs(*frame);
    EXPECT_TRUE(hasDialogAnIcon());
}

TEST_F(DialogIconTest, windowWithoutAnIcon_changesNothing)
{
    Program::useIconInDialogs(*frame);
    EXPECT_FALSE(hasDialogAnIcon());
}
