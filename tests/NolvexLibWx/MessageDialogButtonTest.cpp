// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MessageDialogButton.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::MessageDialogButton;

TEST(MessageDialogButtonTest, predefinedButtons_haveTheirLabelsAndAreEnabled)
{
    EXPECT_EQ(MessageDialogButton::OK.m_label, L"OK");
    EXPECT_EQ(MessageDialogButton::CANCEL.m_label, L"Cancel");
    EXPECT_EQ(MessageDialogButton::YES.m_label, L"Yes");
    EXPECT_EQ(MessageDialogButton::NO.m_label, L"No");
    for (const MessageDialogButton* button : {&MessageDialogButton::OK, &MessageDialogButton::CANCEL,
                                              &MessageDialogButton::YES, &MessageDialogButton::NO})
        EXPECT_TRUE(button->m_enabled);
}

TEST(MessageDialogButtonTest, buttonMadeOfOneKey_hasThatKey)
{
    const MessageDialogButton button(L"Retry", 'R');
    EXPECT_EQ(button.m_label, L"Retry");
    EXPECT_TRUE(button.m_enabled);
    EXPECT_EQ(button.m_keyCodes, Stack<int>{'R'});
}

TEST(MessageDialogButtonTest, buttonMadeOfEmptyBraces_hasNoKey)
{
    EXPECT_EQ(MessageDialogButton(L"Skip", {}).m_keyCodes, Stack<int>());
}

TEST(MessageDialogButtonTest, disabledButton_keepsItsKeysAndBindsNone)
{
    MessageDialogButton button(L"Skip", {'S', 'K'});
    button.m_enabled = false;
    EXPECT_EQ(button.keyCodesToBind(), Stack<int>());
    EXPECT_EQ(button.m_keyCodes, (Stack<int>{'S', 'K'}));
    button.m_enabled = true;
    EXPECT_EQ(button.keyCodesToBind(), (Stack<int>{'S', 'K'}));
}
