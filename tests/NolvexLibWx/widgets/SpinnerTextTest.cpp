// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Spinner.h"

#include "SpinnerFixture.h"
#include "support/DecimalComma.h"

#include <wx/textctrl.h>

#include <clocale>
#include <locale>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

struct SpinnerTextTest : SpinnerFixture
{
    void sendKey(int key, bool withControl = false) const
    {
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = key;
        event.SetControlDown(withControl);
        event.SetEventObject(spinner->textField());
        spinner->textField()->GetEventHandler()->ProcessEvent(event);
    }
};

} // namespace

TEST_F(SpinnerTextTest, commaAndPoint_areBothRead)
{
    make();
    for (const char* typed : {"2,5", "2.5"}) {
        spinner->setValue(1, false);
        typeText(typed);
        pressEnter();
        EXPECT_EQ(spinner->value(), 2.5f) << typed;
    }
}

TEST_F(SpinnerTextTest, typedValue_isBracketedByItsEditing)
{
    make();
    typeText("4");
    pressEnter();
    EXPECT_EQ(takeReports(), (Reports{"start", "value 4.000000", "end"}));
    EXPECT_EQ(text(), "4.0");
}

TEST_F(SpinnerTextTest, typedValueThatIsTheSame_isOnlyReformatted)
{
    make(0, 10, 4);
    typeText("4");
    pressEnter();
    EXPECT_EQ(takeReports(), Reports{});
    EXPECT_EQ(text(), "4.0");
}

TEST_F(SpinnerTextTest, setFocus_goesToTheTextAndSelectsIt)
{
    make();
    ASSERT_NO_FATAL_FAILURE(focus());
    long from = -1;
    long to = -1;
    spinner->textField()->GetSelection(&from, &to);
    EXPECT_EQ(from, 0);
    EXPECT_EQ(to, 3);
    EXPECT_EQ(takeReports(), Reports{"focus"});
}

TEST_F(SpinnerTextTest, losingTheFocus_appliesTheTextBeforeItIsReported)
{
    make();
    auto* other = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(200, 60));
    ASSERT_NO_FATAL_FAILURE(focus());
    takeReports();
    typeText("8");
    other->SetFocus();
    ASSERT_TRUE(pumpUntil([this] { return !reports.empty() && reports.back() == "blur"; }));
    EXPECT_EQ(takeReports(), (Reports{"start", "value 8.000000", "end", "blur"}));
}

TEST_F(SpinnerTextTest, textThatIsNoNumber_isReplacedByTheValue)
{
    make(0, 10, 4);
    for (const wchar_t* typed :
         {L"", L"abc", L"-", L".", L"--5", L"+-5", L"1e99", L"nan", L"inf", L"\u0664", L"7e", L"12em"}) {
        typeText(typed);
        pressEnter();
        EXPECT_EQ(text(), "4.0") << wxString(typed);
        EXPECT_EQ(takeReports(), Reports{}) << wxString(typed);
    }
}

TEST_F(SpinnerTextTest, numberAtTheBeginning_isRead)
{
    make(-1000, 1000, 4);
    const std::pair<const char*, float> cases[] = {
        {"12abc", 12},   {"  7 mm", 7}, {"+3", 3},      {".5", 0.5f}, {"5.", 5},  {"-2,5", -2.5f},
        {"1.2.3", 1.2f}, {"1e2", 100},  {"1e2e3", 100}, {"0x10", 0},  {"3 4", 3}, {"1e-60", 0},
    };
    for (const auto& [typed, value] : cases) {
        spinner->setValue(500, false);
        typeText(typed);
        pressEnter();
        EXPECT_EQ(spinner->value(), value) << typed;
    }
}

TEST_F(SpinnerTextTest, typedValueBeyondABound_becomesTheBound)
{
    make(0, 10, 4);
    typeText("11");
    pressEnter();
    EXPECT_EQ(takeReports(), (Reports{"start", "value 10.000000", "end"}));
    EXPECT_EQ(text(), "10.0");
}

TEST_F(SpinnerTextTest, enter_selectsTheText)
{
    make(0, 10, 4);
    ASSERT_NO_FATAL_FAILURE(focus());
    takeReports();
    wxUIActionSimulator().Text("2,5");
    ASSERT_TRUE(pumpUntil([this] { return text() == "2,5"; })) << text();
    typeKey(WXK_RETURN);
    EXPECT_TRUE(comesTo({"start", "value 2.500000", "end"}));
    EXPECT_EQ(text(), "2.50");
    EXPECT_EQ(spinner->textField()->GetStringSelection(), "2.50");
}

TEST_F(SpinnerTextTest, decimalComma_isShownAndRead_withoutTouchingTheLocale)
{
    const DecimalComma comma;
    if (!comma.isInEffect())
        GTEST_SKIP() << "this system has no decimal comma";
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    make(0, 10, 1);
    spinner->setValue(3.14159f, false);
    EXPECT_EQ(text(), "3,14");
    EXPECT_EQ(spinner->value(), 3.14f);
    for (const char* typed : {"2,5", "2.5"}) {
        spinner->setValue(1, false);
        typeText(typed);
        pressEnter();
        EXPECT_EQ(spinner->value(), 2.5f) << typed;
        EXPECT_EQ(text(), "2,50");
    }
    click(spinner->upArrow());
    EXPECT_EQ(text(), "3,50");
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), locale);
}

TEST_F(SpinnerTextTest, globalLocaleOfTheHost_changesNothing)
{
    struct Grouping : std::numpunct<wchar_t>
    {
        wchar_t do_decimal_point() const override { return L';'; }

        std::string do_grouping() const override { return "\3"; }
    };

    const std::locale former = std::locale::global(std::locale(std::locale(), new Grouping));
    make(0, 1e6f, 1234.5f, 1);
    const std::string shown = text();
    typeText("4321.5");
    pressEnter();
    std::locale::global(former);
    EXPECT_EQ(shown, "1234.5");
    EXPECT_EQ(text(), "4321.5");
}

TEST_F(SpinnerTextTest, cursorKeys_stepAndPage)
{
    make(0, 100, 50, 0, 2);
    ASSERT_NO_FATAL_FAILURE(focus());
    takeReports();
    typeKey(WXK_UP);
    EXPECT_TRUE(comesTo({"start", "value 52.000000", "end"}));
    takeReports();
    typeKey(WXK_PAGEDOWN);
    EXPECT_TRUE(comesTo({"start", "value 32.000000", "end"}));
    takeReports();
    typeKey(WXK_DOWN);
    typeKey(WXK_PAGEUP);
    EXPECT_TRUE(pumpUntil([this] { return spinner->value() == 50.0f; }));
    EXPECT_TRUE(spinner->textField()->HasFocus());
}

TEST_F(SpinnerTextTest, pageKey_withAStepBelowTheUnit_movesByTenUnits)
{
    make(0, 10, 1, 1, 0.001f);
    sendKey(WXK_PAGEUP);
    EXPECT_EQ(text(), "2.0");
    sendKey(WXK_DOWN);
    EXPECT_EQ(text(), "1.9");
}

TEST_F(SpinnerTextTest, cursorKeys_carryWhatRoundingTakes)
{
    make(0, 10, 0, 0, 1.25f);
    for (int i = 0; i < 4; ++i)
        sendKey(WXK_UP);
    EXPECT_EQ(text(), "5");
}

TEST_F(SpinnerTextTest, cursorKey_appliesTheTypedValueFirst)
{
    make(0, 10, 1, 0, 1);
    typeText("7");
    sendKey(WXK_UP);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 7.000000", "end", "start", "value 8.000000", "end"}));
}

TEST_F(SpinnerTextTest, keysWithModifiers_areLeftAlone)
{
    make();
    sendKey(WXK_UP, true);
    sendKey(WXK_LEFT);
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerTextTest, destroyedWithTheFocus_appliesNothing)
{
    make(0, 10, 4);
    ASSERT_NO_FATAL_FAILURE(focus());
    takeReports();
    typeText("7");
    spinner->Destroy();
    pumpEvents();
    EXPECT_EQ(takeReports(), Reports{});
}

TEST_F(SpinnerTextTest, changeByUser_isBracketedByItsEditing)
{
    make(0, 10, 4);
    spinner->changeByUser(4);
    EXPECT_EQ(takeReports(), Reports{});
    spinner->changeByUser(6);
    EXPECT_EQ(takeReports(), (Reports{"start", "value 6.000000", "end"}));
}
