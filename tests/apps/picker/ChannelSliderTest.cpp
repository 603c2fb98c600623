// SPDX-License-Identifier: MIT
#include "apps/picker/ChannelSlider.h"

#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"

#include <limits>

using namespace Nolvex;
using Picker::ChannelSlider;
using Tests::pumpUntil;
using Tests::typeKey;

namespace {

struct ChannelSliderTest : Tests::FrameFixture
{
    ChannelSliderTest()
    {
        slider->SetPosition({20, 20});
        slider->SetSize(slider->GetMinSize());
    }

    wxPoint middle() const { return {slider->GetClientSize().x / 2, slider->GetClientSize().y / 2}; }

    wxPoint end() const { return {slider->GetClientSize().x - 1, slider->GetClientSize().y / 2}; }

    RgbBytes pixel(const wxPoint& place) const
    {
        return Tests::pixelAt(Tests::captureClientArea(slider), place.x, place.y);
    }

    Array<float> changes;
    ChannelSlider* slider = new ChannelSlider(
        panel, L"Red", {2.0f, 0.25f},
        [](float number) {
            return Rgb{number, 0, 0, 1};
        },
        [this](float number) { changes.push_back(number); });
};

} // namespace

TEST_F(ChannelSliderTest, setter_isSilentAndClamps)
{
    slider->setNumber(1.5f);
    EXPECT_EQ(slider->number(), 1.5f);
    slider->setNumber(7.0f);
    EXPECT_EQ(slider->number(), 2.0f);
    slider->setNumber(-std::numeric_limits<float>::infinity());
    EXPECT_EQ(slider->number(), 0.0f);
    slider->setNumber(1.0f);
    slider->setNumber(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(slider->number(), 0.0f);
    EXPECT_TRUE(changes.empty());
}

TEST_F(ChannelSliderTest, press_movesTheKnobToTheMouse)
{
    showFrame();
    Tests::pressMouseAt(slider, middle());
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_NEAR(changes[0], 1.0f, 0.02f);
    EXPECT_NEAR(slider->knobPosition(), middle().x, 1);
    Tests::releaseMouse();
    EXPECT_EQ(changes.size(), 1u);
}

TEST_F(ChannelSliderTest, drag_followsTheMouseBeyondBothEnds)
{
    showFrame();
    Tests::pressMouseAt(slider, middle());
    Tests::moveMouse(slider, end() + wxPoint(60, 50));
    EXPECT_EQ(slider->number(), 2.0f);
    Tests::moveMouse(slider, {-10, -10});
    EXPECT_EQ(slider->number(), 0.0f);
    Tests::releaseMouse();
    Tests::moveMouse(slider, middle());
    EXPECT_EQ(slider->number(), 0.0f) << "the mouse was released";
}

TEST_F(ChannelSliderTest, lostMouse_endsTheDrag)
{
    showFrame();
    Tests::pressMouseAt(slider, middle());
    panel->Disable();
    Tests::pumpEvents();
    panel->Enable();
    const std::size_t before = changes.size();
    Tests::moveMouse(slider, end());
    EXPECT_EQ(changes.size(), before);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::releaseMouse();
}

TEST_F(ChannelSliderTest, keys_moveTheKnobBySteps)
{
    showFrame();
    slider->SetFocus();
    slider->setNumber(0.5f);
    typeKey(WXK_RIGHT);
    typeKey(WXK_UP);
    EXPECT_EQ(slider->number(), 1.0f);
    typeKey(WXK_LEFT);
    typeKey(WXK_DOWN);
    EXPECT_EQ(slider->number(), 0.5f);
    typeKey(WXK_PAGEUP);
    EXPECT_EQ(slider->number(), 2.0f);
    typeKey(WXK_PAGEDOWN);
    EXPECT_EQ(slider->number(), 0.0f);
    typeKey(WXK_END);
    EXPECT_EQ(slider->number(), 2.0f);
    typeKey(WXK_HOME);
    EXPECT_EQ(slider->number(), 0.0f);
    EXPECT_EQ(changes.size(), 8u);
    typeKey(WXK_HOME);
    EXPECT_EQ(changes.size(), 8u) << "nothing changed";
}

TEST_F(ChannelSliderTest, track_showsTheColourOfEachNumber)
{
    showFrame();
    const wxPoint knob(slider->knobPosition(), middle().y);
    EXPECT_TRUE(pumpUntil([&] { return pixel(knob) == RgbBytes{255, 255, 255}; }));
    EXPECT_EQ(pixel(middle()), (RgbBytes{255, 0, 0})) << "the middle of 0 to 2";
    const RgbBytes quarter = pixel({middle().x / 2, middle().y});
    EXPECT_NEAR(quarter.r, 128, 6);
    EXPECT_EQ(quarter.g, 0);
}

TEST_F(ChannelSliderTest, focus_isMarkedAroundTheTrack)
{
    auto* other = new wxPanel(panel, wxID_ANY, {20, 100}, {50, 20});
    showFrame();
    other->SetFocus();
    EXPECT_TRUE(pumpUntil([&] { return other->HasFocus(); }));
    Tests::pumpEvents();
    const Array<RgbBytes> before{pixel({3, middle().y}), pixel({middle().x, 3})};
    slider->SetFocus();
    EXPECT_TRUE(pumpUntil([&] {
        return pixel({3, middle().y}) != before[0] && pixel({middle().x, 3}) != before[1];
    }));
}

TEST_F(ChannelSliderTest, disabled_takesNoInput)
{
    showFrame();
    slider->Disable();
    Tests::clickAt(slider, middle());
    EXPECT_TRUE(changes.empty());
}

TEST_F(ChannelSliderTest, numberBeyondTheRange_canBeSetToTheNumberThatIsShown)
{
    showFrame();
    slider->SetFocus();
    slider->setNumber(std::numeric_limits<float>::quiet_NaN());
    typeKey(WXK_HOME);
    EXPECT_EQ(changes, Array<float>{0.0f});
    slider->setNumber(7.0f);
    typeKey(WXK_END);
    EXPECT_EQ(changes, (Array<float>{0.0f, 2.0f}));
    typeKey(WXK_END);
    EXPECT_EQ(changes.size(), 2u) << "the number is within the range now";
    slider->setNumber(-std::numeric_limits<float>::infinity());
    Tests::clickAt(slider, {0, middle().y});
    EXPECT_EQ(changes, (Array<float>{0.0f, 2.0f, 0.0f}));
}

TEST_F(ChannelSliderTest, stepAwayFromTheRange_leavesANumberBeyondTheRange)
{
    showFrame();
    slider->SetFocus();
    slider->setNumber(7.0f);
    typeKey(WXK_RIGHT);
    slider->setNumber(-7.0f);
    typeKey(WXK_PAGEDOWN);
    EXPECT_TRUE(changes.empty());
    typeKey(WXK_RIGHT);
    EXPECT_EQ(changes, Array<float>{0.25f});
}
