// SPDX-License-Identifier: MIT
#include "NolvexLib/StringView.h"

#include "NolvexLib/String.h"

#include <gtest/gtest.h>

#include <string>

namespace Nolvex {

TEST(StringViewTest, construction_fromNull_isEmpty)
{
    const wchar_t* none = nullptr;
    EXPECT_TRUE(StringView(none).isEmpty());
    EXPECT_TRUE(StringView().isEmpty());
}

TEST(StringViewTest, view_ofString_sharesItsUnits)
{
    const String text = L"abc";
    const StringView view = text;
    EXPECT_EQ(view.view().data(), text.c_str());
    EXPECT_EQ(view.length(), 3U);
    EXPECT_EQ(view[2], L'c');
}

TEST(StringViewTest, view_ofAPart_needsNoZeroAtItsEnd)
{
    const std::wstring text = L"abcdef";
    const StringView view(std::wstring_view(text).substr(1, 2));
    EXPECT_EQ(view, L"bc");
    EXPECT_EQ(view.toUtf8(), "bc");
}

TEST(StringViewTest, comparison_ordersByUnits)
{
    EXPECT_LT(StringView(L"ab"), StringView(L"abc"));
    EXPECT_GT(StringView(L"b"), StringView(L"ab"));
    EXPECT_NE(StringView(L"ab"), StringView(L"ac"));
    EXPECT_EQ(StringView(L"ab"), String(L"ab"));
}

TEST(StringViewTest, getSubstr_beyondTheEnd_isEmpty)
{
    const StringView view = L"abc";
    EXPECT_EQ(view.getSubstr(1, 1), L"b");
    EXPECT_EQ(view.getSubstr(2, 9), L"c");
    EXPECT_TRUE(view.getSubstr(3).isEmpty());
    EXPECT_TRUE(view.getSubstr(StringView::NPOS).isEmpty());
}

TEST(StringViewTest, explode_keepEmpty_givesAPartMoreThanSeparators)
{
    using Parts = Array<StringView>;
    const StringView separator = L",";
    EXPECT_EQ(StringView(L"a,b").explode(separator, ExplodeMode::KEEP_EMPTY), (Parts{L"a", L"b"}));
    EXPECT_EQ(StringView(L",a,,b,").explode(separator, ExplodeMode::KEEP_EMPTY),
              (Parts{L"", L"a", L"", L"b", L""}));
    EXPECT_EQ(StringView(L",").explode(separator, ExplodeMode::KEEP_EMPTY), (Parts{L"", L""}));
    EXPECT_EQ(StringView(L"").explode(separator, ExplodeMode::KEEP_EMPTY), (Parts{L""}));
}

TEST(StringViewTest, explode_skipEmpty_givesOnlyPartsOfSomeLength)
{
    using Parts = Array<StringView>;
    const StringView separator = L",";
    EXPECT_EQ(StringView(L",a,,b,").explode(separator, ExplodeMode::SKIP_EMPTY), (Parts{L"a", L"b"}));
    EXPECT_TRUE(StringView(L",,").explode(separator, ExplodeMode::SKIP_EMPTY).empty());
    EXPECT_TRUE(StringView().explode(separator, ExplodeMode::SKIP_EMPTY).empty());
}

TEST(StringViewTest, explode_separatorOfSeveralUnits_isTakenFromTheLeft)
{
    EXPECT_EQ(StringView(L"a---b").explode(L"--", ExplodeMode::KEEP_EMPTY), (Array<StringView>{L"a", L"-b"}));
}

TEST(StringViewTest, explode_emptySeparator_doesNotSplit)
{
    EXPECT_EQ(StringView(L"a,b").explode(L"", ExplodeMode::KEEP_EMPTY), (Array<StringView>{L"a,b"}));
    EXPECT_EQ(StringView(L"a,b").explode(L"", ExplodeMode::SKIP_EMPTY), (Array<StringView>{L"a,b"}));
}

TEST(StringViewTest, toUtf8_unitsThatAreNoCharacter_becomeReplacementCharacters)
{
    const std::wstring text = {L'a', static_cast<wchar_t>(0xDC00), L'z'};
    EXPECT_EQ(StringView(text).toUtf8(), "a\xEF\xBF\xBDz");
}

} // namespace Nolvex
