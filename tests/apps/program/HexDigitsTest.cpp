// SPDX-License-Identifier: MIT
#include "apps/program/HexDigits.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Program::appendHexByte;
using Program::HexLetters;
using Program::parseHexByte;

TEST(HexDigitsTest, everyByte_hasTwoDigitsAndComesBack)
{
    for (int byte = 0; byte < 256; ++byte) {
        for (const HexLetters letters : {HexLetters::SMALL, HexLetters::CAPITAL}) {
            std::wstring text;
            appendHexByte(text, static_cast<std::uint8_t>(byte), letters);
            EXPECT_EQ(text.size(), 2u);
            EXPECT_EQ(parseHexByte(text), byte);
        }
    }
}

TEST(HexDigitsTest, letters_areAsWanted)
{
    std::wstring text = L"#";
    appendHexByte(text, 0xA5, HexLetters::SMALL);
    appendHexByte(text, 0xA5, HexLetters::CAPITAL);
    EXPECT_EQ(text, L"#a5A5");
}

TEST(HexDigitsTest, oneDigit_standsForBoth)
{
    EXPECT_EQ(parseHexByte(L"b"), 0xBB);
    EXPECT_EQ(parseHexByte(L"7"), 0x77);
}

TEST(HexDigitsTest, everythingElse_isNoByte)
{
    for (const std::wstring_view text : {L"", L"123", L"g0", L"0g", L"-1", L" 1", L"\u0661"})
        EXPECT_FALSE(parseHexByte(text).has_value());
}
