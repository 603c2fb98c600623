// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextControl.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/DpiScaling.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <wx/button.h>
#include <wx/dcclient.h>

#include <type_traits>

using namespace Nolvex;
using Wx::GuiSkin;
using Wx::TextControl;
using Wx::TextFlag;

namespace {

static_assert(std::is_base_of_v<Wx::SkinnableMixin<wxTextCtrl>, TextControl> &&
              std::is_base_of_v<Wx::TooltipWindow, TextControl>);

constexpr RgbBytes PAPER{0, 0, 0};
constexpr unsigned int PLAIN = wxBORDER_NONE;

// Returns a skin in which only the disabled text has red and only the enabled text has green.
GuiSkin testSkin()
{
    GuiSkin skin = GuiSkin::DEFAULT();
    skin.background = PAPER;
    skin.text = {0, 255, 0};
    skin.disabledText = {255, 0, 0};
    return skin;
}

template<class Predicate>
wxRect boundsOf(const wxImage& image, Predicate wanted)
{
    wxRect result;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            if (wanted(Tests::pixelAt(image, x, y)))
                result.Union(wxRect(x, y, 1, 1));
        }
    }
    return result;
}

// Returns the smallest rectangle around the text of this colour.
wxRect redIn(const wxImage& image)
{
    return boundsOf(image, [](const RgbBytes& c) { return c.r > 100 && c.g < 60; });
}

wxRect greenIn(const wxImage& image)
{
    return boundsOf(image, [](const RgbBytes& c) { return c.g > 100 && c.r < 60; });
}

struct TextControlTest : Tests::FrameFixture
{
    TextControl* make(const wchar_t* value, unsigned int style = PLAIN, Flags<TextFlag> flags = {}) const
    {
        auto* text = new TextControl(panel, 17, value, style, flags, {150, 30});
        text->Move(20, 20);
        return text;
    }

    wxImage shown(TextControl* text) const
    {
        if (!frame->IsShown())
            showFrame();
        // Every field has the skin, whose paper no other window has, and its text at the left.
        EXPECT_TRUE(Tests::pumpUntil([&] {
            const wxImage image = Tests::captureClientArea(text);
            return Tests::pixelAt(image, image.GetWidth() - 6, image.GetHeight() / 2) == PAPER;
        }));
        Tests::pumpEvents(100);
        return Tests::captureClientArea(text);
    }
};

} // namespace

TEST_F(TextControlTest, construction_setsValueFontAndSize)
{
    const TextControl* text = make(L"some \u00fcber text", wxTE_RIGHT, {TextFlag::BOLD, TextFlag::ITALIC});
    EXPECT_EQ(text->GetValue(), L"some \u00fcber text");
    EXPECT_EQ(text->GetId(), 17);
    EXPECT_EQ(text->GetSize(), Wx::scaleByDpi(wxSize(150, 30)));
    EXPECT_EQ(text->GetFont(), Wx::setupStaticTextFont(text->GetFont(), {TextFlag::BOLD, TextFlag::ITALIC}));
    EXPECT_EQ(text->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_TRUE(text->HasFlag(wxTE_RIGHT));
    EXPECT_TRUE(make(L"")->GetValue().empty());
}

TEST_F(TextControlTest, construction_copiesTheDefaultSkinWithoutShowingIt)
{
    const TextControl* text = make(L"");
    EXPECT_EQ(text->skin(), GuiSkin::DEFAULT());
    EXPECT_NE(text->GetBackgroundColour(), Wx::toWxColour(GuiSkin::DEFAULT().background));
}

TEST_F(TextControlTest, applySkin_storesItAndSetsItsColours)
{
    TextControl* text = make(L"");
    text->applySkin(testSkin());
    EXPECT_EQ(text->skin(), testSkin());
    EXPECT_EQ(text->GetBackgroundColour(), Wx::toWxColour(testSkin().background));
    EXPECT_EQ(text->GetForegroundColour(), Wx::toWxColour(testSkin().text));
}

TEST_F(TextControlTest, tooltip_canBeSet)
{
    TextControl* text = make(L"");
    text->setTooltip(L"about it");
    EXPECT_NE(text->tooltip(), nullptr);
}

TEST_F(TextControlTest, readOnly_isSkippedWhenTabbing)
{
    auto* first = new wxButton(panel, wxID_ANY, "first");
    TextControl* readOnly = make(L"read-only", wxTE_READONLY);
    TextControl* editable = make(L"editable", 0);
    EXPECT_FALSE(readOnly->AcceptsFocusFromKeyboard());
    EXPECT_TRUE(editable->AcceptsFocusFromKeyboard());
    showFrame();
    first->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return first->HasFocus() && frame->IsActive(); }));
    Tests::pumpEvents(200);
    ASSERT_TRUE(first->HasFocus());
    first->Navigate();
    EXPECT_TRUE(Tests::pumpUntil([&] { return editable->HasFocus(); }));
    editable->Navigate(wxNavigationKeyEvent::IsBackward);
    EXPECT_TRUE(Tests::pumpUntil([&] { return first->HasFocus(); }));
}

TEST_F(TextControlTest, readOnly_isSkippedByTheTabKey)
{
    auto* first = new wxButton(panel, wxID_ANY, "first");
    make(L"read-only", wxTE_READONLY);
    TextControl* editable = make(L"editable", 0);
    auto* last = new wxButton(panel, wxID_ANY, "last");
    showFrame();
    first->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return first->HasFocus() && frame->IsActive(); }));
    Tests::pumpEvents(200);
    wxUIActionSimulator keyboard;
    keyboard.Char(WXK_TAB);
    EXPECT_TRUE(Tests::pumpUntil([&] { return editable->HasFocus(); }));
    keyboard.Char(WXK_TAB);
    EXPECT_TRUE(Tests::pumpUntil([&] { return last->HasFocus(); }));
    keyboard.Char(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(Tests::pumpUntil([&] { return editable->HasFocus(); }));
    keyboard.Char(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(Tests::pumpUntil([&] { return first->HasFocus(); }));
}

TEST_F(TextControlTest, readOnly_whereTheSystemMovesTheFocus_isSkippedByTheTabKey)
{
    // Without a panel, wxWidgets leaves the key to the system, which on some systems does nothing then.
    panel->Destroy();
    panel = nullptr;
    auto* first = new TextControl(frame, wxID_ANY, L"first", 0, {}, {150, 30});
    auto* readOnly = new TextControl(frame, wxID_ANY, L"read-only", wxTE_READONLY, {}, {150, 30});
    auto* editable = new TextControl(frame, wxID_ANY, L"editable", 0, {}, {150, 30});
    readOnly->Move(0, 50);
    editable->Move(0, 100);
    bool visited = false;
    readOnly->Bind(wxEVT_SET_FOCUS, [&](wxFocusEvent& event) {
        visited = true;
        event.Skip();
    });
    frame->Show();
    frame->Raise();
    first->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return first->HasFocus() && frame->IsActive(); }));
    Tests::pumpEvents(200);
    for (int i = 0; i < 3; ++i) {
        wxUIActionSimulator().Char(WXK_TAB);
        Tests::pumpEvents(100);
        EXPECT_FALSE(visited) << i;
    }
}

TEST_F(TextControlTest, enabled_paintsItself)
{
    TextControl* text = make(L"HHHH");
    text->applySkin(testSkin());
    showFrame();
    text->SelectNone(); // A theme paints selected text in a colour of its own.
    const wxImage image = shown(text);
    EXPECT_FALSE(greenIn(image).IsEmpty());
    EXPECT_TRUE(redIn(image).IsEmpty());
}

TEST_F(TextControlTest, disabled_showsItsValueInTheDisabledColourAtTheLeft)
{
    TextControl* text = make(L"HHHH");
    text->applySkin(testSkin());
    text->Disable();
    const wxImage image = shown(text);
    const wxRect ink = redIn(image);
    EXPECT_TRUE(greenIn(image).IsEmpty());
    EXPECT_GE(ink.x, Wx::scaleByDpi(3));
    EXPECT_LE(ink.x, Wx::scaleByDpi(3) + 2);
    const wxSize extent = text->GetTextExtent("HHHH");
    EXPECT_LE(ink.GetRight(), Wx::scaleByDpi(3) + extent.x);
    EXPECT_GE(ink.GetRight(), Wx::scaleByDpi(3) + extent.x - 4);
    EXPECT_LT(ink.GetBottom(), extent.y);
    EXPECT_EQ(Tests::pixelAt(image, image.GetWidth() / 2 + 30, image.GetHeight() / 2), PAPER);
}

namespace {

// Paints the text at a place given by the test.
struct TextWindow : wxWindow
{
    TextWindow(wxWindow* parent, const wxRect& area, const wxFont& textFont, const wxPoint& place)
        : wxWindow(parent, wxID_ANY, area.GetPosition(), area.GetSize())
    {
        SetBackgroundColour(*wxBLACK);
        Bind(wxEVT_PAINT, [this, textFont, place](wxPaintEvent&) {
            wxPaintDC dc(this);
            dc.SetFont(textFont);
            dc.SetTextForeground(*wxRED);
            dc.DrawText("HHHH", place);
        });
    }
};

} // namespace

TEST_F(TextControlTest, disabled_drawsItsValueThreeUnitsFromTheLeftAndAtTheTop)
{
    TextControl* text = make(L"HHHH");
    text->applySkin(testSkin());
    text->Disable();
    auto* expected = new TextWindow(panel, wxRect(wxPoint(20, 120), text->GetSize()), text->GetFont(),
                                    wxPoint(Wx::scaleByDpi(3), 0));
    const wxRect ink = redIn(shown(text));
    EXPECT_FALSE(ink.IsEmpty());
    EXPECT_TRUE(Tests::pumpUntil([&] { return redIn(Tests::captureClientArea(expected)) == ink; }, 2000));
}

TEST_F(TextControlTest, richOne_cannotBeUndoneWhenItIsNew)
{
    for (const long rich : {wxTE_RICH, wxTE_RICH2}) {
        for (const wchar_t* value : {L"", L"value"}) {
            const TextControl* text = make(value, static_cast<unsigned>(wxTE_MULTILINE | rich));
            EXPECT_FALSE(text->CanUndo());
        }
    }
}

TEST_F(TextControlTest, disabled_withABorder_drawsItsValueInsideTheBorder)
{
    TextControl* plain = make(L"HHHH");
    plain->applySkin(testSkin());
    plain->Disable();
    const wxRect inside = redIn(shown(plain));
    plain->Destroy();
    TextControl* bordered = make(L"HHHH", 0);
    bordered->applySkin(testSkin());
    bordered->Disable();
    Tests::pumpEvents(200);
    const wxImage image = Tests::captureClientArea(panel);
    const wxRect ink = redIn(image);
    const wxPoint offset = ink.GetTopLeft() - bordered->GetPosition() - inside.GetTopLeft();
    EXPECT_EQ(ink.GetSize(), inside.GetSize());
    EXPECT_GE(offset.x, 1);
    EXPECT_LE(offset.x, 3);
    EXPECT_GE(offset.y, 1);
    EXPECT_LE(offset.y, 3);
}

TEST_F(TextControlTest, disabledByItsParent_looksTheSame)
{
    TextControl* text = make(L"HHHH");
    text->applySkin(testSkin());
    panel->Disable();
    EXPECT_FALSE(redIn(shown(text)).IsEmpty());
}

TEST_F(TextControlTest, disabledWhileShown_showsTheNewValueAndColour)
{
    TextControl* text = make(L"H");
    text->applySkin(testSkin());
    EXPECT_TRUE(redIn(shown(text)).IsEmpty());
    text->Disable();
    text->ChangeValue("HHHH");
    text->Refresh();
    const wxRect ink = redIn(shown(text));
    EXPECT_GT(ink.width, text->GetTextExtent("HHH").x);
    text->Enable();
    text->Refresh();
    EXPECT_TRUE(redIn(shown(text)).IsEmpty());
}

TEST_F(TextControlTest, applySkin_withAnotherDisabledColourOnly_showsItAtOnce)
{
    TextControl* text = make(L"HHHH");
    GuiSkin skin = testSkin();
    skin.disabledText = skin.text;
    text->applySkin(skin);
    text->Disable();
    ASSERT_TRUE(redIn(shown(text)).IsEmpty());
    text->applySkin(testSkin());
    EXPECT_TRUE(Tests::pumpUntil([&] { return !redIn(Tests::captureClientArea(text)).IsEmpty(); }, 2000));
}

TEST_F(TextControlTest, disabled_ofSeveralLines_showsItsValueToo)
{
    TextControl* text = make(L"HHHH", PLAIN | wxTE_MULTILINE);
    text->applySkin(testSkin());
    text->Disable();
    EXPECT_FALSE(redIn(shown(text)).IsEmpty());
}

TEST_F(TextControlTest, disabledPassword_showsAsManySignsAsCharactersButNotWhich)
{
    Array<wxRect> inks;
    for (const wchar_t* password : {L"WWWW", L"iiii", L"iiiiiiii"}) {
        TextControl* text = make(password, PLAIN | wxTE_PASSWORD);
        text->applySkin(testSkin());
        text->Disable();
        inks.push_back(redIn(shown(text)));
        EXPECT_EQ(text->GetValue(), password);
        text->Destroy();
    }
    EXPECT_FALSE(inks[0].IsEmpty());
    EXPECT_EQ(inks[0], inks[1]);
    EXPECT_GT(inks[2].width, inks[1].width * 3 / 2);
}

TEST_F(TextControlTest, destroyedWhileDisabledAndShown_isGoneWithoutATrace)
{
    TextControl* text = make(L"HHHH");
    text->applySkin(testSkin());
    text->Disable();
    panel->SetBackgroundColour(*wxWHITE);
    EXPECT_FALSE(redIn(shown(text)).IsEmpty());
    text->Destroy();
    Tests::pumpEvents(100);
    EXPECT_TRUE(redIn(Tests::captureClientArea(panel)).IsEmpty());
}
