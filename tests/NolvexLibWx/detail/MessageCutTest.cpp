// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/MessageCut.h"

#include "NolvexLibWx/widgets/StaticText.h"
#include "support/FrameFixture.h"

#include <gtest/gtest.h>

#include <string>

using namespace Nolvex;

namespace {

using MessageCutTest = Tests::FrameFixture;

const std::wstring EMOJI = L"\U0001F600";

} // namespace

TEST_F(MessageCutTest, textsOfLessThanTwoLines_stayAsTheyAre)
{
    auto* text = new Wx::StaticText(panel, wxID_ANY, {});
    for (const wxString& label : {wxString(), wxString("line")}) {
        text->SetLabel(label);
        MessageCut::byHeight(*text, 100);
        EXPECT_EQ(text->GetLabel(), label);
    }
}

TEST_F(MessageCutTest, manyLines_endWithAnEllipsis)
{
    auto* text = new Wx::StaticText(panel, wxID_ANY, {});
    text->SetLabel("a\nb\nc\nd");
    MessageCut::byHeight(*text, 1);
    EXPECT_EQ(text->GetLabel(), L"a\nb\n\u2026");
}

TEST_F(MessageCutTest, cutLength_neverHalvesACharacter)
{
    const std::wstring pair{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    const std::wstring text = L"a" + pair + L"b";
    EXPECT_EQ(MessageCut::cutLength(text, 0), 0u);
    EXPECT_EQ(MessageCut::cutLength(text, 1), 1u);
    EXPECT_EQ(MessageCut::cutLength(text, 2), 1u);
    EXPECT_EQ(MessageCut::cutLength(text, 3), 3u);
    EXPECT_EQ(MessageCut::cutLength(text, 4), 4u);
    EXPECT_EQ(MessageCut::cutLength({}, 0), 0u);
}

TEST_F(MessageCutTest, brokenWords_keepTheirCharactersWhole)
{
    auto* text = new Wx::StaticText(panel, wxID_ANY, {});
    for (const int width : {1, 15, 100}) {
        std::wstring word;
        for (int i = 0; i < 30; ++i)
            word += EMOJI;
        std::wstring cut = MessageCut::prepared(word, *text, width, 2000).wstr();
        for (std::size_t i = cut.find(L'\n'); i != std::wstring::npos; i = cut.find(L'\n', i + 1))
            EXPECT_FALSE(cut[i - 1] >= 0xD800 && cut[i - 1] <= 0xDBFF) << width;
        std::erase(cut, L'\n');
        EXPECT_EQ(cut, word) << width;
    }
}
