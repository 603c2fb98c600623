// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/StaticText.h"

#include "NolvexLibWx/DpiScaling.h"
#include "support/Events.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <wx/arrstr.h>
#include <wx/dcclient.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::StaticText;
using Wx::TextFlag;

namespace {

static_assert(std::is_base_of_v<wxStaticText, StaticText> &&
              std::is_base_of_v<Wx::TooltipWindow, StaticText>);

constexpr RgbBytes PAPER{255, 255, 255};
constexpr const wchar_t* LONG_TEXT = L"many words that do not all go into one line of that width";

/// Returns the smallest rectangle around all pixels that are not white.
wxRect inked(const wxImage& image)
{
    wxRect result;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            if (Tests::pixelAt(image, x, y) != PAPER)
                result.Union(wxRect(x, y, 1, 1));
        }
    }
    return result;
}

struct StaticTextTest : Tests::FrameFixture
{
    static constexpr unsigned int FIXED = wxST_NO_AUTORESIZE;

    StaticText* make(const wchar_t* label, unsigned int style = 0, Flags<TextFlag> flags = {},
                     wxSize size = wxDefaultSize) const
    {
        auto* text = new StaticText(panel, 17, label, style, flags, size);
        text->SetBackgroundColour(*wxWHITE);
        text->SetForegroundColour(*wxBLACK);
        text->Move(20, 20);
        return text;
    }

    wxImage shown(StaticText* text) const
    {
        panel->SetBackgroundColour(*wxWHITE);
        text->Refresh();
        showFrame();
        Tests::pumpEvents(100);
        return Tests::captureClientArea(text);
    }
};

} // namespace

TEST_F(StaticTextTest, construction_setsLabelFontAndStyle)
{
    const StaticText* text = make(L"some text", wxALIGN_RIGHT, {TextFlag::BOLD, TextFlag::ITALIC});
    EXPECT_EQ(text->GetLabel(), "some text");
    EXPECT_EQ(text->unwrappedLabel(), L"some text");
    EXPECT_EQ(text->GetId(), 17);
    EXPECT_EQ(text->GetFont(), Wx::setupStaticTextFont(text->GetFont(), {TextFlag::BOLD, TextFlag::ITALIC}));
    EXPECT_EQ(text->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_TRUE(text->HasFlag(wxALIGN_RIGHT));
}

TEST_F(StaticTextTest, construction_withoutLabel_isEmpty)
{
    EXPECT_EQ(make(L"")->GetLabel(), wxString());
}

TEST_F(StaticTextTest, construction_takesTheSizeInDesignUnits)
{
    EXPECT_EQ(make(L"text", FIXED, {}, {120, 40})->GetSize(), Wx::scaleByDpi(wxSize(120, 40)));
}

TEST_F(StaticTextTest, withoutSize_isAsLargeAsItsText)
{
    StaticText* text = make(L"text");
    const wxSize extent = text->GetTextExtent("text");
    EXPECT_GE(text->GetSize().x, extent.x);
    EXPECT_LE(text->GetSize().x, extent.x + 3);
    EXPECT_GE(text->GetSize().y, extent.y);
    EXPECT_LE(text->GetSize().y, extent.y + 3);
}

TEST_F(StaticTextTest, setLabel_fitsToTheNewText)
{
    StaticText* text = make(L"text");
    const wxSize before = text->GetSize();
    text->SetLabel("a longer text\nin two lines");
    EXPECT_GT(text->GetSize().x, before.x);
    EXPECT_GE(text->GetSize().y, 2 * before.y - 2);
    EXPECT_EQ(text->unwrappedLabel(), L"a longer text\nin two lines");
}

TEST_F(StaticTextTest, setLabel_ofAFixedSize_keepsIt)
{
    StaticText* text = make(L"text", FIXED, {}, {120, 40});
    text->SetLabel(wxString(LONG_TEXT) + LONG_TEXT);
    EXPECT_EQ(text->GetSize(), Wx::scaleByDpi(wxSize(120, 40)));
}

TEST_F(StaticTextTest, setLabelMarkup_showsTheTextWithoutTheMarkup)
{
    StaticText* text = make(L"text");
    EXPECT_TRUE(text->SetLabelMarkup("<b>bold</b> &amp;&amp; plain"));
    EXPECT_EQ(text->unwrappedLabel(), L"bold && plain");
}

TEST_F(StaticTextTest, wrap_breaksTheTextAndKeepsItUnwrapped)
{
    StaticText* text = make(LONG_TEXT);
    text->Wrap(100);
    EXPECT_NE(text->GetLabel().Find('\n'), wxNOT_FOUND);
    for (const wxString& line : wxSplit(text->GetLabel(), '\n', '\0'))
        EXPECT_LE(text->GetTextExtent(line).x, 100);
    EXPECT_EQ(text->unwrappedLabel(), LONG_TEXT);
}

TEST_F(StaticTextTest, wrap_again_startsFromTheUnwrappedText)
{
    StaticText* twice = make(LONG_TEXT);
    StaticText* once = make(LONG_TEXT);
    twice->Wrap(100);
    const wxString narrow = twice->GetLabel();
    twice->Wrap(300);
    once->Wrap(300);
    EXPECT_EQ(twice->GetLabel(), once->GetLabel());
    EXPECT_EQ(twice->GetSize(), once->GetSize());
    EXPECT_NE(twice->GetLabel(), narrow);
    twice->Wrap(-1);
    EXPECT_EQ(twice->GetLabel(), LONG_TEXT);
}

TEST_F(StaticTextTest, setLabel_afterWrapping_replacesTheStoredText)
{
    StaticText* text = make(LONG_TEXT);
    text->Wrap(100);
    text->SetLabel("short");
    text->Wrap(300);
    EXPECT_EQ(text->GetLabel(), "short");
    EXPECT_EQ(text->unwrappedLabel(), L"short");
}

TEST_F(StaticTextTest, wrap_toTheSameWidthAfterAnotherText_wrapsThatText)
{
    StaticText* text = make(L"short");
    text->Wrap(100);
    text->SetLabel(LONG_TEXT);
    text->Wrap(100);
    StaticText* fresh = make(LONG_TEXT);
    fresh->Wrap(100);
    EXPECT_NE(text->GetLabel().Find('\n'), wxNOT_FOUND);
    EXPECT_EQ(text->GetLabel(), fresh->GetLabel());
    EXPECT_EQ(text->unwrappedLabel(), LONG_TEXT);
}

TEST_F(StaticTextTest, painted_itIsPlacedByItsAlignment)
{
    const wxRect topLeft = inked(shown(make(L"MM", FIXED, {}, {120, 60})));
    EXPECT_FALSE(topLeft.IsEmpty());
    EXPECT_LT(topLeft.GetRight(), 60);
    EXPECT_LT(topLeft.GetBottom(), 30);
    panel->DestroyChildren();

    const wxRect bottomRight =
        inked(shown(make(L"MM", FIXED | wxALIGN_RIGHT | wxALIGN_BOTTOM, {}, {120, 60})));
    EXPECT_EQ(bottomRight.GetSize(), topLeft.GetSize());
    EXPECT_GT(bottomRight.x, 60);
    EXPECT_GT(bottomRight.y, 30);
    panel->DestroyChildren();

    const wxRect centred = inked(shown(make(L"MM", FIXED | wxALIGN_CENTRE, {}, {120, 60})));
    EXPECT_NEAR(2 * centred.x, topLeft.x + bottomRight.x, 2);
    EXPECT_NEAR(2 * centred.y, topLeft.y + bottomRight.y, 2);
}

TEST_F(StaticTextTest, painted_itShowsEveryLineInItsForegroundColour)
{
    StaticText* text = make(L"M\nM", FIXED, {}, {60, 60});
    const wxRect black = inked(shown(text));
    EXPECT_GT(black.height, text->GetTextExtent("M").y);
    text->SetForegroundColour(*wxWHITE);
    EXPECT_TRUE(inked(shown(text)).IsEmpty());
}

TEST_F(StaticTextTest, painted_ampersandsAreCharacters)
{
    const wxRect plain = inked(shown(make(L"MM", FIXED, {}, {120, 30})));
    panel->DestroyChildren();
    const wxRect marked = inked(shown(make(L"M&M", FIXED, {}, {120, 30})));
    EXPECT_GT(marked.width, plain.width + 4);
}

TEST_F(StaticTextTest, ampersands_haveRoom)
{
    for (const wchar_t* label : {L"this & that", L"&&&&", L"first & line\nsecond && line"}) {
        const StaticText* text = make(label);
        wxClientDC dc(panel);
        dc.SetFont(text->GetFont());
        EXPECT_GE(text->GetBestSize().x, dc.GetMultiLineTextExtent(label).x) << label;
    }
}

TEST_F(StaticTextTest, mouse_entersAndLeavesIt)
{
    StaticText* text = make(L"text", FIXED, {}, {120, 60});
    int entered = 0;
    int left = 0;
    text->Bind(wxEVT_ENTER_WINDOW, [&](wxMouseEvent&) { ++entered; });
    text->Bind(wxEVT_LEAVE_WINDOW, [&](wxMouseEvent&) { ++left; });
    shown(text);
    wxUIActionSimulator mouse;
    mouse.MouseMove(panel->ClientToScreen(wxPoint(5, 5)));
    Tests::pumpEvents(60);
    entered = left = 0;
    mouse.MouseMove(text->ClientToScreen(wxPoint(30, 30)));
    EXPECT_TRUE(Tests::pumpUntil([&] { return entered == 1; }));
    EXPECT_EQ(left, 0);
    mouse.MouseMove(panel->ClientToScreen(wxPoint(5, 5)));
    EXPECT_TRUE(Tests::pumpUntil([&] { return left == 1; }));
}

TEST_F(StaticTextTest, restingMouse_bringsUpTheTooltip)
{
    StaticText* text = make(L"text", FIXED, {}, {120, 60});
    text->setTooltip(L"help");
    text->tooltip()->setDelay(50);
    shown(text);
    wxUIActionSimulator mouse;
    mouse.MouseMove(text->ClientToScreen(wxPoint(30, 30)));
    Tests::pumpEvents(20);
    mouse.MouseMove(text->ClientToScreen(wxPoint(32, 30)));
    EXPECT_TRUE(Tests::pumpUntil([&] { return text->tooltip()->IsShown(); }));
}

TEST_F(StaticTextTest, keyboardFocus_isNotTaken)
{
    EXPECT_FALSE(make(L"text")->AcceptsFocus());
}
