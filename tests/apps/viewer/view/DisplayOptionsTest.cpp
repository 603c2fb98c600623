// SPDX-License-Identifier: MIT
#include "apps/viewer/view/DisplayOptions.h"

#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "support/FrameFixture.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Nolvex;
using Viewer::Channel;
using Viewer::DisplayOptions;
using Viewer::DisplaySettings;
using Viewer::Encoding;
using Viewer::FalseColor;

namespace {

template<class Control>
std::vector<Control*> childrenOf(const wxWindow& window)
{
    std::vector<Control*> found;
    for (wxWindow* child : window.GetChildren()) {
        if (auto* const control = dynamic_cast<Control*>(child))
            found.push_back(control);
    }
    return found;
}

struct DisplayOptionsTest : Tests::FrameFixture
{
    std::vector<DisplaySettings> changes;
    DisplayOptions* options =
        new DisplayOptions(panel, [this](const DisplaySettings& settings) { changes.push_back(settings); });

    Wx::Spinner* spinner(const wxString& label) const
    {
        for (Wx::Spinner* const found : childrenOf<Wx::Spinner>(*options)) {
            if (found->GetLabel() == label)
                return found;
        }
        return nullptr;
    }

    // The boxes in the order of their rows: channel, encoding, false colour
    Wx::ComboBox* box(std::size_t index) const { return childrenOf<Wx::ComboBox>(*options)[index]; }

    /// Types a letter into the box of the channels, which selects the next item that begins with the letter.
    Optional<int> idAfterTyping(wxChar letter) const
    {
        wxKeyEvent event(wxEVT_CHAR);
        event.m_keyCode = letter;
        event.m_uniChar = letter;
        event.SetEventObject(box(0));
        box(0)->ProcessWindowEvent(event);
        return box(0)->getSelectedId();
    }

    const DisplaySettings& last() const { return changes.back(); }
};

} // namespace

TEST_F(DisplayOptionsTest, construction_tellsNothing)
{
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(options->settings(), DisplaySettings());
}

TEST_F(DisplayOptionsTest, eachControl_changesItsSetting)
{
    DisplaySettings expected;
    spinner(L"Exposure")->changeByUser(2.0f);
    expected.exposure = 2.0f;
    EXPECT_EQ(last(), expected);
    spinner(L"Gamma")->changeByUser(1.5f);
    expected.gamma = 1.5f;
    EXPECT_EQ(last(), expected);
    box(0)->selectId(static_cast<int>(Channel::BLUE), true);
    expected.channel = Channel::BLUE;
    EXPECT_EQ(last(), expected);
    box(1)->selectId(static_cast<int>(Encoding::SRGB), true);
    expected.encoding = Encoding::SRGB;
    EXPECT_EQ(last(), expected);
    box(2)->selectId(static_cast<int>(FalseColor::VALUES), true);
    expected.falseColor = FalseColor::VALUES;
    EXPECT_EQ(last(), expected);
    spinner(L"From")->changeByUser(-2.5f);
    spinner(L"To")->changeByUser(7.0f);
    expected.falseColorFrom = -2.5f;
    expected.falseColorTo = 7.0f;
    EXPECT_EQ(last(), expected);
    Wx::CheckBox* const checkerboard = childrenOf<Wx::CheckBox>(*options)[0];
    checkerboard->setValue(true, true);
    expected.checkerboard = true;
    EXPECT_EQ(last(), expected);
    EXPECT_EQ(options->settings(), expected);
    EXPECT_EQ(changes.size(), 8u);
}

TEST_F(DisplayOptionsTest, range_isOfferedWithFalseColorOnly)
{
    EXPECT_FALSE(spinner(L"From")->IsEnabled());
    EXPECT_FALSE(spinner(L"To")->IsEnabled());
    box(2)->selectId(static_cast<int>(FalseColor::STOPS), true);
    EXPECT_TRUE(spinner(L"From")->IsEnabled());
    EXPECT_EQ(spinner(L"From")->value(), -6.0f);
    EXPECT_EQ(spinner(L"To")->value(), 6.0f);
    EXPECT_EQ(last().falseColorFrom, -6.0f);
    box(2)->selectId(static_cast<int>(FalseColor::VALUES), true);
    EXPECT_EQ(spinner(L"From")->value(), 0.0f);
    EXPECT_EQ(spinner(L"To")->value(), 1.0f);
    box(2)->selectId(static_cast<int>(FalseColor::OFF), true);
    EXPECT_FALSE(spinner(L"To")->IsEnabled());
    EXPECT_EQ(changes.size(), 3u) << "one change for each choice";
}

TEST_F(DisplayOptionsTest, gamma_isNeverZero)
{
    spinner(L"Gamma")->changeByUser(0.0f);
    EXPECT_FLOAT_EQ(last().gamma, 0.1f);
}

TEST_F(DisplayOptionsTest, channelsWithoutNames_haveTheUsualOnes)
{
    EXPECT_EQ(idAfterTyping('g'), static_cast<int>(Channel::GREEN));
}

TEST_F(DisplayOptionsTest, channels_haveTheNamesOfThePicture)
{
    options->setChannels({L"X", L"Y", L"Z"});
    EXPECT_EQ(idAfterTyping('z'), static_cast<int>(Channel::BLUE));
}

TEST_F(DisplayOptionsTest, usualNames_areWrittenOut)
{
    options->setChannels({L"R", L"G", L"B", L"mask"});
    EXPECT_EQ(idAfterTyping('g'), static_cast<int>(Channel::GREEN));
}

TEST_F(DisplayOptionsTest, fourthChannel_hasItsName)
{
    options->setChannels({L"R", L"G", L"B", L"mask"});
    EXPECT_EQ(idAfterTyping('m'), static_cast<int>(Channel::ALPHA));
}

TEST_F(DisplayOptionsTest, otherChannels_keepTheChoice)
{
    box(0)->selectId(static_cast<int>(Channel::ALPHA), true);
    const std::size_t before = changes.size();
    options->setChannels({L"depth"});
    EXPECT_EQ(box(0)->getSelectedId(), static_cast<int>(Channel::ALPHA));
    EXPECT_EQ(box(0)->getCount(), 6);
    EXPECT_EQ(changes.size(), before);
}
