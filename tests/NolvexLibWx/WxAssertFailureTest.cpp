// SPDX-License-Identifier: MIT
#include "NolvexLibWx/WxAssertFailure.h"

#include <gtest/gtest.h>

using Nolvex::Wx::formatWxAssertFailure;

TEST(WxAssertFailureTest, message_isWordForWord)
{
    const auto text =
        formatWxAssertFailure("src/common/x.cpp", 42, "wxThing::Do", "ptr != NULL", "must not be null");
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(*text,
              L"An internal error occurred: wxWidgets assertion failure. Please, report this problem to us.\n"
              L"File: src/common/x.cpp(42)\n"
              L"Function: wxThing::Do\n"
              L"Condition: ptr != NULL\n"
              L"Message: must not be null");
}

TEST(WxAssertFailureTest, emptyTextsAndNegativeLines_areFormattedToo)
{
    const auto text = formatWxAssertFailure("", -1, "", "", "");
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(*text,
              L"An internal error occurred: wxWidgets assertion failure. Please, report this problem to us.\n"
              L"File: (-1)\nFunction: \nCondition: \nMessage: ");
}

TEST(WxAssertFailureTest, captureMouse_isIgnoredWithAnyCondition)
{
    EXPECT_FALSE(formatWxAssertFailure("f", 1, "wxWindowBase::CaptureMouse", "any", "m").has_value());
    EXPECT_FALSE(formatWxAssertFailure("f", 1, "wxWindowBase::CaptureMouse", "", "").has_value());
    EXPECT_TRUE(formatWxAssertFailure("f", 1, "wxWindowBase::captureMouse", "any", "m").has_value());
    EXPECT_TRUE(formatWxAssertFailure("f", 1, "wxWindowBase::ReleaseMouse", "any", "m").has_value());
}

TEST(WxAssertFailureTest, localeInfo_isIgnoredWithItsOneConditionOnly)
{
    const char* condition = "strcmp(setlocale(0, 0), \"C\") == 0";
    EXPECT_FALSE(formatWxAssertFailure("f", 1, "wxLocale::GetInfo", condition, "m").has_value());
    EXPECT_TRUE(formatWxAssertFailure("f", 1, "wxLocale::GetInfo", "other", "m").has_value());
    EXPECT_TRUE(formatWxAssertFailure("f", 1, "wxLocale::GetInfo", "STRCMP(setlocale(0, 0), \"C\") == 0", "m")
                    .has_value());
    EXPECT_TRUE(formatWxAssertFailure("f", 1, "wxLocale::Init", condition, "m").has_value());
}
