// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Tooltip.h"

#include <gtest/gtest.h>

#include <string>

using namespace Nolvex;

namespace {

int lengthOf(StringView text)
{
    return static_cast<int>(text.length());
}

// Joins the texts, each followed by a bar.
std::wstring joined(const Array<String>& texts)
{
    std::wstring result;
    for (const String& text : texts)
        result += text.wstr() + L'|';
    return result;
}

// Splits the text where a line gets longer than 10 characters.
std::wstring split(const wchar_t* text)
{
    return joined(Wx::Detail::splitTooltipLines(text, 10, lengthOf));
}

} // namespace

TEST(TooltipLinesTest, split_ofNoText_givesNoLine)
{
    EXPECT_EQ(split(L""), L"");
}

TEST(TooltipLinesTest, split_ofAShortText_givesOneLine)
{
    EXPECT_EQ(split(L"one two"), L"one two|");
}

TEST(TooltipLinesTest, split_atLineFeeds_dropsThem)
{
    EXPECT_EQ(split(L"one\ntwo"), L"one|two|");
    EXPECT_EQ(split(L"one\n\ntwo"), L"one||two|");
    EXPECT_EQ(split(L"\none"), L"|one|");
}

TEST(TooltipLinesTest, split_atAFinalLineFeed_beginsNoFurtherLine)
{
    EXPECT_EQ(split(L"one\n"), L"one|");
    EXPECT_EQ(split(L"\n"), L"|");
    EXPECT_EQ(split(L"one\n\n"), L"one||");
}

TEST(TooltipLinesTest, split_whereTheLineIsTooWideAtASpace_breaksAtTheSpaceBefore)
{
    EXPECT_EQ(split(L"aaaa bbbb cccc dddd eeee ffff g"), L"aaaa bbbb|cccc dddd|eeee ffff g|");
}

TEST(TooltipLinesTest, split_ofExactlyTheLimit_keepsTheLine)
{
    EXPECT_EQ(split(L"aaaa bbbbb c"), L"aaaa bbbbb c|");
    EXPECT_EQ(split(L"aaaa bbbbbb c"), L"aaaa|bbbbbb c|");
}

TEST(TooltipLinesTest, split_keepsTheLastWordOnItsLine)
{
    EXPECT_EQ(split(L"aaaa bbbb cccc"), L"aaaa bbbb cccc|");
    EXPECT_EQ(split(L"aaaa bbbb cccc\nd"), L"aaaa bbbb cccc|d|");
}

TEST(TooltipLinesTest, split_neverBreaksAWord)
{
    EXPECT_EQ(split(L"aaaaaaaaaaaaaaa"), L"aaaaaaaaaaaaaaa|");
    EXPECT_EQ(split(L"aa bbbbbbbbbbbbbbb cc dd"), L"aa|bbbbbbbbbbbbbbb|cc dd|");
}

TEST(TooltipLinesTest, split_dropsTheSpacesAtABreakAndKeepsAllOthers)
{
    EXPECT_EQ(split(L"aaaa   bbbbbbb cc"), L"aaaa|bbbbbbb cc|");
    EXPECT_EQ(split(L"a  b"), L"a  b|");
    EXPECT_EQ(split(L"a  \nb "), L"a  |b |");
}

TEST(TooltipLinesTest, split_doesNotBreakInTheIndentation)
{
    EXPECT_EQ(split(L"  aaaaaaaaaaaaa b"), L"  aaaaaaaaaaaaa b|");
    EXPECT_EQ(split(L"a\n   bbb ccccccc d"), L"a|   bbb|ccccccc d|");
}

TEST(TooltipLinesTest, split_measuresFromTheStartOfTheLineToEachSpace)
{
    Array<String> measured;
    Wx::Detail::splitTooltipLines(L"aaaa bbbb cccc d\ne f g", 10, [&](StringView text) {
        measured.emplace_back(text);
        return lengthOf(text);
    });
    EXPECT_EQ(joined(measured), L"aaaa|aaaa bbbb|aaaa bbbb cccc|e|e f|");
}
