// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Spinner.h"

#include "NolvexLib/DecimalPoint.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/TextControl.h"
#include "SpinnerFixture.h"

#include <cmath>
#include <limits>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();

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
    make(-INFINITE, INFINITE, 5, 1);
    spinner->setValue(INFINITE, false);
    EXPECT_EQ(spinner->value(), INFINITE);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), INFINITE);
    typeText("7");
    pressEnter();
    EXPECT_EQ(spinner->value(), 7.0f);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 8.0f);
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

TEST_F(SpinnerTest, negativePrecision_stepsByOne)
{
    make(0, 10, 1, -3, 0.25f);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 2.0f);
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
    spinner->setValue(1.2345f, false);
    EXPECT_EQ(text(), "1.234");
    digits = 1;
    spinner->setValue(1.2345f, false);
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
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    tick();
    EXPECT_EQ(spinner->value(), 20.0f);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    takeReports();
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - Wx::scaleByDpi(1));
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP, 3);
    EXPECT_EQ(text().substr(0, 1), "2");
    spinner->setClickSpeedOverride([]() -> Optional<float> { return {}; });
    spinner->setValue(30, false);
    click(spinner->upArrow());
    EXPECT_EQ(spinner->value(), 31.0f);
}

TEST_F(SpinnerTest, click_startsStepsOnceAndEnds)
{
    make();
    click(spinner->upArrow());
    EXPECT_EQ(takeReports(), (Reports{"start", "value 2.000000", "end"}));
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
}

TEST_F(SpinnerTest, holding_stepsAfter200Milliseconds_thenEvery50)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    EXPECT_TRUE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(spinner->repeatTimer().GetInterval(), 200);
    EXPECT_EQ(takeReports(), Reports{"start"});
    tick();
    EXPECT_TRUE(spinner->repeatTimer().IsRunning());
    EXPECT_FALSE(spinner->repeatTimer().IsOneShot());
    EXPECT_EQ(spinner->repeatTimer().GetInterval(), 50);
    EXPECT_EQ(takeReports(), Reports{"value 2.000000"});
    tick();
    EXPECT_EQ(spinner->repeatTimer().GetInterval(), 50);
    EXPECT_EQ(takeReports(), Reports{"value 3.000000"});
    // The release steps once more.
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
    EXPECT_EQ(takeReports(), (Reports{"value 4.000000", "end"}));
}

TEST_F(SpinnerTest, draggingUp_raisesByTheStepAUnit)
{
    make(0, 100, 50, 0, 1);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - Wx::scaleByDpi(10));
    EXPECT_EQ(spinner->value(), 60.0f);
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 + Wx::scaleByDpi(5));
    EXPECT_EQ(spinner->value(), 45.0f);
    // The release of a drag is no step.
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP, 4);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 60.000000", "value 45.000000", "end"}));
}

TEST_F(SpinnerTest, motionWithoutAPress_changesNothing)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 1);
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerTest, motionThatStaysInPlace_isNoDrag)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    EXPECT_TRUE(spinner->repeatTimer().IsRunning());
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP, 4);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 2.000000", "end"}));
}

TEST_F(SpinnerTest, rightClick_restoresTheDefault)
{
    make(0, 10, 4);
    spinner->setValue(9, false);
    sendMouse(spinner->downArrow(), wxEVT_RIGHT_UP);
    EXPECT_EQ(takeReports(), Reports{"value 4.000000"});
}

TEST_F(SpinnerTest, rightClickInADrag_restoresTheValueAtThePress_andEndsIt)
{
    make(0, 100, 4, 0);
    spinner->setValue(50, false);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4);
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN, 4);
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 4 - Wx::scaleByDpi(3));
    takeReports();
    sendMouse(spinner->upArrow(), wxEVT_RIGHT_UP, 4);
    EXPECT_EQ(takeReports(), (Reports{"value 50.000000", "end"}));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SpinnerTest, captureLost_endsTheInteractionWithoutAStep)
{
    make();
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    takeReports();
    wxMouseCaptureLostEvent lost;
    lost.SetEventObject(spinner->upArrow());
    spinner->upArrow()->GetEventHandler()->ProcessEvent(lost);
    EXPECT_EQ(takeReports(), Reports{"end"});
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SpinnerTest, commaAndPoint_areBothRead)
{
    make();
    for (const char* typed : {"2,5", "2.5"}) {
        spinner->setValue(1, false);
        typeText(typed);
        pressEnter();
        EXPECT_EQ(spinner->value(), 2.5f) << typed;
    }
}

TEST_F(SpinnerTest, typedValue_isBracketedByItsEditing)
{
    make();
    typeText("4");
    pressEnter();
    EXPECT_EQ(takeReports(), (Reports{"start", "value 4.000000", "end"}));
    EXPECT_EQ(text(), "4.0");
}

TEST_F(SpinnerTest, typedValueThatIsTheSame_isOnlyReformatted)
{
    make(0, 10, 4);
    typeText("4");
    pressEnter();
    EXPECT_EQ(takeReports(), Reports{});
    EXPECT_EQ(text(), "4.0");
}

TEST_F(SpinnerTest, textThatIsNoNumber_isReplacedByTheValue)
{
    make(0, 10, 4);
    for (const char* typed : {"", "abc", "-", ".", "1e99", "nan", "inf"}) {
        typeText(typed);
        pressEnter();
        EXPECT_EQ(text(), "4.0") << typed;
        EXPECT_EQ(takeReports(), Reports{}) << typed;
    }
    typeText("7abc");
    pressEnter();
    EXPECT_EQ(spinner->value(), 7.0f);
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

TEST_F(SpinnerTest, setFocus_goesToTheTextAndSelectsIt)
{
    make();
    spinner->SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return spinner->textField()->HasFocus(); }));
    long from = -1;
    long to = -1;
    spinner->textField()->GetSelection(&from, &to);
    EXPECT_EQ(from, 0);
    EXPECT_EQ(to, 4);
    EXPECT_EQ(takeReports(), Reports{"focus"});
}

TEST_F(SpinnerTest, losingTheFocus_appliesTheTextBeforeItIsReported)
{
    make();
    auto* other = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(200, 60));
    spinner->SetFocus();
    ASSERT_TRUE(pumpUntil([this] { return spinner->textField()->HasFocus(); }));
    takeReports();
    typeText("8");
    other->SetFocus();
    ASSERT_TRUE(pumpUntil([this] { return !reports.empty() && reports.back() == "blur"; }));
    EXPECT_EQ(takeReports(), (Reports{"start", "value 8.000000", "end", "blur"}));
}

TEST_F(SpinnerTest, cursorKeys_stepAndPage)
{
    make(0, 100, 50, 0, 2);
    spinner->SetFocus();
    ASSERT_TRUE(pumpUntil([this] { return spinner->textField()->HasFocus(); }));
    takeReports();
    typeKey(WXK_UP);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 52.000000", "end"}));
    typeKey(WXK_PAGEDOWN);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 32.000000", "end"}));
    typeKey(WXK_DOWN);
    typeKey(WXK_PAGEUP);
    EXPECT_EQ(spinner->value(), 50.0f);
    EXPECT_TRUE(spinner->textField()->HasFocus());
}

TEST_F(SpinnerTest, fieldAndArrows_haveTheirSizes)
{
    make();
    const int field = Wx::scaleByDpi(1) == 1 ? 14 : (Wx::scaleByDpi(1) == 2 ? 16 : 20);
    EXPECT_EQ(spinner->textField()->GetSize(), Wx::scaleByDpi(wxSize(60, field)));
    const wxSize arrow = wxSize(11, 9) * Wx::scaleByDpi(1);
    EXPECT_EQ(spinner->upArrow()->GetSize(), arrow);
    EXPECT_EQ(spinner->downArrow()->GetPosition().y, spinner->upArrow()->GetPosition().y + arrow.y);
    EXPECT_EQ(spinner->upArrow()->GetPosition().x, spinner->downArrow()->GetPosition().x);
}

TEST_F(SpinnerTest, arrows_areShared_andChangeWithHoverAndPress)
{
    make();
    auto* second = new OpenSpinner(panel, 22, 60, 0, 1, 0, 1, 1);
    EXPECT_TRUE(second->upArrow()->bitmap().IsSameAs(spinner->upArrow()->bitmap()));
    const wxBitmap normal = spinner->upArrow()->bitmap();
    const wxBitmap normalDown = spinner->downArrow()->bitmap();
    EXPECT_FALSE(normal.IsSameAs(normalDown));
    sendMouse(spinner->upArrow(), wxEVT_ENTER_WINDOW);
    const wxBitmap hovered = spinner->upArrow()->bitmap();
    EXPECT_FALSE(hovered.IsSameAs(normal));
    sendMouse(spinner->upArrow(), wxEVT_LEFT_DOWN);
    const wxBitmap pressed = spinner->upArrow()->bitmap();
    EXPECT_FALSE(pressed.IsSameAs(hovered));
    EXPECT_TRUE(spinner->downArrow()->bitmap().IsSameAs(normalDown));
    // A drag presses both, and nothing hovers meanwhile.
    sendMouse(spinner->upArrow(), wxEVT_MOTION, 2);
    EXPECT_FALSE(spinner->downArrow()->bitmap().IsSameAs(normalDown));
    sendMouse(spinner->upArrow(), wxEVT_LEAVE_WINDOW);
    EXPECT_TRUE(spinner->upArrow()->bitmap().IsSameAs(pressed));
    sendMouse(spinner->upArrow(), wxEVT_LEFT_UP);
    EXPECT_TRUE(spinner->upArrow()->bitmap().IsSameAs(normal));
    EXPECT_TRUE(spinner->downArrow()->bitmap().IsSameAs(normalDown));
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
    spinner->SetFocus();
    spinner->configure(0, 1, 0, 1, 1, true);
    EXPECT_EQ(spinner->value(), 1.0f);
    EXPECT_FALSE(spinner->repeatTimer().IsRunning());
}
