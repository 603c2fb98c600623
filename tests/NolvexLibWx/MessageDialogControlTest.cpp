// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MessageDialogButton.h"

#include <wx/defs.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::MessageDialogButton;
using Wx::MessageDialogControl;

namespace {

// The program's own control, made while the program is loaded.
const MessageDialogButton OWN(L"Retry", 'R');

} // namespace

TEST(MessageDialogControlTest, predefinedControls_haveTheIdentifiersOfTheirOrder)
{
    EXPECT_EQ(MessageDialogControl::OUTSIDE_CLOSE.m_controlId, 15999);
    EXPECT_EQ(MessageDialogControl::FRAME_CLOSE.m_controlId, 16000);
    EXPECT_EQ(MessageDialogControl::FRAME_ICON.m_controlId, 16001);
    EXPECT_EQ(MessageDialogButton::OK.m_controlId, 16002);
    EXPECT_EQ(MessageDialogButton::CANCEL.m_controlId, 16003);
    EXPECT_EQ(MessageDialogButton::YES.m_controlId, 16004);
    EXPECT_EQ(MessageDialogButton::NO.m_controlId, 16005);
}

TEST(MessageDialogControlTest, predefinedControls_haveTheirKeys)
{
    EXPECT_EQ(MessageDialogControl::OUTSIDE_CLOSE.keyCodesToBind(), Stack<int>());
    EXPECT_EQ(MessageDialogControl::FRAME_CLOSE.keyCodesToBind(), Stack<int>{27});
    EXPECT_EQ(MessageDialogControl::FRAME_ICON.keyCodesToBind(), Stack<int>());
    EXPECT_EQ(MessageDialogButton::OK.keyCodesToBind(), (Stack<int>{13, 370}));
    EXPECT_EQ(MessageDialogButton::CANCEL.keyCodesToBind(), Stack<int>());
    EXPECT_EQ(MessageDialogButton::YES.keyCodesToBind(), Stack<int>{89});
    EXPECT_EQ(MessageDialogButton::NO.keyCodesToBind(), Stack<int>{78});
}

TEST(MessageDialogControlTest, controlOfTheProgram_comesAfterThePredefinedOnes)
{
    EXPECT_GE(OWN.m_controlId, 16006);
}

TEST(MessageDialogControlTest, everyControl_hasTheNextIdentifier)
{
    const MessageDialogControl control({WXK_F1});
    const MessageDialogButton button(L"Skip", Stack<int>{WXK_F2, WXK_F3});
    EXPECT_EQ(button.m_controlId, control.m_controlId + 1);
    EXPECT_EQ(control.keyCodesToBind(), Stack<int>{WXK_F1});
    EXPECT_EQ(button.keyCodesToBind(), (Stack<int>{WXK_F2, WXK_F3}));
}

TEST(MessageDialogControlTest, controls_cannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<MessageDialogControl>);
    EXPECT_FALSE(std::is_copy_constructible_v<MessageDialogButton>);
    EXPECT_FALSE(std::is_copy_assignable_v<MessageDialogButton>);
}
