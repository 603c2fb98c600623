// SPDX-License-Identifier: MIT
#include "NolvexLibWx/StringConversions.h"

#include <gtest/gtest.h>

using namespace Nolvex;

TEST(StringConversionsTest, text_survivesBothWays)
{
    const String text = String::fromUtf8("z\xC3\xBC\x72ich \xF0\x9F\x98\x80");
    EXPECT_EQ(Wx::toString(Wx::toWxString(text)), text);
    EXPECT_EQ(Wx::toWxString(text), wxString::FromUTF8("z\xC3\xBC\x72ich \xF0\x9F\x98\x80"));
}

TEST(StringConversionsTest, emptyAndZeroCharacters_survive)
{
    EXPECT_TRUE(Wx::toWxString(String()).empty());
    EXPECT_TRUE(Wx::toString(wxString()).isEmpty());
    const String text(std::wstring(L"a\0b", 3));
    EXPECT_EQ(Wx::toWxString(text).length(), 3u);
    EXPECT_EQ(Wx::toString(Wx::toWxString(text)), text);
}
