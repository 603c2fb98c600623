// SPDX-License-Identifier: MIT
#include "NolvexLib/String.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <unordered_set>

using namespace std::string_literals;

namespace Nolvex {

namespace {

// U+1F600: one unit of UTF-32, two of UTF-16.
constexpr const char* FACE = "\xF0\x9F\x98\x80";
constexpr std::size_t FACE_LENGTH = sizeof(wchar_t) == 2 ? 2 : 1;

constexpr const wchar_t* REPLACED = L"\xFFFD";

struct BrokenUtf8
{
    const char* what;
    std::string bytes;
    String repaired;
};

const std::array<BrokenUtf8, 19>& brokenTexts()
{
    static const std::array<BrokenUtf8, 19> TEXTS = {{
        {"a lone continuation byte", "a\x80z", L"a\xFFFDz"},
        {"two lone continuation bytes", "\x80\xBF", L"\xFFFD\xFFFD"},
        {"a byte that never occurs", "a\xFFz", L"a\xFFFDz"},
        {"another byte that never occurs", "a\xFEz", L"a\xFFFDz"},
        {"overlong in two bytes", "a\xC0\xAFz", L"a\xFFFDz"},
        {"an overlong zero", "\xC0\x80", REPLACED},
        {"overlong in three bytes", "a\xE0\x80\xAFz", L"a\xFFFDz"},
        {"overlong in four bytes", "a\xF0\x80\x80\xAFz", L"a\xFFFDz"},
        {"the highest that is overlong in four bytes", "\xF0\x8F\xBF\xBF", REPLACED},
        {"cut off in two bytes", "a\xC3", L"a\xFFFD"},
        {"cut off in three bytes", "a\xE2\x82", L"a\xFFFD"},
        {"cut off in four bytes", "a\xF0\x9F\x98", L"a\xFFFD"},
        {"interrupted by a letter", "\xE2\x82z", L"\xFFFDz"},
        {"interrupted by another sequence", "\xE2\x82\xC3\xA4", L"\xFFFD\xE4"},
        {"a high surrogate", "a\xED\xA0\x80z", L"a\xFFFDz"},
        {"a low surrogate", "a\xED\xBF\xBFz", L"a\xFFFDz"},
        {"the first beyond U+10FFFF", "a\xF4\x90\x80\x80z", L"a\xFFFDz"},
        {"far beyond U+10FFFF", "a\xF7\xBF\xBF\xBFz", L"a\xFFFDz"},
        {"a start of five bytes", "a\xF8z", L"a\xFFFDz"},
    }};
    return TEXTS;
}

} // namespace

TEST(StringTest, construction_fromNull_isEmpty)
{
    const wchar_t* none = nullptr;
    EXPECT_TRUE(String(none).isEmpty());
    EXPECT_EQ(String(none).length(), 0U);
}

TEST(StringTest, fromUtf8_validText_keepsEveryCharacter)
{
    const String text = String::fromUtf8("a\xC3\xA4\xE2\x82\xAC"s + FACE);
    EXPECT_EQ(text.getSubstr(0, 3), L"a\xE4\x20AC");
    EXPECT_EQ(text.length(), 3 + FACE_LENGTH);
}

TEST(StringTest, fromUtf8_zeroByte_isKept)
{
    const String text = String::fromUtf8("a\0b"s);
    ASSERT_EQ(text.length(), 3U);
    EXPECT_EQ(text[1], L'\0');
    EXPECT_EQ(text.toUtf8(), "a\0b"s);
}

TEST(StringTest, fromUtf8_brokenSequence_becomesReplacementCharacter)
{
    for (const BrokenUtf8& text : brokenTexts())
        EXPECT_EQ(String::fromUtf8(text.bytes), text.repaired) << text.what;
}

TEST(StringTest, fromValidUtf8_brokenSequence_givesNone)
{
    for (const BrokenUtf8& text : brokenTexts())
        EXPECT_FALSE(String::fromValidUtf8(text.bytes).has_value()) << text.what;
}

TEST(StringTest, fromValidUtf8_edgesOfTheCodeSpace_comeBackAsTheSameBytes)
{
    for (const char* bytes : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                              "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        const Optional<String> text = String::fromValidUtf8(bytes);
        ASSERT_TRUE(text.has_value());
        EXPECT_EQ(text->toUtf8(), bytes);
    }
}

TEST(StringTest, fromValidUtf8_emptyText_isTheEmptyText)
{
    ASSERT_TRUE(String::fromValidUtf8("").has_value());
    EXPECT_TRUE(String::fromValidUtf8("")->isEmpty());
}

TEST(StringTest, fromAscii_bytesOf128AndAbove_becomeReplacementCharacters)
{
    EXPECT_EQ(String::fromAscii("a\x7F\x80\xFFz"), L"a\x7F\xFFFD\xFFFDz");
}

TEST(StringTest, toUtf8_characterBeyondTheBasicPlane_hasFourBytes)
{
    EXPECT_EQ(String::fromUtf8(FACE).toUtf8(), FACE);
}

TEST(StringTest, toUtf8_loneSurrogates_becomeReplacementCharacters)
{
    const std::wstring high(1, static_cast<wchar_t>(0xD800));
    const std::wstring low(1, static_cast<wchar_t>(0xDFFF));
    EXPECT_EQ(String(L"a" + high + L"z").toUtf8(), "a\xEF\xBF\xBDz");
    EXPECT_EQ(String(L"a" + high).toUtf8(), "a\xEF\xBF\xBD");
    EXPECT_EQ(String(low + high).toUtf8(), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(StringTest, comparison_ordersByUnits)
{
    EXPECT_LT(String(L"abc"), String(L"abd"));
    EXPECT_LT(String(L"ab"), String(L"abc"));
    EXPECT_GT(String(L"b"), String(L"abc"));
    EXPECT_EQ(String(L"abc") <=> String(L"abc"), std::strong_ordering::equal);
}

TEST(StringTest, comparison_withLiteral_looksAtTheText)
{
    EXPECT_TRUE(String(L"abc") == L"abc");
    EXPECT_TRUE(L"abc" == String(L"abc"));
    EXPECT_FALSE(String(L"abc") == L"ab");
}

TEST(StringTest, concatenation_ofStringsAndLiterals_joinsInOrder)
{
    const String middle = L"b";
    EXPECT_EQ(L"a" + middle + L"c" + String(L"d"), L"abcd");
    EXPECT_EQ(middle, L"b");
}

TEST(StringTest, appending_itself_doublesTheText)
{
    String text = L"a text longer than what is stored without an allocation";
    const std::wstring expected = text.wstr() + text.wstr();
    text += text;
    EXPECT_EQ(text.wstr(), expected);
}

TEST(StringTest, find_emptyText_isFoundWhereTheSearchBegins)
{
    EXPECT_EQ(String(L"abc").find(L""), 0U);
    EXPECT_EQ(String(L"abc").find(L"", 3), 3U);
    EXPECT_EQ(String(L"abc").find(L"", 4), String::NPOS);
}

TEST(StringTest, find_fromBeyondAnOccurrence_findsTheNext)
{
    EXPECT_EQ(String(L"abcabc").find(L"bc"), 1U);
    EXPECT_EQ(String(L"abcabc").find(L"bc", 2), 4U);
    EXPECT_EQ(String(L"abcabc").find(L"bc", 5), String::NPOS);
}

TEST(StringTest, getSubstr_partlyBeyondTheEnd_givesWhatThereIs)
{
    const String text = L"abc";
    EXPECT_EQ(text.getSubstr(1), L"bc");
    EXPECT_EQ(text.getSubstr(1, 1), L"b");
    EXPECT_EQ(text.getSubstr(2, 100), L"c");
    EXPECT_EQ(text.getSubstr(3), L"");
    EXPECT_EQ(text.getSubstr(4, 1), L"");
    EXPECT_EQ(text.getSubstr(String::NPOS, String::NPOS), L"");
    EXPECT_EQ(text.getSubstr(0, 0), L"");
}

TEST(StringTest, replaceAll_replacesEveryOccurrenceFromTheLeft)
{
    String text = L"aaaa aa";
    EXPECT_EQ(text.replaceAll(L"aaa", L"b"), L"ba aa");
    EXPECT_EQ(text, L"ba aa");
}

TEST(StringTest, replaceAll_replacementHoldingTheSearched_isNotSearchedAgain)
{
    String text = L"aba";
    EXPECT_EQ(text.replaceAll(L"a", L"aa"), L"aabaa");
}

TEST(StringTest, replaceAll_withNothing_removes)
{
    String text = L"-a--b-";
    EXPECT_EQ(text.replaceAll(L"-", L""), L"ab");
}

TEST(StringTest, replaceAll_ofEmptyText_changesNothing)
{
    String text = L"ab";
    EXPECT_EQ(text.replaceAll(L"", L"x"), L"ab");
}

TEST(StringTest, replaceAll_absentText_changesNothing)
{
    String text = L"ab";
    EXPECT_EQ(text.replaceAll(L"abc", L"x"), L"ab");
}

TEST(StringTest, replaceAll_viewsOfTheStringItself_areReadBeforeItChanges)
{
    String text = L"one text that is long enough to be allocated, one text";
    const StringView view = text;
    text.replaceAll(view.getSubstr(0, 3), view.getSubstr(4, 4));
    EXPECT_EQ(text, L"text text that is long enough to be allocated, text text");
}

TEST(StringTest, replaceAll_characterBeyondTheBasicPlane_isReplacedWhole)
{
    String text = String::fromUtf8("a"s + FACE + "b" + FACE);
    EXPECT_EQ(text.replaceAll(String::fromUtf8(FACE), L"x"), L"axbx");
}

TEST(StringTest, explode_ownsItsParts)
{
    Array<String> parts;
    {
        const String text = L"one,,two";
        parts = text.explode(L",", ExplodeMode::KEEP_EMPTY);
    }
    EXPECT_EQ(parts, (Array<String>{L"one", L"", L"two"}));
}

TEST(StringTest, hash_ofEqualStrings_isEqual)
{
    const std::unordered_set<String> set = {L"a", L"b", String::fromUtf8("a")};
    EXPECT_EQ(set.size(), 2U);
    EXPECT_EQ(set.count(String(L"b")), 1U);
}

} // namespace Nolvex
