// SPDX-License-Identifier: MIT
#include "ColorPickerButtonFixture.h"

#include "NolvexLib/Object.h"
#include "NolvexLibWx/DpiScaling.h"

#include <wx/dcclient.h>

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>

using namespace Nolvex;
using Wx::ColorPickerButton;

namespace {

static_assert(std::is_base_of_v<wxPanel, ColorPickerButton>);
static_assert(std::is_base_of_v<Object, ColorPickerButton>);

struct ColorPickerButtonTest : Tests::ColorPickerButtonFixture
{};

struct ColorPickerButtonSizeTest : Tests::ColorPickerButtonFixture
{};

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float ENDLESS = std::numeric_limits<float>::infinity();

} // namespace

TEST_F(ColorPickerButtonTest, newButton_isAPanelWithoutABorder)
{
    const ColorPickerButton button(nullptr, panel, L"Title", wxSize(40, 30), true);
    EXPECT_EQ(button.GetParent(), panel);
    EXPECT_EQ(button.GetName(), wxPanelNameStr);
    EXPECT_TRUE(button.HasFlag(wxTAB_TRAVERSAL));
    EXPECT_EQ(button.GetWindowStyle() & wxBORDER_MASK, wxBORDER_NONE);
    EXPECT_EQ(button.GetClientSize(), button.GetSize());
    EXPECT_LT(button.GetId(), 0);
}

TEST_F(ColorPickerButtonTest, newButton_asksTheFactoryForNothing)
{
    make();
    EXPECT_TRUE(pickers.requests.empty());
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(pickers.factories, 1);
}

TEST_F(ColorPickerButtonTest, button_ownsItsFactory)
{
    make()->Destroy();
    EXPECT_EQ(pickers.factories, 0);
}

TEST_F(ColorPickerButtonSizeTest, size_isInDesignUnits)
{
    const wxSize expected(Wx::scaleByDpi(40), Wx::scaleByDpi(30));
    EXPECT_EQ(make()->GetSize(), expected);
}

TEST_F(ColorPickerButtonTest, setColorWithoutNotification_isSilent)
{
    ColorPickerButton* button = make();
    button->setColor(TEAL, false);
    EXPECT_EQ(button->getColor(), TEAL);
    EXPECT_TRUE(entries.empty());
}

TEST_F(ColorPickerButtonTest, setColorWithNotification_callsOnChangeBeforeOnPreview)
{
    ColorPickerButton* button = make();
    button->setColor(TEAL, true);
    EXPECT_EQ(button->getColor(), TEAL);
    EXPECT_EQ(entries, Entries({{"change", TEAL}, {"preview", TEAL}}));
}

TEST_F(ColorPickerButtonTest, setColorWithoutCallbacks_setsTheColour)
{
    ColorPickerButton* button = make();
    button->onChange = {};
    button->onPreview = {};
    button->setColor(TEAL, true);
    EXPECT_EQ(button->getColor(), TEAL);
}

TEST_F(ColorPickerButtonTest, callbacks_seeTheNewColour)
{
    ColorPickerButton* button = make();
    std::vector<Rgb> seen;
    button->onChange = [&](const Rgb&) { seen.push_back(button->getColor()); };
    button->onPreview = [&](const Rgb&) { seen.push_back(button->getColor()); };
    button->setColor(TEAL, true);
    EXPECT_EQ(seen, std::vector<Rgb>({TEAL, TEAL}));
}

TEST_F(ColorPickerButtonTest, callbackThatSetsAnotherColour_wins)
{
    ColorPickerButton* button = make();
    button->onChange = [&](const Rgb&) { button->setColor(ORANGE, false); };
    button->setColor(TEAL, true);
    EXPECT_EQ(button->getColor(), ORANGE);
    EXPECT_EQ(entries, Entries({{"preview", TEAL}}));
}

TEST_F(ColorPickerButtonTest, colorThatDiesInACallback_reachesTheOther)
{
    ColorPickerButton* button = make();
    auto color = std::make_unique<Rgb>(TEAL);
    button->onChange = [&](const Rgb&) { color.reset(); };
    button->setColor(*color, true);
    EXPECT_EQ(entries, Entries({{"preview", TEAL}}));
}

TEST_F(ColorPickerButtonTest, anyNumber_isKeptUnchanged)
{
    ColorPickerButton* button = make();
    const Rgb color{NOT_A_NUMBER, -ENDLESS, 1e30f, -0.5f};
    button->setColor(color, false);
    using Bits = std::array<std::uint32_t, 4>;
    EXPECT_EQ(std::bit_cast<Bits>(button->getColor()), std::bit_cast<Bits>(color));
}

TEST_F(ColorPickerButtonTest, keyboardNavigation_skipsIt)
{
    EXPECT_FALSE(make()->AcceptsFocusFromKeyboard());
}

TEST_F(ColorPickerButtonTest, enable_enablesTheWindow)
{
    ColorPickerButton* button = make();
    EXPECT_TRUE(button->Enable(false));
    EXPECT_FALSE(button->IsEnabled());
    EXPECT_FALSE(button->Enable(false)) << "nothing changed";
    EXPECT_TRUE(button->Enable());
    EXPECT_TRUE(button->IsEnabled());
}

TEST_F(ColorPickerButtonTest, constructedDisabled_onlyLooksDisabled)
{
    ColorPickerButton* button = make({40, 40}, {}, false);
    EXPECT_TRUE(button->IsEnabled());
    showFrame();
    Tests::clickAt(button, middleOf(button));
    EXPECT_EQ(pickers.requests.size(), 1u);
}

TEST_F(ColorPickerButtonTest, background_isNotErased)
{
    ColorPickerButton* button = make();
    wxClientDC dc(button);
    wxEraseEvent event(button->GetId(), &dc);
    event.SetEventObject(button);
    EXPECT_TRUE(button->HandleWindowEvent(event));
    EXPECT_FALSE(event.GetSkipped());
}

TEST_F(ColorPickerButtonTest, onChangeThatDestroysTheButton_isTheLastCall)
{
    ColorPickerButton* button = make();
    button->onChange = [&](const Rgb& color) {
        button->Destroy();
        entries.emplace_back("destroyed", color); // the function and the colour live on
    };
    button->setColor(TEAL, true);
    EXPECT_EQ(entries, Entries({{"destroyed", TEAL}}));
}

TEST_F(ColorPickerButtonTest, onPreviewThatDestroysTheButton_isSurvived)
{
    ColorPickerButton* button = make();
    button->onPreview = [&](const Rgb&) { button->Destroy(); };
    button->setColor(TEAL, true);
    EXPECT_EQ(entries, Entries({{"change", TEAL}}));
}
