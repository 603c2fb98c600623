// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/PixelProbeFixture.h"
#include "support/DefaultSkinGuard.h"
#include "support/Ink.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::GuiSkin;
using Wx::PixelProbe;

namespace {

constexpr RgbBytes RED{144, 20, 20};

struct PixelProbePixelTest : Tests::PixelProbeFixture
{
    bool isShown(wxWindow* window, const RgbBytes& colour, int x, int y) const
    {
        return Tests::pumpUntil(
            [&] { return Tests::pixelAt(Tests::captureClientArea(window), x, y) == colour; }, 2000);
    }

    /// Returns whether some pixel of the window has the colour.
    static bool contains(wxWindow* window, const RgbBytes& colour)
    {
        return Tests::pumpUntil(
            [&] {
                const wxImage image = Tests::captureClientArea(window);
                for (int y = 0; y < image.GetHeight(); ++y) {
                    for (int x = 0; x < image.GetWidth(); ++x) {
                        if (Tests::pixelAt(image, x, y) == colour)
                            return true;
                    }
                }
                return false;
            },
            2000);
    }

    static RgbBytes backgroundOf(const wxWindow* window)
    {
        return Wx::toRgbBytes(window->GetBackgroundColour());
    }

    static RgbBytes foregroundOf(const wxWindow* window)
    {
        return Wx::toRgbBytes(window->GetForegroundColour());
    }

    Tests::DefaultSkinGuard guard;
};

} // namespace

TEST_F(PixelProbePixelTest, swatch_isFilledWithTheBytes)
{
    pixel.toneMapped = {126.5f / 255.0f, 1.7f, -0.2f, 0};
    showProbe();
    const RgbBytes expected{126, 255, 0};
    const wxSize size = swatch()->GetSize();
    EXPECT_TRUE(isShown(swatch(), expected, 0, 0));
    EXPECT_TRUE(isShown(swatch(), expected, size.x - 1, size.y - 1));
    pixel.toneMapped = {0, 0.5f, 1, 0};
    update();
    EXPECT_TRUE(isShown(swatch(), {0, 128, 255}, size.x / 2, size.y / 2));
}

TEST_F(PixelProbePixelTest, frame_hasTheColoursOfTheSkin)
{
    pixel.colourSpace = String(Tests::BLOCK_LABEL);
    text(2)->SetFont(Tests::blockFont());
    showProbe();
    probe->updatePosition({-15, -15}); // at large scales the frame is nearly as wide as the screen
    EXPECT_TRUE(isShown(probe, GuiSkin::DEFAULT().background, 1, 1));
    EXPECT_TRUE(isShown(text(2), GuiSkin::DEFAULT().background, text(2)->GetSize().x - 1, 1));
    EXPECT_TRUE(contains(text(2), GuiSkin::DEFAULT().text));
}

TEST_F(PixelProbePixelTest, construction_takesTheDefaultSkin)
{
    GuiSkin::DEFAULT().background = {1, 2, 3};
    GuiSkin::DEFAULT().text = {4, 5, 6};
    const auto* other = new PixelProbe(panel, {}, String());
    EXPECT_EQ(backgroundOf(other), (RgbBytes{1, 2, 3}));
    EXPECT_EQ(foregroundOf(other->GetChildren().back()->GetPrevSibling()), (RgbBytes{4, 5, 6}));
    EXPECT_EQ(backgroundOf(probe), guard.before.background);
}

TEST_F(PixelProbePixelTest, warning_isRedOnTheTextColourOfTheSkin)
{
    probe->Destroy();
    probe = new PixelProbe(
        panel, [this](const Pixel&) { return pixel; }, Tests::BLOCK_LABEL);
    warning()->SetFont(Tests::blockFont());
    pixel.toneMapped.g = 1.0f / 0.0f;
    showProbe();
    EXPECT_TRUE(contains(warning(), RED));
    EXPECT_EQ(backgroundOf(warning()), GuiSkin::DEFAULT().text);
}

TEST_F(PixelProbePixelTest, anotherSkin_leavesTheWarningRedAndReadable)
{
    GuiSkin light;
    light.background = {230, 230, 230};
    light.text = {20, 20, 20};
    Wx::applySkinRecursive(frame, light);
    EXPECT_EQ(backgroundOf(probe), light.background);
    EXPECT_EQ(foregroundOf(text(1)), light.text);
    EXPECT_EQ(foregroundOf(warning()), RED);
    EXPECT_EQ(backgroundOf(warning()), light.background);
    Wx::applySkinRecursive(frame, GuiSkin::DEFAULT());
    EXPECT_EQ(foregroundOf(warning()), RED);
    EXPECT_EQ(backgroundOf(warning()), GuiSkin::DEFAULT().text);
}

TEST_F(PixelProbePixelTest, values_areRepaintedWhereTheFrameHasMoved)
{
    showProbe();
    pixel.toneMapped = {1, 0, 0, 1};
    probe->updatePosition({300, 40});
    EXPECT_TRUE(isShown(swatch(), {255, 0, 0}, 3, 3));
    EXPECT_EQ(probe->GetScreenPosition(), wxPoint(320, 60));
    EXPECT_EQ(swatch()->GetScreenPosition(), probe->ClientToScreen(swatch()->GetPosition()));
}
