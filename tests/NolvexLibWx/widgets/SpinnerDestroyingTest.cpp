// SPDX-License-Identifier: MIT
// In these tests, a handler of an event destroys the spinner that sends the event.
#include "SpinnerFixture.h"

#include <wx/textctrl.h>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

// Who destroys the spinner.
enum class At
{
    START,
    VALUE,
    CALL,
    END,
};

const char* nameOf(At at)
{
    constexpr const char* NAMES[] = {"start", "value", "callback", "end"};
    return NAMES[static_cast<int>(at)];
}

struct SpinnerDestroyingTest : SpinnerFixture, testing::WithParamInterface<At>
{
    int destroyed = 0;

    OpenSpinner* makeDoomed()
    {
        OpenSpinner* const doomed = make(0, 100, 50, 0, 1);
        if (GetParam() == At::START)
            panel->Bind(Wx::CUSTSPINNER_START_EDITING, [this](wxActivateEvent&) { destroy(); });
        else if (GetParam() == At::VALUE)
            panel->Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent&) { destroy(); });
        else if (GetParam() == At::CALL)
            doomed->callOnValueChange([this](float) { destroy(); });
        else
            panel->Bind(Wx::CUSTSPINNER_END_EDITING, [this](wxActivateEvent&) { destroy(); });
        return doomed;
    }

    void destroy()
    {
        ++destroyed;
        spinner->Destroy();
    }

    // Sends an event to an arrow if there still is a spinner.
    void sendToArrow(wxEventType type, int y = 4) const
    {
        if (spinner)
            sendMouse(spinner->upArrow(), type, y);
    }

    void expectDestroyed()
    {
        EXPECT_EQ(destroyed, 1);
        EXPECT_FALSE(spinner);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        pumpEvents(10);
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Events, SpinnerDestroyingTest,
                         testing::Values(At::START, At::VALUE, At::CALL, At::END),
                         [](const auto& generated) { return nameOf(generated.param); });

TEST_P(SpinnerDestroyingTest, click)
{
    makeDoomed();
    sendToArrow(wxEVT_LEFT_DOWN);
    sendToArrow(wxEVT_LEFT_UP);
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, realClick)
{
    makeDoomed();
    clickAt(spinner->upArrow(), {5, 4});
    EXPECT_TRUE(pumpUntil([this] { return !spinner; }));
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, repetition)
{
    makeDoomed();
    sendToArrow(wxEVT_LEFT_DOWN);
    if (spinner)
        spinner->repeatTimer().Start(1);
    pumpUntil([this] { return !spinner || spinner->value() > 52; });
    sendToArrow(wxEVT_LEFT_UP);
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, drag)
{
    makeDoomed();
    sendToArrow(wxEVT_LEFT_DOWN);
    sendToArrow(wxEVT_MOTION, -20);
    sendToArrow(wxEVT_LEFT_UP);
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, rightClickInADrag)
{
    makeDoomed();
    sendToArrow(wxEVT_LEFT_DOWN);
    sendToArrow(wxEVT_RIGHT_UP);
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, lostCapture)
{
    makeDoomed();
    sendToArrow(wxEVT_LEFT_DOWN);
    if (spinner)
        spinner->Disable();
    pumpUntil([this] { return !spinner; }, 300);
    sendToArrow(wxEVT_LEFT_UP);
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, enterKey)
{
    makeDoomed();
    ASSERT_NO_FATAL_FAILURE(focus());
    typeText("7");
    wxUIActionSimulator().Char(WXK_RETURN);
    EXPECT_TRUE(pumpUntil([this] { return !spinner; }));
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, lostFocus)
{
    makeDoomed();
    auto* other = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(200, 60));
    ASSERT_NO_FATAL_FAILURE(focus());
    typeText("7");
    other->SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return !spinner; }));
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, cursorKeyAfterTyping)
{
    makeDoomed();
    ASSERT_NO_FATAL_FAILURE(focus());
    typeText("7");
    wxUIActionSimulator().Char(WXK_UP);
    EXPECT_TRUE(pumpUntil([this] { return !spinner; }));
    expectDestroyed();
}

TEST_P(SpinnerDestroyingTest, changeByUser)
{
    makeDoomed()->changeByUser(7);
    expectDestroyed();
}

using SpinnerDestroyedTest = SpinnerFixture;

TEST_F(SpinnerDestroyedTest, focusEventsThatDestroyTheSpinner)
{
    make();
    auto* other = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(200, 60));
    panel->Bind(Wx::CUSTSPINNER_TEXT_FOCUS_LOST, [this](wxFocusEvent&) { spinner->Destroy(); });
    ASSERT_NO_FATAL_FAILURE(focus());
    other->SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return !spinner; }));
    EXPECT_TRUE(pumpUntil([other] { return other->HasFocus(); }));
}

TEST_F(SpinnerDestroyedTest, configureWithAHandlerThatDestroysTheSpinner)
{
    make();
    panel->Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent&) { spinner->Destroy(); });
    spinner->configure(0, 5, 1, 1, 1, true);
    EXPECT_FALSE(spinner);
}
