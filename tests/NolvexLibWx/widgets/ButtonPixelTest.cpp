// SPDX-License-Identifier: MIT
// Tests the pixels of a button's face at the scale of the screen.
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/Button.h"
#include "support/FrameFixture.h"
#include "support/Ink.h"

using namespace Nolvex;
using namespace Nolvex::Tests;
using Wx::Button;

namespace {

constexpr Flags<OskaBorderState> ENABLED = OskaBorderState::ENABLED;
constexpr Flags<OskaBorderState> NO_FRAME = OskaBorderState::NO_FRAME;
constexpr Flags<OskaBorderState> HOVERED = OskaBorderState::HOVERED;
constexpr RgbBytes ICON{200, 100, 50};
constexpr RgbBytes OUTER{54, 54, 54};
constexpr RgbBytes INNER{37, 37, 37};
constexpr RgbBytes HIGHLIGHT{0, 114, 188};
constexpr RgbBytes BOTTOM_INNER{85, 85, 85};
const wxColour LABEL_COLOUR(250, 250, 0);
const wxColour DISABLED_TEXT(110, 110, 110);
const wxSize FACE_SIZE(141, 61);
constexpr int ICON_LENGTH = 16;

wxBitmap icon(const RgbBytes& colour)
{
    wxImage image(ICON_LENGTH, ICON_LENGTH);
    image.SetRGB(wxRect(0, 0, ICON_LENGTH, ICON_LENGTH), colour.r, colour.g, colour.b);
    return {image};
}

Button::Face labelled(const wxString& label)
{
    return {.border = ENABLED, .bitmap = {}, .label = label, .font = blockFont(), .textColour = LABEL_COLOUR};
}

wxImage drawn(const Button::Face& face)
{
    return painted(FACE_SIZE, [&face](wxDC& dc) {
        Button::draw(dc, {{0, 0}, {FACE_SIZE.x, FACE_SIZE.y}}, face);
    });
}

// Returns the rectangle around the label's pixels, which lie inside the border and to the right of an icon.
wxRect labelInk(const wxImage& image, int left = 2)
{
    return inkIn(image, wxRect(wxPoint(left, 2), wxPoint(FACE_SIZE.x - 3, FACE_SIZE.y - 3)));
}

wxSize extentOf(const wxString& label)
{
    wxBitmap bitmap(1, 1, 24);
    wxMemoryDC dc(bitmap);
    dc.SetFont(blockFont());
    return dc.GetTextExtent(label);
}

// Returns the place of the label's pixels in its cell.
wxPoint inkOffset(const wxString& label)
{
    const wxPoint margin(20, 10);
    const wxImage image = painted(FACE_SIZE + wxSize(40, 20), [&](wxDC& dc) {
        dc.SetFont(blockFont());
        dc.SetTextForeground(LABEL_COLOUR);
        dc.DrawText(label, margin);
    });
    return inkIn(image, wxRect(image.GetSize())).GetTopLeft() - margin;
}

// The label rises by 0, 2 and 0 pixels at the scales 1, 2 and 3.
int rise()
{
    return Wx::scaleByDpi(1) == 2 ? 2 : 0;
}

struct ButtonPixelTest : FrameFixture
{
    wxBitmap enabledIcon = icon(ICON);
    wxBitmap disabledIcon = icon({50, 100, 200});

    Button* make(bool enabled = true, bool hasDisabledIcon = true)
    {
        auto* button = new Button(panel, Wx::GuiSkin::DEFAULT(), wxID_ANY, L"Label", enabledIcon,
                                  hasDisabledIcon ? disabledIcon : wxBitmap(), {}, Button::Behavior::TOGGLE,
                                  enabled, ENABLED);
        button->SetSize(wxRect(wxPoint(0, 0), FACE_SIZE));
        return button;
    }
};

} // namespace

TEST_F(ButtonPixelTest, border_isThatOfItsState)
{
    Button::Face face = labelled({});
    wxImage image = drawn(face);
    EXPECT_EQ(pixelAt(image, 0, 0), OUTER);
    EXPECT_EQ(pixelAt(image, 1, 1), INNER);
    EXPECT_EQ(pixelAt(image, 2, 2), PAPER);
    EXPECT_EQ(pixelAt(image, 70, FACE_SIZE.y - 1), BOTTOM_INNER);
    face.border = ENABLED | HOVERED;
    EXPECT_EQ(pixelAt(drawn(face), 1, 1), HIGHLIGHT);
    face.border = HOVERED;
    EXPECT_EQ(pixelAt(drawn(face), 1, 1), INNER);
    face.border = NO_FRAME;
    image = drawn(face);
    EXPECT_EQ(pixelAt(image, 0, 0), INNER);
    EXPECT_EQ(pixelAt(image, 70, FACE_SIZE.y - 1), INNER);
    EXPECT_EQ(pixelAt(image, 1, 1), PAPER);
}

TEST_F(ButtonPixelTest, icon_standsAtTheInnerCornerOfTheBorder)
{
    Button::Face face = labelled({});
    face.bitmap = enabledIcon;
    const wxImage image = drawn(face);
    EXPECT_EQ(inkIn(image, wxRect(2, 2, 100, 30)), wxRect(2, 2, 16, 16));
    EXPECT_EQ(pixelAt(image, 2, 2), ICON);
    EXPECT_EQ(pixelAt(image, 17, 17), ICON);
}

TEST_F(ButtonPixelTest, icon_withoutFrame_standsAPixelFurtherOut)
{
    Button::Face face = labelled({});
    face.border = NO_FRAME | ENABLED;
    face.bitmap = enabledIcon;
    const wxImage image = drawn(face);
    EXPECT_EQ(inkIn(image, wxRect(1, 1, 100, 30)), wxRect(1, 1, 16, 16));
    EXPECT_EQ(pixelAt(image, 1, 1), ICON);
}

TEST_F(ButtonPixelTest, label_isCentred)
{
    for (const wxString& label : {wxString(L"H"), wxString(L"Label")}) {
        const wxSize text = extentOf(label);
        const wxPoint corner = labelInk(drawn(labelled(label))).GetTopLeft() - inkOffset(label);
        EXPECT_EQ(corner, wxPoint((FACE_SIZE.x - text.x) / 2, (FACE_SIZE.y - text.y) / 2 - rise())) << label;
    }
}

TEST_F(ButtonPixelTest, label_besideAnIcon_isCentredInTheRest)
{
    Button::Face face = labelled(L"H");
    face.bitmap = enabledIcon;
    const wxSize text = extentOf(L"H");
    const wxPoint corner = labelInk(drawn(face), 18).GetTopLeft() - inkOffset(L"H");
    EXPECT_EQ(corner, wxPoint(16 + (FACE_SIZE.x - text.x - 16) / 2, (FACE_SIZE.y - text.y) / 2 - rise()));
}

TEST_F(ButtonPixelTest, label_widerThanTheButton_startsLeftOfIt)
{
    const wxString label(BLOCK_LABEL[0], 40); // without gaps between the letters
    const int width = extentOf(label).x;
    ASSERT_GT(width, 150);
    const wxRect ink = labelInk(drawn(labelled(label)));
    EXPECT_EQ(ink.x, 2) << "cut off at the border, where the letters go on";
    EXPECT_EQ(ink.GetRight(), 138);
}

TEST_F(ButtonPixelTest, label_hasTheGivenColour)
{
    for (const wxColour& colour : {LABEL_COLOUR, DISABLED_TEXT}) {
        Button::Face face = labelled(BLOCK_LABEL);
        face.textColour = colour;
        const wxImage image = drawn(face);
        const wxRect ink = labelInk(image);
        const wxPoint middle(ink.x + ink.width / 2, ink.y + ink.height / 2);
        EXPECT_EQ(pixelAt(image, middle.x, middle.y), Wx::toRgbBytes(colour));
    }
}

TEST_F(ButtonPixelTest, label_withAnAmpersand_showsIt)
{
    EXPECT_GT(labelInk(drawn(labelled(L"&H"))).width, labelInk(drawn(labelled(L"H"))).width);
}

TEST_F(ButtonPixelTest, face_followsTheButton)
{
    const Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    Button* button = make();
    Button::Face face = button->face();
    EXPECT_EQ(face.border, ENABLED);
    EXPECT_EQ(face.label, "Label");
    EXPECT_EQ(face.font, button->GetFont());
    EXPECT_EQ(face.textColour, Wx::toWxColour(skin.text));
    EXPECT_TRUE(face.bitmap.IsSameAs(enabledIcon));
    button->setToggled(true);
    EXPECT_EQ(button->face().textColour, Wx::toWxColour(skin.accentText));
    button->setHovered(true);
    EXPECT_EQ(button->face().border, ENABLED | HOVERED);
}

TEST_F(ButtonPixelTest, face_ofADisabledButton_isGreyAndShowsTheDisabledIcon)
{
    Button* button = make(false);
    EXPECT_EQ(button->face().textColour, DISABLED_TEXT);
    EXPECT_TRUE(button->face().bitmap.IsSameAs(disabledIcon));
    button->setToggled(true);
    EXPECT_EQ(button->face().textColour, DISABLED_TEXT);
    EXPECT_TRUE(make(false, false)->face().bitmap.IsSameAs(enabledIcon));
}

TEST_F(ButtonPixelTest, face_underADisabledParent_isGreyButKeepsTheIcon)
{
    Button* button = make();
    panel->Disable();
    EXPECT_EQ(button->face().textColour, DISABLED_TEXT);
    EXPECT_TRUE(button->face().bitmap.IsSameAs(enabledIcon));
    EXPECT_EQ(button->face().border, ENABLED);
}

TEST_F(ButtonPixelTest, screen_showsTheFaceOnTheBackgroundOfTheState)
{
    const Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    Button* button = make();
    showFrame();
    const auto shows = [button](const RgbBytes& background) {
        return pumpUntil([&] { return pixelAt(captureClientArea(button), 20, 36) == background; }, 2000);
    };
    EXPECT_TRUE(shows(skin.background));
    EXPECT_EQ(pixelAt(captureClientArea(button), 0, 0), OUTER);
    EXPECT_EQ(pixelAt(captureClientArea(button), 10, 10), ICON);
    button->setToggled(true);
    EXPECT_TRUE(shows(skin.accent));
    wxMouseEvent press(wxEVT_LEFT_DOWN);
    button->GetEventHandler()->ProcessEvent(press);
    EXPECT_TRUE(shows(skin.pressedBackground));
    button->setToggled(false);
    EXPECT_TRUE(shows(skin.pressedBackground));
}

TEST_F(ButtonPixelTest, leastHeight_isThatOfTheScale)
{
    EXPECT_EQ(make()->GetMinSize(), wxSize(-1, Wx::scaleByDpi(24)));
}
