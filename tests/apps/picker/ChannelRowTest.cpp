// SPDX-License-Identifier: MIT
#include "apps/picker/ChannelRow.h"

#include "apps/picker/ChannelSpinner.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/sizer.h>

#include <limits>
#include <stdexcept>

using namespace Nolvex;
using Picker::Channel;
using Picker::ChannelRow;
using Picker::PickedColor;
using Tests::pumpUntil;
using Tests::typeKey;

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float ENDLESS = std::numeric_limits<float>::infinity();

struct ChannelRowTest : Tests::FrameFixture
{
    ChannelRowTest()
    {
        panel->SetSizer(sizer);
        panel->Layout();
    }

    /// Shows the red of a colour, with the focus beside the spinner.
    void show(float red)
    {
        color.setColor({red, 0, 0, 1});
        row.update();
        changes.clear();
        other->SetFocus();
        EXPECT_TRUE(pumpUntil([this] { return other->HasFocus(); }));
    }

    wxString text() const { return field()->GetValue(); }

    /// Replaces the text of the spinner.
    void write(const char* typed) const
    {
        row.spinner()->SetFocus();
        EXPECT_TRUE(pumpUntil([this] { return field()->HasFocus(); }));
        wxUIActionSimulator().Text(typed);
        EXPECT_TRUE(pumpUntil([&] { return text() == typed; }));
    }

    void leave() const
    {
        other->SetFocus();
        EXPECT_TRUE(pumpUntil([this] { return other->HasFocus(); }));
        Tests::pumpEvents();
    }

    wxTextCtrl* field() const
    {
        const wxWindow* border = row.spinner()->GetChildren().front();
        return dynamic_cast<wxTextCtrl*>(border->GetChildren().front());
    }

    Array<float> changes;
    Function<void()> onChange;
    PickedColor color{Rgb{0, 0, 0, 1}};
    wxFlexGridSizer* sizer = new wxFlexGridSizer(3, wxSize());
    ChannelRow row{panel, *sizer, Channel::RED, color, [this](Channel channel, float number) {
                       changes.push_back(number);
                       if (onChange)
                           onChange();
                       color.setChannel(channel, number);
                       row.update();
                   }};
    wxTextCtrl* other = new wxTextCtrl(panel, wxID_ANY, L"other", {0, 100});
};

struct Beyond
{
    float number;
    const wchar_t* text;
    const char* stored; ///< the number that the spinner itself has
};

struct ChannelRowBeyondTest : ChannelRowTest, testing::WithParamInterface<Beyond>
{};

} // namespace

TEST_P(ChannelRowBeyondTest, visitWithoutTyping_keepsTextAndColour)
{
    showFrame();
    show(GetParam().number);
    EXPECT_EQ(text(), GetParam().text);
    row.spinner()->SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return field()->HasFocus(); }));
    leave();
    EXPECT_EQ(text(), GetParam().text);
    row.spinner()->SetFocus();
    typeKey(WXK_RETURN);
    EXPECT_EQ(text(), GetParam().text);
    EXPECT_TRUE(changes.empty());
}

TEST_P(ChannelRowBeyondTest, numberOfTheSpinnerItself_canBeTyped)
{
    showFrame();
    show(GetParam().number);
    write(GetParam().stored);
    leave();
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0], std::stof(GetParam().stored));
    EXPECT_EQ(row.spinner()->value(), changes[0]);

    show(GetParam().number);
    write(GetParam().stored);
    typeKey(WXK_RETURN);
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0], std::stof(GetParam().stored));
    leave();
    EXPECT_EQ(changes.size(), 1u);
}

TEST_P(ChannelRowBeyondTest, textThatIsNoNumber_isReplacedAgain)
{
    showFrame();
    show(GetParam().number);
    write("abc");
    leave();
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(text(), GetParam().text);
}

TEST_P(ChannelRowBeyondTest, typedNumberBeyondTheBounds_becomesTheBound)
{
    showFrame();
    show(GetParam().number);
    write("5000");
    leave();
    EXPECT_EQ(changes, Array<float>{1000.0f});
    EXPECT_EQ(row.spinner()->value(), 1000.0f);
    write("3000");
    leave();
    EXPECT_EQ(row.spinner()->value(), 1000.0f);
    write("-3000");
    leave();
    EXPECT_EQ(changes.back(), -1000.0f);
}

INSTANTIATE_TEST_SUITE_P(All, ChannelRowBeyondTest,
                         testing::Values(Beyond{NOT_A_NUMBER, L"nan", "0"}, Beyond{ENDLESS, L"inf", "1000"},
                                         Beyond{-ENDLESS, L"-inf", "-1000"}, Beyond{1e6f, L"> 1000", "1000"},
                                         Beyond{-1e6f, L"< -1000", "-1000"}));

TEST_F(ChannelRowTest, callbackThatDestroysTheSpinnerWhileTyping_isSurvived)
{
    showFrame();
    show(NOT_A_NUMBER);
    onChange = [this] {
        delete row.spinner();
        throw std::runtime_error("the spinner is gone"); // the rest of the callback uses the spinner
    };
    write("0");
    wxCommandEvent enter(wxEVT_TEXT_ENTER, field()->GetId());
    enter.SetEventObject(field());
    EXPECT_THROW(field()->ProcessWindowEvent(enter), std::runtime_error);
    EXPECT_EQ(changes, Array<float>{0.0f});
}

TEST_F(ChannelRowTest, callbackThatThrows_leavesARowThatShowsTheColour)
{
    onChange = [] { throw std::runtime_error("no colour today"); };
    EXPECT_THROW(row.spinner()->changeByUser(0.25f), std::runtime_error);
    onChange = {};
    color.setColor({0.75f, 0, 0, 1});
    row.update();
    EXPECT_EQ(row.spinner()->value(), 0.75f);
}
