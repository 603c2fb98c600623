// SPDX-License-Identifier: MIT
#include "ColorPickerButtonFixture.h"

#include "NolvexLibWx/ColourConversions.h"

#include <limits>

using namespace Nolvex;
using Wx::ColorPickerButton;

namespace {

constexpr RgbBytes BLACK{0, 0, 0};

struct ColorPickerButtonPixelTest : Tests::ColorPickerButtonFixture
{
    /// Returns the picture of the button as soon as the screen shows the colour, hatched or not.
    static wxImage pictureOf(ColorPickerButton* button, const RgbBytes& color)
    {
        wxImage picture;
        EXPECT_TRUE(Tests::pumpUntil([&] {
            picture = Tests::captureClientArea(button);
            const bool isPlain = Tests::pixelAt(picture, 1, 1) == color;
            return Tests::pixelAt(picture, 1, 4) == color && isPlain == button->IsEnabled();
        })) << testing::PrintToString(color);
        return picture;
    }

    /// Compares every pixel of the button with the outline, the colour and, if `stripe` is another colour,
    /// the hatching.
    static void expectSwatch(const wxImage& picture, const RgbBytes& color, const RgbBytes& stripe)
    {
        const int right = picture.GetWidth() - 1;
        const int bottom = picture.GetHeight() - 1;
        int wrong = 0;
        for (int y = 0; y <= bottom; ++y) {
            for (int x = 0; x <= right; ++x) {
                const bool isOutline = x == 0 || y == 0 || x == right || y == bottom;
                const bool isStripe = (x + y) % 10 < 5;
                const RgbBytes& expected = isOutline ? BLACK : isStripe ? stripe : color;
                wrong += Tests::pixelAt(picture, x, y) == expected ? 0 : 1;
            }
        }
        EXPECT_EQ(wrong, 0) << "pixels";
    }

    void expectHatching(const Rgb& color, const RgbBytes& bytes, const RgbBytes& stripe)
    {
        ColorPickerButton* button = make();
        button->setColor(color, false);
        button->Enable(false);
        showFrame();
        expectSwatch(pictureOf(button, bytes), bytes, stripe);
    }
};

} // namespace

TEST_F(ColorPickerButtonPixelTest, swatch_fillsABlackOutline)
{
    ColorPickerButton* button = make();
    showFrame();
    expectSwatch(pictureOf(button, ORANGE_BYTES), ORANGE_BYTES, ORANGE_BYTES);
}

TEST_F(ColorPickerButtonPixelTest, setColor_repaints)
{
    ColorPickerButton* button = make();
    showFrame();
    ASSERT_TRUE(shows(button, ORANGE_BYTES));
    button->setColor(TEAL, false);
    expectSwatch(pictureOf(button, TEAL_BYTES), TEAL_BYTES, TEAL_BYTES);
}

TEST_F(ColorPickerButtonPixelTest, disabledBlack_isHatchedInDarkGrey)
{
    expectHatching({0, 0, 0, 1}, BLACK, {30, 30, 30});
}

TEST_F(ColorPickerButtonPixelTest, disabledWhite_isHatchedInLightGrey)
{
    expectHatching({1, 1, 1, 1}, {255, 255, 255}, {225, 225, 225});
}

TEST_F(ColorPickerButtonPixelTest, hatching_becomesLighterUpToThirtyAndDarkerAbove)
{
    expectHatching(Wx::toRgb(wxColour(30, 31, 128)), {30, 31, 128}, {60, 1, 98});
}

TEST_F(ColorPickerButtonPixelTest, enabledAgain_losesTheHatching)
{
    ColorPickerButton* button = make();
    button->Enable(false);
    showFrame();
    expectSwatch(pictureOf(button, ORANGE_BYTES), ORANGE_BYTES, {225, 98, 30});
    button->Enable();
    expectSwatch(pictureOf(button, ORANGE_BYTES), ORANGE_BYTES, ORANGE_BYTES);
}

TEST_F(ColorPickerButtonPixelTest, constructedDisabled_isHatched)
{
    ColorPickerButton* button = make({40, 40}, {}, false);
    showFrame();
    ASSERT_TRUE(shows(button, ORANGE_BYTES) || shows(button, {225, 98, 30}));
    expectSwatch(Tests::captureClientArea(button), ORANGE_BYTES, {225, 98, 30});
}

TEST_F(ColorPickerButtonPixelTest, disabledParent_hatchesNothing)
{
    ColorPickerButton* button = make();
    showFrame();
    panel->Enable(false);
    Tests::pumpEvents();
    expectSwatch(Tests::captureClientArea(button), ORANGE_BYTES, ORANGE_BYTES);
    panel->Enable(true);
}

TEST_F(ColorPickerButtonPixelTest, channelsBeyondTheDisplay_areClamped)
{
    ColorPickerButton* button = make();
    button->setColor({7.5f, -3.0f, 0.5f, 0.0f}, false);
    showFrame();
    expectSwatch(pictureOf(button, {255, 0, 128}), {255, 0, 128}, {255, 0, 128});
}

TEST_F(ColorPickerButtonPixelTest, infinityAndNaN_arePainted)
{
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
    ColorPickerButton* button = make();
    showFrame();
    button->setColor({ENDLESS, NOT_A_NUMBER, -ENDLESS, NOT_A_NUMBER}, false);
    expectSwatch(pictureOf(button, {255, 0, 0}), {255, 0, 0}, {255, 0, 0});
    button->setColor({NOT_A_NUMBER, NOT_A_NUMBER, ENDLESS, ENDLESS}, false);
    expectSwatch(pictureOf(button, {0, 0, 255}), {0, 0, 255}, {0, 0, 255});
}

TEST_F(ColorPickerButtonPixelTest, tinyButtons_showTheirOutline)
{
    ColorPickerButton* button = make();
    showFrame();
    button->SetSize(1, 1); // too small for an outline
    Tests::pumpEvents();
    for (const int size : {2, 3}) {
        button->SetSize(size, size);
        button->Enable(size != 3);
        Tests::pumpEvents();
        const wxImage picture = Tests::captureClientArea(button);
        ASSERT_EQ(picture.GetSize(), wxSize(size, size));
        EXPECT_EQ(Tests::pixelAt(picture, 0, 0), BLACK);
        EXPECT_EQ(Tests::pixelAt(picture, size - 1, size - 1), BLACK);
    }
}
