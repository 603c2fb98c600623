// SPDX-License-Identifier: MIT
// Tests what a click makes of the application's picker.
#include "ColorPickerButtonFixture.h"

#include "support/ExceptionWatch.h"

#include <thread>

using namespace Nolvex;
using Tests::FakePicker;
using Wx::ColorPickerButton;

namespace {

struct ColorPickerButtonPickerTest : Tests::ColorPickerButtonFixture
{
    /// Counts the paintings of a window.
    static std::shared_ptr<int> countPaintings(wxWindow* window)
    {
        auto count = std::make_shared<int>(0);
        window->Bind(wxEVT_PAINT, [count](wxPaintEvent& event) {
            ++*count;
            event.Skip();
        });
        return count;
    }
};

} // namespace

TEST_F(ColorPickerButtonPickerTest, click_asksTheFactoryForAPicker)
{
    ColorPickerButton* button = make();
    showFrame();
    Tests::clickAt(button, middleOf(button));
    ASSERT_EQ(pickers.requests.size(), 1u);
    EXPECT_EQ(pickers.requests[0].owner, Wx::getWindowNativeHandle(button));
    EXPECT_EQ(pickers.requests[0].title, L"Title");
    EXPECT_EQ(pickers.requests[0].initial, ORANGE);
    EXPECT_EQ(pickers.alive, 0) << "the picker is destroyed after its run";
    EXPECT_TRUE(entries.empty());
}

TEST_F(ColorPickerButtonPickerTest, newTitle_isForTheNextPicker)
{
    ColorPickerButton* button = make();
    showFrame();
    button->setTitle(L"\u00DCber");
    clickWithoutMouse(button);
    ASSERT_EQ(pickers.requests.size(), 1u);
    EXPECT_EQ(pickers.requests[0].title, L"\u00DCber");
}

TEST_F(ColorPickerButtonPickerTest, nextPickerOfAnyButton_opensWhereTheLastOneWasClosed)
{
    ColorPickerButton* first = make();
    ColorPickerButton* second = make({120, 40});
    showFrame();
    for (const wxPoint& closedAt : {wxPoint(123, 45), wxPoint(-7, 8), wxDefaultPosition}) {
        pickers.requests.clear();
        pickers.run = [&](FakePicker& picker) { picker.position = closedAt; };
        clickWithoutMouse(first);
        clickWithoutMouse(second);
        ASSERT_EQ(pickers.requests.size(), 2u);
        EXPECT_EQ(pickers.requests[1].position, closedAt);
    }
}

TEST_F(ColorPickerButtonPickerTest, preview_isShownAtOnceWithoutChangingTheColour)
{
    ColorPickerButton* button = make();
    showFrame();
    const std::shared_ptr<int> paintings = countPaintings(button);
    int atOnce = 0;
    pickers.run = [&](FakePicker& picker) {
        const int before = *paintings;
        picker.preview(TEAL);
        atOnce = *paintings - before;
        EXPECT_EQ(button->getColor(), ORANGE);
    };
    clickWithoutMouse(button);
    EXPECT_EQ(atOnce, 1);
    EXPECT_EQ(entries, Entries({{"preview", TEAL}}));
}

TEST_F(ColorPickerButtonPickerTest, cancelledAfterPreviews_keepsTheColourAndShowsTheLastPreview)
{
    ColorPickerButton* button = make();
    showFrame();
    pickers.run = [](FakePicker& picker) {
        picker.preview({1, 0, 0, 1});
        picker.preview(TEAL);
    };
    clickWithoutMouse(button);
    EXPECT_EQ(button->getColor(), ORANGE);
    EXPECT_TRUE(shows(button, TEAL_BYTES));
    frame->Refresh();
    Tests::pumpEvents();
    EXPECT_TRUE(shows(button, TEAL_BYTES)) << "repainting alone does not bring the colour back";
    button->setColor(button->getColor(), false);
    EXPECT_TRUE(shows(button, ORANGE_BYTES));
}

TEST_F(ColorPickerButtonPickerTest, nextPickerAfterACancelledOne_startsWithTheColour)
{
    ColorPickerButton* button = make();
    showFrame();
    pickers.run = [](FakePicker& picker) { picker.preview(TEAL); };
    clickWithoutMouse(button);
    clickWithoutMouse(button);
    ASSERT_EQ(pickers.requests.size(), 2u);
    EXPECT_EQ(pickers.requests[1].initial, ORANGE);
}

TEST_F(ColorPickerButtonPickerTest, commit_setsTheColourAndCallsOnChangeOnly)
{
    ColorPickerButton* button = make();
    showFrame();
    pickers.run = [](FakePicker& picker) { picker.commit(TEAL); };
    clickWithoutMouse(button);
    EXPECT_EQ(button->getColor(), TEAL);
    EXPECT_EQ(entries, Entries({{"change", TEAL}}));
    EXPECT_TRUE(shows(button, TEAL_BYTES));
}

TEST_F(ColorPickerButtonPickerTest, previewOfAnotherThread_isShownByTheMainThread)
{
    ColorPickerButton* button = make();
    showFrame();
    const std::shared_ptr<int> paintings = countPaintings(button);
    pickers.run = [&](FakePicker& picker) {
        const int before = *paintings;
        std::thread([&] { picker.preview(TEAL); }).join();
        EXPECT_EQ(*paintings, before);
    };
    clickWithoutMouse(button);
    EXPECT_EQ(entries, Entries({{"preview", TEAL}})) << "the callback is called by the other thread";
    EXPECT_TRUE(shows(button, TEAL_BYTES));
}

TEST_F(ColorPickerButtonPickerTest, previewOfAnotherThread_doesNotReplaceAColourChosenMeanwhile)
{
    ColorPickerButton* button = make();
    showFrame();
    pickers.run = [&](FakePicker& picker) {
        std::thread([&] { picker.preview(ORANGE); }).join();
        picker.commit(TEAL);
    };
    clickWithoutMouse(button);
    EXPECT_TRUE(shows(button, TEAL_BYTES));
    Tests::pumpEvents();
    EXPECT_TRUE(shows(button, TEAL_BYTES));
}

TEST_F(ColorPickerButtonPickerTest, afterThePicker_everyTopLevelWindowIsRepainted)
{
    ColorPickerButton* button = make();
    const wxWeakRef<wxFrame> other = new wxFrame(nullptr, wxID_ANY, L"other", wxPoint(600, 100));
    auto* otherPanel = new wxPanel(other);
    other->Show();
    showFrame();
    const std::shared_ptr<int> paintings = countPaintings(otherPanel);
    Tests::pumpEvents();
    *paintings = 0;
    clickWithoutMouse(button);
    EXPECT_TRUE(Tests::pumpUntil([&] { return *paintings > 0; }));
    Tests::destroyNow(other);
}

TEST_F(ColorPickerButtonPickerTest, withoutAFactory_clickOpensNothing)
{
    auto* button = new ColorPickerButton(nullptr, panel, L"Title", wxSize(40, 30), true);
    showFrame();
    Tests::clickAt(button, middleOf(button));
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ColorPickerButtonPickerTest, factoryWithoutAPicker_opensNothing)
{
    ColorPickerButton* button = make();
    showFrame();
    pickers.isNull = true;
    clickWithoutMouse(button);
    EXPECT_EQ(pickers.requests.size(), 1u);
    pickers.isNull = false;
    clickWithoutMouse(button);
    EXPECT_EQ(pickers.requests.size(), 2u) << "the button still has its factory";
}

TEST_F(ColorPickerButtonPickerTest, clickWhileItsPickerRuns_opensNoOther)
{
    ColorPickerButton* button = make();
    ColorPickerButton* other = make({120, 40});
    showFrame();
    pickers.run = [&](FakePicker&) {
        pickers.run = {};
        clickWithoutMouse(button);
        EXPECT_EQ(pickers.requests.size(), 1u);
        clickWithoutMouse(other);
        EXPECT_EQ(pickers.requests.size(), 2u) << "another button opens its own picker";
    };
    clickWithoutMouse(button);
    clickWithoutMouse(button);
    EXPECT_EQ(pickers.requests.size(), 3u);
}

TEST_F(ColorPickerButtonPickerTest, doubleClick_opensOnePicker)
{
    ColorPickerButton* button = make();
    showFrame();
    Tests::moveMouse(button, middleOf(button));
    wxUIActionSimulator().MouseDblClick();
    Tests::pumpEvents(100);
    EXPECT_EQ(pickers.requests.size(), 1u);
}

TEST_F(ColorPickerButtonPickerTest, exceptionOfTheFactory_reachesTheMainLoop)
{
    ColorPickerButton* button = make();
    showFrame();
    Tests::ExceptionWatch watch;
    pickers.making = [&] { watch.fail("no picker"); };
    Tests::clickAt(button, middleOf(button));
    EXPECT_EQ(watch.caught(), "no picker");
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    pickers.making = {};
    clickWithoutMouse(button);
    EXPECT_EQ(pickers.requests.size(), 1u) << "the button still has its factory";
}

TEST_F(ColorPickerButtonPickerTest, exceptionOfThePicker_reachesTheMainLoopAndLeavesThePosition)
{
    ColorPickerButton* button = make();
    showFrame();
    pickers.run = [](FakePicker& picker) { picker.position = {11, 12}; };
    clickWithoutMouse(button);
    Tests::ExceptionWatch watch;
    pickers.run = [&](FakePicker& picker) {
        picker.position = {99, 99};
        watch.fail("broken picker");
    };
    Tests::clickAt(button, middleOf(button));
    EXPECT_EQ(watch.caught(), "broken picker");
    EXPECT_EQ(pickers.alive, 0);
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    pickers.run = {};
    clickWithoutMouse(button);
    ASSERT_EQ(pickers.requests.size(), 3u);
    EXPECT_EQ(pickers.requests[2].position, wxPoint(11, 12));
}

TEST_F(ColorPickerButtonPickerTest, buttonDestroyedWhileThePickerRuns_leavesPickerAndFactoryToTheEnd)
{
    ColorPickerButton* button = make();
    showFrame();
    pickers.run = [&](FakePicker& picker) {
        button->Destroy();
        EXPECT_EQ(pickers.alive, 1);
        EXPECT_EQ(pickers.factories, 1);
        picker.preview(TEAL);
        picker.commit(TEAL);
        picker.position = {77, 78};
    };
    clickWithoutMouse(button);
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(pickers.alive, 0);
    EXPECT_EQ(pickers.factories, 0);
    ColorPickerButton* next = make();
    pickers.run = {};
    clickWithoutMouse(next);
    EXPECT_EQ(pickers.requests.back().position, wxPoint(77, 78));
}

TEST_F(ColorPickerButtonPickerTest, buttonDestroyedByTheFactory_runsNoPicker)
{
    ColorPickerButton* button = make();
    showFrame();
    bool hasRun = false;
    pickers.run = [&](FakePicker&) { hasRun = true; };
    pickers.making = [&] { button->Destroy(); };
    clickWithoutMouse(button);
    EXPECT_EQ(pickers.requests.size(), 1u);
    EXPECT_EQ(pickers.requests[0].title, L"Title") << "the arguments outlive the button";
    EXPECT_FALSE(hasRun);
    EXPECT_EQ(pickers.alive, 0);
    EXPECT_EQ(pickers.factories, 0);
}

TEST_F(ColorPickerButtonPickerTest, frameDeletedByAPreview_isSurvived)
{
    ColorPickerButton* button = make();
    showFrame();
    button->onPreview = [&](const Rgb&) { delete frame.get(); };
    pickers.run = [&](FakePicker& picker) {
        picker.preview(TEAL);
        picker.preview(ORANGE);
        picker.commit(TEAL);
    };
    sendMouse(button, wxEVT_LEFT_DOWN, middleOf(button));
    sendMouse(button, wxEVT_LEFT_UP, middleOf(button));
    EXPECT_FALSE(frame);
    EXPECT_TRUE(entries.empty());
}

TEST_F(ColorPickerButtonPickerTest, buttonDestroyedByACommit_isSurvived)
{
    ColorPickerButton* button = make();
    showFrame();
    button->onChange = [&](const Rgb&) { button->Destroy(); };
    pickers.run = [&](FakePicker& picker) {
        picker.commit(TEAL);
        picker.preview(TEAL);
    };
    Tests::clickAt(button, middleOf(button));
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(pickers.factories, 0);
}
