// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/c/Nolvex.h"
#include "support/Events.h"
#include "support/FrameFixture.h"
#include "support/MessageDialogDriver.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::MessageDialogDriver;

namespace {

struct CDialogsTest : Tests::FrameFixture
{
    CDialogsTest() { showFrame(); }

    NolvexStatus ask(NolvexButtons buttons, int key) const
    {
        const MessageDialogDriver driver([key](Wx::MessageDialog& dialog) {
            EXPECT_EQ(dialog.GetTitle(), wxString(L"\xE4"));
            EXPECT_EQ(Tests::messageOf(dialog), "Message");
            Tests::typeKey(key);
        });
        return nolvexShowMessage(Wx::getWindowNativeHandle(frame).native, "\xC3\xA4", "Message",
                                 NOLVEX_ICON_QUESTION, buttons);
    }
};

} // namespace

TEST_F(CDialogsTest, agreeingButton_isOkAndAnyOtherIsCancelled)
{
    EXPECT_EQ(ask(NOLVEX_BUTTONS_OK, WXK_RETURN), NOLVEX_OK);
    EXPECT_EQ(ask(NOLVEX_BUTTONS_OK, WXK_ESCAPE), NOLVEX_CANCELLED);
    EXPECT_EQ(ask(NOLVEX_BUTTONS_OK_CANCEL, WXK_RETURN), NOLVEX_OK);
    EXPECT_EQ(ask(NOLVEX_BUTTONS_OK_CANCEL, WXK_ESCAPE), NOLVEX_CANCELLED);
    EXPECT_EQ(ask(NOLVEX_BUTTONS_YES_NO, 'Y'), NOLVEX_OK);
    EXPECT_EQ(ask(NOLVEX_BUTTONS_YES_NO, 'N'), NOLVEX_CANCELLED);
}

TEST_F(CDialogsTest, buttonsThatDoNotExist_areRefused)
{
    EXPECT_EQ(nolvexShowMessage(nullptr, "", "", NOLVEX_ICON_NONE, static_cast<NolvexButtons>(3)),
              NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "These buttons do not exist.");
    EXPECT_EQ(nolvexShowMessage(nullptr, "", "", static_cast<NolvexIcon>(6), NOLVEX_BUTTONS_OK),
              NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "This icon does not exist.");
}

TEST_F(CDialogsTest, progressOfAWindow_canBeShownAndEnded)
{
    NolvexTaskbarProgress* progress = nullptr;
    ASSERT_EQ(nolvexBeginTaskbarProgress(Wx::getWindowNativeHandle(frame).native, &progress), NOLVEX_OK);
    nolvexSetIndeterminate(progress);
    nolvexSetProgress(progress, 0.5f);
    nolvexSetIdle(progress);
    nolvexEndTaskbarProgress(progress);
}
