// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/PixelProbe.h"

#include "NolvexLibWx/widgets/PixelProbeFixture.h"
#include "support/DecimalComma.h"

#include <wx/app.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

using namespace Nolvex;
using Wx::PixelProbe;

namespace {

static_assert(std::is_base_of_v<wxFrame, PixelProbe>);

constexpr float INF = std::numeric_limits<float>::infinity();
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

struct PixelProbeTest : Tests::PixelProbeFixture
{
    wxString bytesOf(const Rgb& colour, float alpha)
    {
        pixel.toneMapped = colour;
        pixel.alpha = alpha;
        update();
        return bytesLabel();
    }

    bool warnsOf(const Rgb& original, const Rgb& toneMapped)
    {
        pixel.original = original;
        pixel.toneMapped = toneMapped;
        update();
        return warning()->IsShown();
    }
};

} // namespace

TEST_F(PixelProbeTest, construction_makesAHiddenFrameOfThatStyle)
{
    EXPECT_FALSE(probe->IsShown());
    EXPECT_EQ(probe->GetParent(), panel);
    EXPECT_EQ(probe->GetWindowStyleFlag(), wxFRAME_FLOAT_ON_PARENT | wxFRAME_NO_TASKBAR);
    EXPECT_EQ(probe->GetName(), wxFrameNameStr);
    EXPECT_TRUE(probe->IsDoubleBuffered());
    EXPECT_EQ(warning()->GetLabel(), "Not a number");
    EXPECT_FALSE(warning()->IsShown());
    EXPECT_EQ(positionLabel() + originalLabel() + toneMappedLabel() + bytesLabel(), wxString());
}

TEST_F(PixelProbeTest, construction_withoutAParent_makesAFrameAsWell)
{
    auto* free = new PixelProbe(nullptr, {}, String());
    free->updatePosition(PLACE);
    EXPECT_EQ(free->GetPosition(), wxPoint(170, 180));
    Tests::destroyNow(free);
}

TEST_F(PixelProbeTest, updatePosition_asksForThatPosition)
{
    probe->updatePosition({-7, 1234});
    EXPECT_EQ(asked, (Pixel{-7, 1234}));
}

TEST_F(PixelProbeTest, updatePosition_movesAHiddenFrame)
{
    probe->updatePosition({300, 200});
    EXPECT_FALSE(probe->IsShown());
    EXPECT_EQ(probe->GetPosition(), wxPoint(320, 220));
    showFrame();
    probe->Show();
    EXPECT_TRUE(Tests::pumpUntil([this] { return probe->GetScreenPosition() == wxPoint(320, 220); }));
}

TEST_F(PixelProbeTest, updatePosition_movesAShownFrame)
{
    showProbe();
    EXPECT_EQ(probe->GetScreenPosition(), wxPoint(170, 180));
    probe->updatePosition({400, 30});
    Tests::pumpEvents(100);
    EXPECT_EQ(probe->GetScreenPosition(), wxPoint(420, 50));
}

// wxWidgets takes the coordinate -1 for "as before" unless it is told not to.
TEST_F(PixelProbeTest, updatePosition_movesToNegativeCoordinates)
{
    showProbe();
    probe->updatePosition({-21, -21});
    Tests::pumpEvents(100);
    EXPECT_EQ(probe->GetScreenPosition(), wxPoint(-1, -1));
    probe->updatePosition({-100, 60});
    Tests::pumpEvents(100);
    EXPECT_EQ(probe->GetScreenPosition(), wxPoint(-80, 80));
}

TEST_F(PixelProbeTest, updatePosition_atTheEdgeOfTheScreen_keepsTheDistanceToTheMouse)
{
    showProbe();
    const wxSize screen = wxGetDisplaySize();
    const Pixel corner{screen.x - 1, screen.y - 1};
    probe->updatePosition(corner);
    Tests::pumpEvents(100);
    EXPECT_EQ(probe->GetScreenPosition(), wxPoint(corner.x + 20, corner.y + 20));
}

TEST_F(PixelProbeTest, updatePosition_atTheLimitsOfIntegers_doesNotOverflow)
{
    constexpr std::int32_t MIN = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t MAX = std::numeric_limits<std::int32_t>::max();
    pixel.position = {MIN, MAX};
    probe->updatePosition({MIN, MAX});
    EXPECT_EQ(asked, (Pixel{MIN, MAX}));
    EXPECT_EQ(positionLabel(), "Position:\n-2147483648\n2147483647");
}

TEST_F(PixelProbeTest, updatePosition_manyTimes_endsWithTheLastPixel)
{
    constexpr int UPDATES = 1'000;
    showProbe();
    for (int i = 0; i < UPDATES; ++i) {
        const float value = static_cast<float>(i % 250) / 255.0f;
        pixel.toneMapped = {value, value, value, 1};
        pixel.position = {i, -i};
        probe->updatePosition({100 + i % 200, 100 + i % 150});
        if (i % 100 == 0)
            wxYield();
    }
    EXPECT_EQ(positionLabel(), "Position:\n999\n-999");
    EXPECT_TRUE(Tests::pumpUntil([this] { return probe->GetScreenPosition() == wxPoint(319, 219); }, 1000));
}

TEST_F(PixelProbeTest, texts_tellTheProbedPixel)
{
    pixel = {{0.25f, -0.5f, 12.5f, 0.75f}, {0.5f, 0.0f, 1.7f, 0.25f}, 0.5f, {-3, 40}, L"Display P3"};
    update();
    EXPECT_EQ(positionLabel(), "Position:\n-3\n40");
    EXPECT_EQ(originalLabel(), "Original\nLinear RGB:\nR: 0.25000\nG: -0.50000\nB: 12.50000\nA: 0.75000");
    EXPECT_EQ(toneMappedLabel(), "Tonemapped\nDisplay P3:\nR: 0.50000\nG: 0.00000\nB: 1.70000\nA: 0.25000");
    EXPECT_EQ(bytesLabel(), "Tonemapped\nDisplay P3 8-bit:\nR: 128\nG: 0\nB: 255\nA: 128");
}

TEST_F(PixelProbeTest, colourSpace_mayHaveAnyName)
{
    const wxString names[] = {wxString(), L"Kamera \u00DF \u6620\u753B & \U0001F3A8", L"a\nb"};
    for (const wxString& name : names) {
        pixel.colourSpace = String(name.ToStdWstring());
        update();
        EXPECT_EQ(toneMappedLabel().BeforeLast('R'), L"Tonemapped\n" + name + L":\n");
        EXPECT_EQ(bytesLabel().BeforeLast('R'), L"Tonemapped\n" + name + L" 8-bit:\n");
    }
}

TEST_F(PixelProbeTest, colourSpace_ofManyCharacters_isShownAndLeavesTheFrameUsable)
{
    showProbe();
    const wxSize usual = probe->GetSize();
    const std::wstring name(100'000, L'x');
    pixel.colourSpace = String(name);
    update();
    Tests::pumpEvents(100);
    EXPECT_EQ(probe->GetSize().x, 16000);
    EXPECT_EQ(toneMappedLabel().length(), name.length() + wxString("Tonemapped\n:\nR: 0.50000\nG: 0.70000\n"
                                                                   "B: 1.00000\nA: 1.00000")
                                                              .length());
    pixel.colourSpace = L"sRGB";
    update();
    Tests::pumpEvents(100);
    EXPECT_EQ(probe->GetSize(), usual);
}

TEST_F(PixelProbeTest, numbers_areWrittenInFull)
{
    constexpr float MAX = std::numeric_limits<float>::max();
    constexpr float DENORMAL = std::numeric_limits<float>::denorm_min();
    pixel.original = {MAX, -MAX, -0.0f, DENORMAL};
    update();
    EXPECT_EQ(originalLabel(), "Original\nLinear RGB:\nR: 340282346638528859811704183484516925440.00000\n"
                               "G: -340282346638528859811704183484516925440.00000\nB: -0.00000\nA: 0.00000");
    // The last of these lies exactly between two numbers of five digits.
    pixel.original = {0.000004f, 0.000006f, -0.000006f, 0.015625f + 0.0000305175781250f};
    update();
    EXPECT_EQ(originalLabel(), "Original\nLinear RGB:\nR: 0.00000\nG: 0.00001\nB: -0.00001\nA: 0.01566");
}

TEST_F(PixelProbeTest, numbers_ofInfinityAndNan_areWords)
{
    pixel.original = {INF, -INF, NOT_A_NUMBER, INF};
    update();
    EXPECT_EQ(originalLabel(), "Original\nLinear RGB:\nR: inf\nG: -inf\nB: nan\nA: inf");
}

TEST_F(PixelProbeTest, numbers_haveADecimalPointInEveryLocale)
{
    const Tests::DecimalComma comma;
    if (!comma.isInEffect())
        GTEST_SKIP() << "The system has no locale with a decimal comma.";
    update();
    EXPECT_EQ(originalLabel(), "Original\nLinear RGB:\nR: 0.25000\nG: 0.50000\nB: 1.00000\nA: 1.00000");
}

TEST_F(PixelProbeTest, bytes_areClampedAndColoursRoundHalfToEven)
{
    EXPECT_EQ(bytesOf({1.7f, -0.2f, 0.5f, 0}, 0), "Tonemapped\nsRGB 8-bit:\nR: 255\nG: 0\nB: 128\nA: 0");
    constexpr float TIE_AT_126 = 126.5f / 255.0f;
    constexpr float TIE_AT_127 = 127.5f / 255.0f;
    ASSERT_EQ(TIE_AT_126 * 255.0f, 126.5f);
    ASSERT_EQ(TIE_AT_127 * 255.0f, 127.5f);
    EXPECT_EQ(bytesOf({TIE_AT_126, TIE_AT_127, TIE_AT_126, 0}, TIE_AT_126),
              "Tonemapped\nsRGB 8-bit:\nR: 126\nG: 128\nB: 126\nA: 127");
    EXPECT_EQ(bytesOf({0, 0, 0, 0}, TIE_AT_127).AfterLast('\n'), "A: 128");
}

TEST_F(PixelProbeTest, bytes_tellTheSeparateAlpha)
{
    EXPECT_EQ(bytesOf({0, 0, 0, 0.25f}, 1.0f).AfterLast('\n'), "A: 255");
    EXPECT_EQ(toneMappedLabel().AfterLast('\n'), "A: 0.25000");
}

TEST_F(PixelProbeTest, bytes_ofInfinityAndNan_areWithinTheirRange)
{
    EXPECT_EQ(bytesOf({INF, -INF, NOT_A_NUMBER, 0}, NOT_A_NUMBER),
              "Tonemapped\nsRGB 8-bit:\nR: 255\nG: 0\nB: 0\nA: 0");
    EXPECT_EQ(bytesOf({0, 0, 0, 0}, INF).AfterLast('\n'), "A: 255");
    EXPECT_EQ(bytesOf({0, 0, 0, 0}, -INF).AfterLast('\n'), "A: 0");
    EXPECT_EQ(bytesOf({1e30f, -1e30f, -NOT_A_NUMBER, 0}, 1e30f),
              "Tonemapped\nsRGB 8-bit:\nR: 255\nG: 0\nB: 0\nA: 255");
}

TEST_F(PixelProbeTest, warning_isShownWhileAColourIsInfiniteOrNan)
{
    const Rgb good{1, 1, 1, 1};
    EXPECT_FALSE(warnsOf(good, good));
    for (const float bad : {INF, -INF, NOT_A_NUMBER, -NOT_A_NUMBER}) {
        for (const Rgb& colour : {Rgb{bad, 0, 0, 1}, Rgb{0, bad, 0, 1}, Rgb{0, 0, bad, 1}}) {
            EXPECT_TRUE(warnsOf(colour, good)) << colour.r << colour.g << colour.b;
            EXPECT_FALSE(warnsOf(good, good));
            EXPECT_TRUE(warnsOf(good, colour)) << colour.r << colour.g << colour.b;
            EXPECT_FALSE(warnsOf(good, good));
        }
    }
}

TEST_F(PixelProbeTest, warning_isNotShownForAlphaAndLargeNumbers)
{
    pixel.alpha = NOT_A_NUMBER;
    EXPECT_FALSE(warnsOf({0, 0, 0, NOT_A_NUMBER}, {0, 0, 0, INF}));
    constexpr float MAX = std::numeric_limits<float>::max();
    EXPECT_FALSE(warnsOf({MAX, -MAX, 0, 0}, {MAX, -MAX, 0, 0}));
}

TEST_F(PixelProbeTest, warning_enlargesTheFrameWhileShown)
{
    update();
    const wxSize without = probe->GetSize();
    pixel.original.b = NOT_A_NUMBER;
    update();
    EXPECT_GE(probe->GetSize().y, without.y + warning()->GetSize().y);
    pixel.original.b = 1;
    update();
    EXPECT_EQ(probe->GetSize(), without);
}

TEST_F(PixelProbeTest, withoutAFunction_followsAndShowsNothingElse)
{
    auto* empty = new PixelProbe(panel, {}, String());
    const wxSize size = empty->GetSize();
    empty->updatePosition({300, 200});
    EXPECT_EQ(empty->GetPosition(), wxPoint(320, 220));
    EXPECT_EQ(empty->GetSize(), size);
    for (wxWindow* child : empty->GetChildren()) {
        const auto* label = dynamic_cast<Wx::StaticText*>(child);
        EXPECT_TRUE(label == nullptr || label->GetLabel().empty());
    }
}

TEST_F(PixelProbeTest, aFunctionThatThrows_leavesTheLastValues)
{
    bool throws = false;
    auto* other = new PixelProbe(
        panel,
        [&](const Pixel&) {
            if (throws)
                throw std::runtime_error("no pixel");
            return pixel;
        },
        String());
    other->updatePosition(PLACE);
    other->Show();
    Array<wxString> labels;
    for (wxWindow* child : other->GetChildren())
        labels.push_back(child->GetLabel());
    throws = true;
    pixel.position = {9, 9};
    EXPECT_THROW(other->updatePosition({300, 200}), std::runtime_error);
    EXPECT_FALSE(other->IsFrozen());
    EXPECT_EQ(other->GetPosition(), wxPoint(320, 220));
    std::size_t index = 0;
    for (wxWindow* child : other->GetChildren())
        EXPECT_EQ(child->GetLabel(), labels.at(index++));
}

TEST_F(PixelProbeTest, aFunctionMayDestroyTheFrame)
{
    wxWeakRef<PixelProbe> doomed;
    const auto doom = [&](const auto& destroy) {
        doomed = new PixelProbe(
            panel,
            [&, text = std::wstring(100, L'x')](const Pixel&) {
                destroy();
                EXPECT_EQ(text.length(), 100U); // what the function holds outlives the frame
                return pixel;
            },
            String());
        doomed->updatePosition(PLACE);
    };
    doom([&] { delete doomed.get(); });
    EXPECT_EQ(doomed, nullptr);
    doom([&] { doomed->Destroy(); });
    EXPECT_TRUE(Tests::pumpUntil([&] { return doomed == nullptr; }));
    doom([&] { delete frame.get(); });
    EXPECT_EQ(doomed, nullptr);
    EXPECT_EQ(probe, nullptr);
}

TEST_F(PixelProbeTest, aFunctionMayUpdateTheFrame)
{
    int depth = 0;
    PixelProbe* other = nullptr;
    other = new PixelProbe(
        panel,
        [&](const Pixel& position) {
            if (++depth < 3)
                other->updatePosition(position + Pixel{1, 1});
            return pixel;
        },
        String());
    other->updatePosition(PLACE);
    EXPECT_EQ(depth, 3);
    EXPECT_FALSE(other->IsFrozen());
}

TEST_F(PixelProbeTest, destruction_releasesTheFunction)
{
    const auto held = std::make_shared<int>(5);
    auto* other = new PixelProbe(
        panel, [held, this](const Pixel&) { return pixel; }, String());
    EXPECT_EQ(held.use_count(), 2);
    Tests::destroyNow(other);
    EXPECT_EQ(held.use_count(), 1);
}
