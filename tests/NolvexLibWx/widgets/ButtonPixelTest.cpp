// SPDX-License-Identifier: MIT
// What a button's face is made of, at whatever scale the screen has.
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/widgets/Button.h"
#include "support/Events.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

using namespace Nolvex;
using Wx::Button;

namespace {

constexpr Flags<OskaBorderState> ENABLED = OskaBorderState::ENABLED;
constexpr Flags<OskaBorderState> NO_FRAME = OskaBorderState::NO_FRAME;
constexpr Flags<OskaBorderState> HOVERED = OskaBorderState::HOVERED;
constexpr RgbBytes ICON{200, 100, 50};
constexpr RgbBytes DISABLED_ICON{50, 100, 200};
constexpr RgbBytes PAPER{10, 20, 30};

wxBitmap icon(int length, const RgbBytes& colour)
{
    wxImage image(length, length);
    image.SetRGB(wxRect(0, 0, length, length), colour.r, colour.g, colour.b);
    return {image};
}

wxImage painted(const wxSize& size, const std::function<void(wxDC&)>& paint)
{
    wxBitmap bitmap(size, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(Wx::toWxColour(PAPER)));
        dc.Clear();
        paint(dc);
    }
    return bitmap.ConvertToImage();
}

// How much higher than the middle the label stands at the scales 1, 2 and 3.
int rise()
{
    const int unit = Wx::scaleByDpi(1);
    return unit == 2 ? 2 : 0;
}

struct Face
{
    wxString label;
    bool hasIcon = false;
    bool hasDisabledIcon = false;
    Flags<OskaBorderState> border = ENABLED;
    bool toggled = false;
};

struct ButtonPixelTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "pixels");
    wxSize size = Wx::scaleByDpi(wxSize(140, 30));
    int iconLength = Wx::scaleByDpi(16);
    wxBitmap enabledIcon = icon(iconLength, ICON);
    wxBitmap disabledIcon = icon(iconLength / 2, DISABLED_ICON);

    ~ButtonPixelTest() override { Tests::destroyNow(frame); }

    Button* make(const Face& face, bool enabled)
    {
        auto* button = new Button(frame, Wx::GuiSkin::DEFAULT(), wxID_ANY, face.label,
                                  face.hasIcon ? enabledIcon : wxBitmap(),
                                  face.hasDisabledIcon ? disabledIcon : wxBitmap(), {},
                                  Button::Behavior::TOGGLE, enabled, face.border);
        button->setToggled(face.toggled);
        return button;
    }

    // The face put together once more from its parts.
    void expectedFace(wxDC& dc, const Face& face, const wxBitmap& shownIcon, const RgbBytes& textColour,
                      Flags<OskaBorderState> border, const wxFont& font) const
    {
        OskaBorder::draw(dc, {{0, 0}, Wx::toPixel(size)}, border);
        int iconWidth = 0;
        if (shownIcon.IsOk()) {
            const int inset = border.has(OskaBorderState::NO_FRAME) ? 1 : 2;
            dc.DrawBitmap(shownIcon, inset, inset);
            iconWidth = shownIcon.GetWidth();
        }
        if (face.label.empty())
            return;
        dc.SetFont(font);
        dc.SetTextForeground(Wx::toWxColour(textColour));
        const wxSize text = dc.GetTextExtent(face.label);
        dc.DrawText(face.label, iconWidth + (size.x - text.x - iconWidth) / 2,
                    (size.y - text.y) / 2 - rise());
    }

    void expectFace(const Face& face, bool enabled, const wxBitmap& shownIcon, const RgbBytes& textColour)
    {
        Button* button = make(face, enabled);
        const wxImage actual = painted(size, [&](wxDC& dc) {
            Button::draw(dc, {{0, 0}, Wx::toPixel(size)}, button->face());
        });
        Flags<OskaBorderState> border = face.border;
        border.set(OskaBorderState::ENABLED, enabled);
        const wxImage expected = painted(size, [&](wxDC& dc) {
            expectedFace(dc, face, shownIcon, textColour, border, button->GetFont());
        });
        for (int y = 0; y < size.y; ++y) {
            for (int x = 0; x < size.x; ++x)
                ASSERT_EQ(Tests::pixelAt(actual, x, y), Tests::pixelAt(expected, x, y))
                    << "at " << x << ", " << y;
        }
    }
};

} // namespace

TEST_F(ButtonPixelTest, label_isCentredInTheSkinsTextColour)
{
    expectFace({.label = L"Label"}, true, {}, Wx::GuiSkin::DEFAULT().text);
}

TEST_F(ButtonPixelTest, label_withAnAmpersand_showsIt)
{
    expectFace({.label = L"Drag & &drop"}, true, {}, Wx::GuiSkin::DEFAULT().text);
}

TEST_F(ButtonPixelTest, label_ofAToggledButton_hasTheAccentTextColour)
{
    Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    expectFace({.label = L"Label", .toggled = true}, true, {}, skin.accentText);
}

TEST_F(ButtonPixelTest, label_ofADisabledButton_isGreyWhateverTheSkin)
{
    expectFace({.label = L"Label"}, false, {}, {110, 110, 110});
    expectFace({.label = L"Label", .toggled = true}, false, {}, {110, 110, 110});
}

TEST_F(ButtonPixelTest, label_widerThanTheButton_startsLeftOfIt)
{
    expectFace({.label = L"A label that is a good deal wider than the whole button is", .hasIcon = true},
               true, enabledIcon, Wx::GuiSkin::DEFAULT().text);
}

TEST_F(ButtonPixelTest, icon_movesTheLabelToTheRight)
{
    expectFace({.label = L"Label", .hasIcon = true}, true, enabledIcon, Wx::GuiSkin::DEFAULT().text);
}

TEST_F(ButtonPixelTest, icon_withoutLabel_isDrawnAlone)
{
    expectFace({.label = wxString(), .hasIcon = true}, true, enabledIcon, {});
}

TEST_F(ButtonPixelTest, icon_withoutFrame_standsAPixelFurtherOut)
{
    expectFace({.label = L"Label", .hasIcon = true, .border = NO_FRAME}, true, enabledIcon,
               Wx::GuiSkin::DEFAULT().text);
}

TEST_F(ButtonPixelTest, disabledIcon_isShownWhenThereIsOne)
{
    expectFace({.label = L"Label", .hasIcon = true, .hasDisabledIcon = true}, false, disabledIcon,
               {110, 110, 110});
    expectFace({.label = L"Label", .hasIcon = true}, false, enabledIcon, {110, 110, 110});
    expectFace({.label = L"Label", .hasDisabledIcon = true}, true, {}, Wx::GuiSkin::DEFAULT().text);
}

TEST_F(ButtonPixelTest, hovered_lightsTheBorderOnlyWhileEnabled)
{
    expectFace({.label = L"Label", .border = ENABLED | HOVERED}, true, {}, Wx::GuiSkin::DEFAULT().text);
    expectFace({.label = L"Label", .border = HOVERED}, false, {}, {110, 110, 110});
}

TEST_F(ButtonPixelTest, background_onTheScreen_isThatOfTheState)
{
    const Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    Button* button = make({.label = L"Label"}, true);
    frame->SetClientSize(size);
    frame->Show();
    frame->Raise();
    Tests::pumpEvents(150);
    const auto shown = [&] {
        Tests::pumpEvents(100);
        return Tests::pixelAt(Tests::captureClientArea(button), 4, 4);
    };
    EXPECT_EQ(shown(), skin.background);
    button->setToggled(true);
    EXPECT_EQ(shown(), skin.accent);
    wxMouseEvent press(wxEVT_LEFT_DOWN);
    button->GetEventHandler()->ProcessEvent(press);
    EXPECT_EQ(shown(), skin.pressedBackground);
    button->setToggled(false);
    EXPECT_EQ(shown(), skin.pressedBackground);
}

TEST_F(ButtonPixelTest, leastHeight_isThatOfTheScale)
{
    EXPECT_EQ(make({}, true)->GetMinSize(), wxSize(-1, Wx::scaleByDpi(24)));
}

TEST_F(ButtonPixelTest, parentThatIsDisabled_greysTheLabelButKeepsTheIcon)
{
    auto* panel = new wxPanel(frame);
    auto* button = new Button(panel, Wx::GuiSkin::DEFAULT(), wxID_ANY, L"Label", enabledIcon, disabledIcon,
                              {}, Button::Behavior::PUSH, true, ENABLED);
    panel->Disable();
    const wxImage actual = painted(size, [&](wxDC& dc) {
        Button::draw(dc, {{0, 0}, Wx::toPixel(size)}, button->face());
    });
    const wxImage expected = painted(size, [&](wxDC& dc) {
        expectedFace(dc, {.label = L"Label"}, enabledIcon, {110, 110, 110}, ENABLED, button->GetFont());
    });
    EXPECT_EQ(
        0, std::memcmp(actual.GetData(), expected.GetData(), static_cast<std::size_t>(3 * size.x * size.y)));
}
