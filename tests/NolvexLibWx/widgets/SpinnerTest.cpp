// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Spinner.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/MoveFocus.h"
#include "SpinnerFixture.h"

#include <wx/button.h>

#include <cmath>
#include <limits>
#include <memory>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float ENDLESS = std::numeric_limits<float>::infinity();

} // namespace

using SpinnerTest = SpinnerFixture;

TEST_F(SpinnerTest, construction_showsTheDefault_andSendsNothing)
{
    make(0, 10, 3.5f, 2);
    EXPECT_EQ(spinner->value(), 3.5f);
    EXPECT_EQ(text(), "3.50");
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerTest, setValue_roundsToTheShownDigits)
{
    make();
    spinner->setValue(3.14159f, false);
    EXPECT_EQ(text(), "3.14");
    EXPECT_EQ(spinner->value(), 3.14f);
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerTest, setValue_leavesOneZeroOfARun)
{
    make(0, 1000, 1, 2);
    spinner->setValue(2, false);
    EXPECT_EQ(text(), "2.0");
    spinner->setValue(1.5f, false);
    EXPECT_EQ(text(), "1.50");
    spinner->setPrecision(3, false);
    spinner->setValue(1.5f, false);
    EXPECT_EQ(text(), "1.50");
    spinner->setValue(100, false);
    EXPECT_EQ(text(), "100.0");
}

TEST_F(SpinnerTest, setValueOutsideTheBounds_notifiesOfTheBound)
{
    make();
    spinner->setValue(11, true);
    EXPECT_EQ(text(), "10.0");
    EXPECT_EQ(takeReports(), Reports{"value 10.000000"});
    spinner->setValue(-1, true);
    EXPECT_EQ(text(), "0.0");
    EXPECT_EQ(takeReports(), Reports{"value 0.000000"});
}

TEST_F(SpinnerTest, precisionZero_showsNoPoint)
{
    make(0, 200, 3, 0);
    EXPECT_EQ(text(), "3");
    spinner->setValue(100, false);
    EXPECT_EQ(text(), "100");
}

TEST_F(SpinnerTest, nan_becomesTheMaximum)
{
    make();
    spinner->setValue(NOT_A_NUMBER, false);
    EXPECT_EQ(spinner->value(), 10.0f);
}

TEST_F(SpinnerTest, boundsThatAreNoNumbers_areNoBounds)
{
    make(NOT_A_NUMBER, NOT_A_NUMBER, 5, 1);
    spinner->setValue(-1e6f, false);
    EXPECT_EQ(spinner->value(), -1e6f);
    spinner->setValue(1e6f, false);
    EXPECT_EQ(spinner->value(), 1e6f);
}

TEST_F(SpinnerTest, infinity_withoutBounds_isShownAndCanBeLeft)
{
    make(-ENDLESS, ENDLESS, 5, 1);
    spinner->setValue(ENDLESS, false);
    EXPECT_EQ(spinner->value(), ENDLESS);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), ENDLESS);
    typeText("7");
    pressEnter();
    EXPECT_EQ(spinner->value(), 7.0f);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 8.0f);
}

// Only a finite value is brought into new bounds by itself.
TEST_F(SpinnerTest, configure_withAnInfiniteValue_keepsTheValueUntilTheNext)
{
    make(-ENDLESS, ENDLESS, 5, 1);
    spinner->setValue(ENDLESS, false);
    spinner->configure(0, 10, 5, 2, 1, true);
    EXPECT_EQ(spinner->value(), ENDLESS);
    EXPECT_EQ(takeReports(), Reports{});
    click(spinner->downArrow());
    EXPECT_EQ(spinner->value(), 10.0f);
}

TEST_F(SpinnerTest, boundsInTheWrongOrder_giveTheMinimum)
{
    make(10, 0, 5, 1);
    EXPECT_EQ(spinner->value(), 10.0f);
    spinner->setValue(-3, false);
    EXPECT_EQ(spinner->value(), 10.0f);
    click(spinner->downArrow());
    EXPECT_EQ(spinner->value(), 10.0f);
}

TEST_F(SpinnerTest, precisionBeyondNineDigits_isShown_andSteppedByTheNinth)
{
    make(0, 1, 0, 12, 1e-11f);
    click(spinner->upArrow());
    EXPECT_FLOAT_EQ(spinner->value(), 1e-9f);
    spinner->setPrecision(std::numeric_limits<int>::max(), false);
    EXPECT_LT(text().size(), 200u);
}

TEST_F(SpinnerTest, negativePrecision_countsAsZero)
{
    make(0, 10, 1.4f, -3, 0.25f);
    EXPECT_EQ(text(), "1");
    click(spinner->upArrow());
    EXPECT_EQ(text(), "2");
}

TEST_F(SpinnerTest, hugeStep_reachesTheBound)
{
    make(-1e30f, 1e30f, 0, 0, 1e30f);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 1e30f);
    click(spinner->downArrow());
    click(spinner->downArrow());
    EXPECT_EQ(spinner->value(), -1e30f);
}

TEST_F(SpinnerTest, emptyPrecisionSource_isAProgrammingError)
{
    make();
    EXPECT_THROW(spinner->setPrecision(Function<int()>(), false), StopException);
}

TEST_F(SpinnerTest, precisionSource_isAskedAtEveryFormatting)
{
    make(0, 10, 1, 0);
    int digits = 3;
    spinner->setPrecision([&digits] { return digits; }, false);
    spinner->setValue(1.2344f, false);
    EXPECT_EQ(text(), "1.234");
    digits = 1;
    spinner->setValue(1.2344f, false);
    EXPECT_EQ(text(), "1.2");
    spinner->setPrecision(0, false);
}

TEST_F(SpinnerTest, configure_clampsRoundsAndRedisplays)
{
    make(0, 10, 1, 2);
    spinner->setValue(7.25f, false);
    spinner->configure(0, 5, 2, 1, 0.5f, true);
    EXPECT_EQ(text(), "5.0");
    EXPECT_EQ(takeReports(), Reports{"value 5.000000"});
    spinner->configure(0, 100, 3, 0, 0.5f, false);
    EXPECT_EQ(text(), "5");
    EXPECT_EQ(takeReports(), Reports{});
    EXPECT_EQ(spinner->value(), 5.0f);
}

TEST_F(SpinnerTest, automaticStepBelowAUnit_movesByTheUnit)
{
    make(-10, 10, 0, 2, 0);
    click(spinner->upArrow());
    EXPECT_EQ(text(), "0.01");
    click(spinner->upArrow());
    EXPECT_EQ(text(), "0.02");
    click(spinner->downArrow());
    EXPECT_EQ(text(), "0.01");
}

TEST_F(SpinnerTest, automaticStep_growsWithTheValue)
{
    make(0, 1000, 500, 2, 0);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 502.0f);
}

TEST_F(SpinnerTest, roundingIsCarriedIntoTheNextChange)
{
    make(0, 10, 0, 0, 1.25f);
    Reports values;
    for (int i = 0; i < 4; ++i) {
        click(spinner->upArrow());
        values.push_back(text());
    }
    // 1.25, 2.5 (rounded to even), 3.75 and 5 in all.
    EXPECT_EQ(values, (Reports{"1", "2", "4", "5"}));
}

TEST_F(SpinnerTest, clickSpeedOverride_countsForClicksAndRepetitions_notForDrags)
{
    make(0, 100, 10, 0, 1);
    spinner->setClickSpeedOverride([]() -> Optional<float> { return 5.0f; });
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 15.0f);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    tick();
    EXPECT_EQ(spinner->value(), 20.0f);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - Wx::scaleByDpi(1));
    EXPECT_EQ(spinner->value(), 21.0f);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP, 3);
    spinner->setClickSpeedOverride([]() -> Optional<float> { return {}; });
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 22.0f);
}

TEST_F(SpinnerTest, setText_isShownUntilTheValueIsSet)
{
    make(0, 10, 4);
    spinner->setText(L"several");
    EXPECT_EQ(text(), "several");
    EXPECT_EQ(spinner->value(), 4.0f);
    spinner->setText(String());
    EXPECT_EQ(text(), "");
    spinner->setValue(4, false);
    EXPECT_EQ(text(), "4.0");
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerTest, callback_isCalledBeforeTheParentsSeeTheEvent)
{
    make();
    spinner->callOnValueChange(
        [this](float value) { reports.push_back("callback " + std::to_string(value)); });
    spinner->setValue(2, true);
    EXPECT_EQ(takeReports(), (Reports{"callback 2.000000", "value 2.000000"}));
    spinner->setValue(3, false);
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerTest, valueSetInItsOwnCallback_stays)
{
    make(0, 100, 10, 0, 1);
    spinner->callOnValueChange(
        [this](float value) { spinner->setValue(std::round(value / 10) * 10, false); });
    spinner->setValue(37, true);
    EXPECT_EQ(spinner->value(), 40.0f);
    EXPECT_EQ(text(), "40");
}

TEST_F(SpinnerTest, stepThatIsNotFinite_isAutomatic)
{
    for (const float step : {NOT_A_NUMBER, ENDLESS, -ENDLESS, -1.0f, 0.0f}) {
        make(0, 1000, 500, 2, step);
        click(spinner->upArrow());
        EXPECT_EQ(spinner->value(), 502.0f) << step;
        spinner->Destroy();
    }
}

TEST_F(SpinnerTest, clickSpeedThatIsNoUsefulNumber_movesByTheUnit)
{
    for (const float speed : {NOT_A_NUMBER, -3.0f, 0.0f, 1e-9f}) {
        make(0, 10, 1, 1, 1);
        spinner->setClickSpeedOverride([speed]() -> Optional<float> { return speed; });
        click(spinner->upArrow());
        EXPECT_EQ(text(), "1.1") << speed;
        spinner->Destroy();
    }
}

TEST_F(SpinnerTest, configure_keepsTheRemainderWithinTheBounds)
{
    make(0, 10, 0, 0, 1.25f);
    click(spinner->upArrow());
    EXPECT_EQ(text(), "1");
    spinner->configure(0, 10, 0, 2, 1.25f, true);
    EXPECT_EQ(text(), "1.25");
}

TEST_F(SpinnerTest, callOnValueChange_replacesAndReleasesTheFormerFunction)
{
    make();
    const auto held = std::make_shared<int>(0);
    spinner->callOnValueChange([held](float) { ++*held; });
    EXPECT_EQ(held.use_count(), 2);
    spinner->setValue(2, true);
    spinner->callOnValueChange({});
    EXPECT_EQ(held.use_count(), 1);
    spinner->setValue(3, true);
    EXPECT_EQ(*held, 1);
}

TEST_F(SpinnerTest, setTooltip_isTheTooltipOfTheField)
{
    make();
    spinner->setTooltip(L"The exposure in stops");
    ASSERT_NE(spinner->textField()->tooltip(), nullptr);
}

TEST_F(SpinnerTest, focusMovesToTheText_andFromItToTheNextControl)
{
    make();
    auto* second = new OpenSpinner(panel, 22, 60, 0, 1, 0, 1, 1);
    auto* before = new wxButton(panel, wxID_ANY, "before", wxPoint(200, 60));
    before->SetFocus();
    Wx::moveFocus(second, Wx::MoveFocusDirection::FORWARD);
    EXPECT_TRUE(pumpUntil([this] { return spinner->textField()->HasFocus(); }));
    typeKey(WXK_TAB, wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([before] { return before->HasFocus(); }));
}

TEST_F(SpinnerTest, childrenThatWereDestroyed_areMissedByNothing)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    spinner->DestroyChildren();
    tick();
    spinner->setValue(3, true);
    spinner->setText(L"text");
    spinner->setTooltip(L"tooltip");
    spinner->SetLabel(L"label");
    spinner->SetFocus();
    spinner->configure(0, 1, 0, 1, 1, true);
    EXPECT_EQ(spinner->value(), 1.0f);
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
}

// The environment of the run sets the scale. The test holds at every scale.
using SpinnerSizeTest = SpinnerFixture;

TEST_F(SpinnerSizeTest, fieldAndArrows_haveTheirSizes)
{
    make();
    const int scale = Wx::scaleByDpi(1);
    const int field = scale <= 1 ? 14 : (scale == 2 ? 16 : 20);
    EXPECT_EQ(spinner->textField()->GetSize(), Wx::scaleByDpi(wxSize(60, field)));
    EXPECT_EQ(spinner->textField()->GetParent()->GetSize(), Wx::scaleByDpi(wxSize(60, field)) + wxSize(4, 4));
    const wxSize arrow = wxSize(11, 9) * scale;
    EXPECT_EQ(spinner->upArrow()->GetSize(), arrow);
    EXPECT_EQ(spinner->downArrow()->GetSize(), arrow);
    EXPECT_EQ(spinner->downArrow()->GetPosition(), spinner->upArrow()->GetPosition() + wxPoint(0, arrow.y));
    EXPECT_EQ(spinner->upArrow()->GetPosition().x,
              spinner->textField()->GetParent()->GetRect().GetRight() + 1);
    EXPECT_EQ(spinner->GetSize().x, Wx::scaleByDpi(60) + 4 + arrow.x);
}
