// SPDX-License-Identifier: MIT
// Tests presses and drags with real input of the system's mouse.
#include "ColorPickerButtonFixture.h"

#include "support/ExceptionWatch.h"
#include "support/RawInput.h"
#include "support/TimedSteps.h"

#include <array>
#include <bit>
#include <cstdint>

using namespace Nolvex;
using Tests::TimedSteps;
using Wx::ColorPickerButton;

namespace {

const wxPoint SOURCE_PLACE(40, 40);
const wxPoint TARGET_PLACE(200, 140);

struct ColorPickerButtonMouseTest : Tests::ColorPickerButtonFixture
{
    using Bits = std::array<std::uint32_t, 4>;
    using Steps = std::vector<TimedSteps::Step>;

    ColorPickerButton* source = make(SOURCE_PLACE, "source ");
    ColorPickerButton* target = make(TARGET_PLACE, "target ");

    ~ColorPickerButtonMouseTest() override
    {
        // A failed test must not leave the button down.
        if (wxGetMouseState().LeftIsDown())
            Tests::dropMouse();
        Tests::pumpEvents();
    }

    static TimedSteps::Step moveTo(const wxPoint& position)
    {
        return [position] { Tests::placeMouse(position); };
    }

    /// The steps that press the mouse in the source and move it through points on its way to a place on the
    /// panel, where it is moved a little, so that the window below can answer.
    Steps draggingTo(const wxPoint& place) const
    {
        const wxPoint start = source->ClientToScreen(middleOf(source));
        const wxPoint end = panel->ClientToScreen(place);
        Steps steps{moveTo(start), Tests::holdMouse};
        constexpr int COUNT = 8;
        for (int i = 1; i <= COUNT; ++i)
            steps.push_back(moveTo(start + (end - start) * i / COUNT));
        for (const int offset : {1, 2, 3, 0})
            steps.push_back(moveTo(end + wxPoint(offset, offset)));
        return steps;
    }

    Steps draggingToTarget() const { return draggingTo(TARGET_PLACE + middleOf(target)); }

    /// Performs the steps, and waits until the drag that they make has ended.
    static void perform(const Steps& steps)
    {
        const TimedSteps driver(steps);
        EXPECT_TRUE(Tests::pumpUntil([&] { return driver.isDone(); }, 20000));
        Tests::pumpEvents();
    }

    static Steps with(Steps steps, const TimedSteps::Step& last)
    {
        steps.push_back(last);
        return steps;
    }

    bool waitForEntries() const
    {
        return Tests::pumpUntil([this] { return !entries.empty(); });
    }
};

} // namespace

TEST_F(ColorPickerButtonMouseTest, press_capturesTheMouseUntilTheRelease)
{
    showFrame();
    Tests::pressMouseAt(source, middleOf(source));
    EXPECT_EQ(wxWindow::GetCapture(), source);
    EXPECT_TRUE(pickers.requests.empty());
    Tests::releaseMouse();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(pickers.requests.size(), 1u);
}

TEST_F(ColorPickerButtonMouseTest, releasedOutside_opensNothing)
{
    showFrame();
    // These events come from no mouse, so that no drag begins.
    sendMouse(source, wxEVT_LEFT_DOWN, middleOf(source));
    const wxSize size = source->GetSize();
    sendMouse(source, wxEVT_LEFT_UP, wxPoint(size.x, size.y - 1));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    sendMouse(source, wxEVT_LEFT_DOWN, middleOf(source));
    sendMouse(source, wxEVT_LEFT_UP, wxPoint(-1, 0));
    EXPECT_TRUE(pickers.requests.empty());
    sendMouse(source, wxEVT_LEFT_DOWN, middleOf(source));
    sendMouse(source, wxEVT_LEFT_UP, wxPoint(size.x - 1, size.y - 1));
    EXPECT_EQ(pickers.requests.size(), 1u) << "the last pixel is inside";
}

TEST_F(ColorPickerButtonMouseTest, draggedOutsideAndReleased_opensNothing)
{
    showFrame();
    perform(with(draggingTo({20, 200}), Tests::dropMouse));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_TRUE(pickers.requests.empty());
    EXPECT_TRUE(entries.empty());
}

TEST_F(ColorPickerButtonMouseTest, pressedOutsideAndReleasedInside_opensNothing)
{
    showFrame();
    Tests::pressMouseAt(panel, {5, 5});
    Tests::moveMouse(source, middleOf(source));
    Tests::releaseMouse();
    EXPECT_TRUE(pickers.requests.empty());
}

TEST_F(ColorPickerButtonMouseTest, mouseThatLeavesWithoutAPress_dragsNothing)
{
    showFrame();
    Tests::moveMouse(source, middleOf(source));
    perform({moveTo(panel->ClientToScreen({5, 5})), moveTo(target->ClientToScreen(middleOf(target)))});
    Tests::clickAt(panel, {5, 5});
    EXPECT_TRUE(entries.empty());
}

TEST_F(ColorPickerButtonMouseTest, mouseThatLeavesWithoutAButtonDown_endsThePressWithoutADrag)
{
    showFrame();
    // On Windows a drag that begins without a button down drops at once.
    Tests::moveMouse(target, middleOf(target));
    sendMouse(source, wxEVT_LEFT_DOWN, middleOf(source));
    sendMouse(source, wxEVT_LEAVE_WINDOW, {-1, -1});
    sendMouse(source, wxEVT_MOTION, {-1, -1});
    Tests::pumpEvents();
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    sendMouse(source, wxEVT_LEFT_UP, middleOf(source));
    EXPECT_TRUE(pickers.requests.empty());
}

TEST_F(ColorPickerButtonMouseTest, captureLost_endsThePress)
{
    showFrame();
    sendMouse(source, wxEVT_LEFT_DOWN, middleOf(source));
    ASSERT_EQ(wxWindow::GetCapture(), source);
    wxMouseCaptureLostEvent event(source->GetId());
    event.SetEventObject(source);
    EXPECT_TRUE(source->HandleWindowEvent(event));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    sendMouse(source, wxEVT_LEFT_UP, middleOf(source));
    EXPECT_TRUE(pickers.requests.empty());
}

TEST_F(ColorPickerButtonMouseTest, disabledWhilePressed_opensNothing)
{
    showFrame();
    Tests::pressMouseAt(source, middleOf(source));
    source->Enable(false);
    EXPECT_TRUE(Tests::pumpUntil([] { return wxWindow::GetCapture() == nullptr; }));
    Tests::releaseMouse();
    EXPECT_TRUE(pickers.requests.empty());
}

TEST_F(ColorPickerButtonMouseTest, disabledButton_opensAndDragsNothing)
{
    showFrame();
    source->Enable(false);
    Tests::clickAt(source, middleOf(source));
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(pickers.requests.empty());
    EXPECT_TRUE(entries.empty());
}

TEST_F(ColorPickerButtonMouseTest, colourDraggedToAnotherButton_isSetThereAndReported)
{
    source->setColor(TEAL, false);
    showFrame();
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(waitForEntries());
    EXPECT_EQ(entries, Entries({{"target change", TEAL}, {"target preview", TEAL}}));
    EXPECT_EQ(target->getColor(), TEAL);
    EXPECT_EQ(source->getColor(), TEAL);
    EXPECT_TRUE(shows(target, TEAL_BYTES));
    EXPECT_TRUE(pickers.requests.empty());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ColorPickerButtonMouseTest, drag_carriesTheColourAndNotAPreview)
{
    source->setColor(TEAL, false);
    showFrame();
    pickers.run = [](Tests::FakePicker& picker) { picker.preview({1, 0, 0, 1}); };
    clickWithoutMouse(source);
    entries.clear();
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(waitForEntries());
    EXPECT_EQ(target->getColor(), TEAL);
}

TEST_F(ColorPickerButtonMouseTest, everyBitOfTheColour_survivesTheDrag)
{
    constexpr Bits UNUSUAL{0x7FC12345, 0xFF800000, 0x41200000, 0xC0400000}; // NaN, -infinity, 10, -3
    source->setColor(std::bit_cast<Rgb>(UNUSUAL), false);
    showFrame();
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(waitForEntries());
    EXPECT_EQ(std::bit_cast<Bits>(target->getColor()), UNUSUAL);
}

TEST_F(ColorPickerButtonMouseTest, severalDrags_allArrive)
{
    showFrame();
    for (const float red : {0.25f, 0.5f, 0.75f}) {
        entries.clear();
        source->setColor({red, 0, 0, 1}, false);
        perform(with(draggingToTarget(), Tests::dropMouse));
        EXPECT_TRUE(waitForEntries());
        EXPECT_EQ(target->getColor(), (Rgb{red, 0, 0, 1}));
    }
    Tests::clickAt(source, middleOf(source));
    EXPECT_EQ(pickers.requests.size(), 1u) << "a click still opens a picker";
}

TEST_F(ColorPickerButtonMouseTest, colourDraggedBackToItsButton_isReportedThere)
{
    showFrame();
    Steps steps = draggingTo({20, 200});
    const wxPoint middle = source->ClientToScreen(middleOf(source));
    for (const int offset : {0, 1, 2, 1})
        steps.push_back(moveTo(middle + wxPoint(offset, 0)));
    perform(with(steps, Tests::dropMouse));
    EXPECT_TRUE(waitForEntries());
    EXPECT_EQ(entries, Entries({{"source change", ORANGE}, {"source preview", ORANGE}}));
    EXPECT_TRUE(pickers.requests.empty());
}

TEST_F(ColorPickerButtonMouseTest, disabledTarget_takesNoColour)
{
    source->setColor(TEAL, false);
    target->Enable(false);
    showFrame();
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(target->getColor(), ORANGE);
}

TEST_F(ColorPickerButtonMouseTest, targetDestroyedDuringTheDrag_endsNowhere)
{
    showFrame();
    Steps steps = draggingToTarget();
    steps.emplace_back([this] { target->Destroy(); });
    steps.push_back(moveTo(panel->ClientToScreen(TARGET_PLACE + wxPoint(2, 2))));
    perform(with(steps, Tests::dropMouse));
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ColorPickerButtonMouseTest, sourceDestroyedDuringTheDrag_isSurvived)
{
    showFrame();
    Steps steps = draggingTo({20, 200});
    steps.emplace_back([this] { source->Destroy(); });
    perform(with(steps, Tests::dropMouse));
    EXPECT_TRUE(pickers.requests.empty());
    Tests::clickAt(target, middleOf(target));
    EXPECT_EQ(pickers.requests.size(), 1u) << "the mouse works again";
}

TEST_F(ColorPickerButtonMouseTest, frameDeletedDuringTheDrag_isSurvived)
{
    showFrame();
    Steps steps = draggingToTarget();
    steps.emplace_back([this] { delete frame.get(); });
    perform(with(steps, Tests::dropMouse));
    EXPECT_TRUE(entries.empty());
}

TEST_F(ColorPickerButtonMouseTest, onChangeOfADropThatDestroysBothButtons_isSurvived)
{
    showFrame();
    target->onChange = [this](const Rgb& color) {
        source->Destroy();
        target->Destroy();
        entries.emplace_back("destroyed", color);
    };
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(waitForEntries());
    EXPECT_EQ(entries, Entries({{"destroyed", ORANGE}}));
}

TEST_F(ColorPickerButtonMouseTest, onPreviewOfADropThatDeletesTheFrame_isSurvived)
{
    showFrame();
    target->onPreview = [this](const Rgb&) { delete frame.get(); };
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(Tests::pumpUntil([this] { return !frame; }));
    EXPECT_EQ(entries, Entries({{"target change", ORANGE}}));
}

TEST_F(ColorPickerButtonMouseTest, exceptionOfADrop_reachesTheMainLoop)
{
    showFrame();
    Tests::ExceptionWatch watch;
    target->onChange = [&](const Rgb&) { watch.fail("broken callback"); };
    source->setColor(TEAL, false);
    perform(with(draggingToTarget(), Tests::dropMouse));
    EXPECT_TRUE(Tests::pumpUntil([&] { return !watch.caught().empty(); }));
    EXPECT_EQ(watch.caught(), "broken callback");
    EXPECT_EQ(target->getColor(), TEAL);
}

TEST_F(ColorPickerButtonMouseTest, escape_cancelsTheDrag)
{
    showFrame();
    Steps steps = draggingToTarget();
    steps.emplace_back(Tests::tapEscape);
    perform(with(steps, Tests::dropMouse));
    EXPECT_TRUE(entries.empty());
    Tests::clickAt(source, middleOf(source));
    EXPECT_EQ(pickers.requests.size(), 1u);
}
