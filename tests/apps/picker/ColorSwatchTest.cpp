// SPDX-License-Identifier: MIT
#include "apps/picker/ColorSwatch.h"

#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"

using namespace Nolvex;
using Picker::ColorSwatch;

namespace {

struct ColorSwatchTest : Tests::FrameFixture
{
    ColorSwatch* make(const Rgb& color, Function<void()> onTake) const
    {
        auto* swatch = new ColorSwatch(panel, L"test", {40, 24}, color, std::move(onTake));
        swatch->SetSize(swatch->GetMinSize());
        return swatch;
    }
};

} // namespace

TEST_F(ColorSwatchTest, releasedOutside_takesNothing)
{
    int taken = 0;
    ColorSwatch* swatch = make({1, 0, 0, 1}, [&] { ++taken; });
    showFrame();
    Tests::pressMouseAt(swatch, {10, 10});
    Tests::moveMouse(swatch, {150, 150});
    Tests::releaseMouse();
    EXPECT_EQ(taken, 0);
    Tests::clickAt(swatch, {10, 10});
    EXPECT_EQ(taken, 1);
}

TEST_F(ColorSwatchTest, callbackThatDestroysTheSwatch_isHarmless)
{
    ColorSwatch* swatch = nullptr;
    swatch = make({1, 0, 0, 1}, [&] {
        delete swatch;
        swatch = nullptr;
    });
    showFrame();
    Tests::clickAt(swatch, {10, 10});
    EXPECT_EQ(swatch, nullptr);
}

TEST_F(ColorSwatchTest, halfTransparentColour_showsChecksOfTwoShades)
{
    ColorSwatch* swatch = make({1, 0, 0, 0.5f}, {});
    showFrame();
    Tests::pumpEvents();
    const wxImage picture = Tests::captureClientArea(swatch);
    EXPECT_EQ(Tests::pixelAt(picture, 9, 9), (RgbBytes{230, 102, 102}));
    EXPECT_EQ(Tests::pixelAt(picture, 13, 9), (RgbBytes{191, 64, 64}));
}

TEST_F(ColorSwatchTest, withoutACallback_takesNoFocus)
{
    EXPECT_FALSE(make({1, 0, 0, 1}, {})->IsFocusable());
    EXPECT_TRUE(make({1, 0, 0, 1}, [] {})->IsFocusable());
}
