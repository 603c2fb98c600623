// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/PixelProbeFixture.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Nolvex;
using Wx::scaleByDpi;

// The environment of the run sets the scale. The tests hold at every scale.

namespace {

struct PixelProbeSizeTest : Tests::PixelProbeFixture
{
    /// Returns the right edge of the text, beside which the next text stands.
    static int rightOf(const wxWindow* window) { return window->GetPosition().x + window->GetSize().x; }
};

} // namespace

TEST_F(PixelProbeSizeTest, swatch_hasAScaledSizeAndStandsAboveThePosition)
{
    update();
    const int border = scaleByDpi(7);
    EXPECT_EQ(swatch()->GetSize(), scaleByDpi(wxSize(45, 27)));
    EXPECT_EQ(swatch()->bitmap().GetSize(), scaleByDpi(wxSize(45, 27)));
    EXPECT_EQ(swatch()->GetPosition(), wxPoint(border, border + scaleByDpi(3)));
    EXPECT_EQ(text(0)->GetPosition(),
              wxPoint(border, swatch()->GetPosition().y + scaleByDpi(27) + scaleByDpi(1)));
}

TEST_F(PixelProbeSizeTest, texts_standInARow)
{
    update();
    const int border = scaleByDpi(7);
    const int column = std::max(rightOf(swatch()), rightOf(text(0)));
    EXPECT_EQ(text(1)->GetPosition(), wxPoint(column + 2 * border, border));
    EXPECT_EQ(text(2)->GetPosition(), wxPoint(rightOf(text(1)) + 2 * border, border));
    EXPECT_EQ(text(3)->GetPosition(), wxPoint(rightOf(text(2)) + 2 * border, border));
    for (const std::size_t index : {0, 1, 2, 3})
        EXPECT_EQ(text(index)->GetSize(), text(index)->GetBestSize());
}

TEST_F(PixelProbeSizeTest, frame_fitsItsContents)
{
    update();
    const int border = scaleByDpi(7);
    const int height = std::max({text(0)->GetPosition().y + text(0)->GetSize().y,
                                 text(1)->GetSize().y + border, text(2)->GetSize().y + border});
    EXPECT_EQ(probe->GetClientSize(), wxSize(rightOf(text(3)) + border, height + border));
}

TEST_F(PixelProbeSizeTest, frame_growsWithItsTexts)
{
    update();
    const wxSize before = probe->GetSize();
    pixel.colourSpace = L"A colour space with a long name";
    update();
    EXPECT_GT(probe->GetSize().x, before.x);
    EXPECT_EQ(probe->GetClientSize().x, rightOf(text(3)) + scaleByDpi(7));
}

TEST_F(PixelProbeSizeTest, warning_standsBelowTheRowWithoutABorderAbove)
{
    update();
    const int row = probe->GetClientSize().y;
    pixel.toneMapped.r = 1.0f / 0.0f;
    update();
    const int border = scaleByDpi(7);
    EXPECT_EQ(warning()->GetPosition(), wxPoint(border, row));
    EXPECT_EQ(probe->GetClientSize().y, row + warning()->GetSize().y + border);
}

TEST_F(PixelProbeSizeTest, frame_keepsItsSizeWhenShown)
{
    update();
    const wxSize hidden = probe->GetSize();
    showProbe();
    EXPECT_EQ(probe->GetSize(), hidden);
    EXPECT_EQ(text(3)->GetScreenPosition(), probe->ClientToScreen(text(3)->GetPosition()));
}
