// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenRegionChoice.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/Monitors.h"
#include "apps/viewer/ScreenOverlay.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"
#include "support/ViewerFixture.h"

#include <wx/display.h>
#include <wx/toplevel.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

using namespace Nolvex;
using Tests::pumpUntil;
using Viewer::ScreenOverlay;
using Viewer::ScreenRegionChoice;

namespace {

// The picture of the screen has half as many pixels as the screen, as if the screen had been captured in
// another scale.
struct ScreenRegionChoiceTest : Tests::FrameFixture
{
    const Bucket desktop = Wx::getDesktopRegion();
    const Pixel size{desktop.width() / 2, desktop.height() / 2};
    int ends = 0;
    Optional<wxRect> chosen;
    std::unique_ptr<ScreenRegionChoice> choice;
    wxWeakRef<ScreenOverlay> overlay;

    void begin()
    {
        showFrame();
        choice = std::make_unique<ScreenRegionChoice>(*frame, Tests::coordinates(size.x, size.y),
                                                      [this](const Optional<wxRect>& region) {
                                                          ++ends;
                                                          chosen = region;
                                                          choice.reset();
                                                      });
        for (wxWindow* window : frame->GetChildren()) {
            if (window->IsTopLevel())
                overlay = Tests::findIn<ScreenOverlay>(window);
        }
        ASSERT_TRUE(overlay);
        ASSERT_TRUE(pumpUntil([this] {
            return overlay->GetClientSize() == wxDisplay(0u).GetGeometry().GetSize() && overlay->HasFocus();
        }));
        Tests::pumpEvents(100);
    }

    // Sends the key as the system does.
    void press(int key, int modifiers = wxMOD_NONE) const
    {
        wxUIActionSimulator().Char(key, modifiers);
        Tests::pumpEvents(50);
    }

    void expectEnd()
    {
        EXPECT_TRUE(pumpUntil([this] { return ends > 0 && !overlay; }));
        EXPECT_EQ(ends, 1);
    }
};

} // namespace

TEST_F(ScreenRegionChoiceTest, drag_takesTheRegionUnderTheMouseAtTheReleaseOfTheButton)
{
    begin();
    Tests::pressMouseAt(overlay, {100, 60});
    Tests::moveMouse(overlay, {200, 100});
    Tests::moveMouse(overlay, {299, 159});
    EXPECT_EQ(choice->region(), wxRect(50, 30, 100, 50));
    EXPECT_EQ(ends, 0);
    Tests::releaseMouse();
    expectEnd();
    EXPECT_EQ(chosen, wxRect(50, 30, 100, 50));
}

TEST_F(ScreenRegionChoiceTest, click_takesNothing)
{
    begin();
    Tests::clickAt(overlay, {100, 60});
    EXPECT_EQ(ends, 0);
    EXPECT_FALSE(choice->region());
}

TEST_F(ScreenRegionChoiceTest, escape_cancelsAlsoInTheMiddleOfADrag)
{
    begin();
    Tests::pressMouseAt(overlay, {100, 60});
    Tests::moveMouse(overlay, {200, 100});
    press(WXK_ESCAPE);
    expectEnd();
    EXPECT_FALSE(chosen);
    Tests::releaseMouse();
    EXPECT_EQ(ends, 1);
}

TEST_F(ScreenRegionChoiceTest, arrows_beginMoveAndSizeTheRegionAndEnterTakesIt)
{
    begin();
    press(WXK_LEFT);
    const wxRect middle(size.x / 4, size.y / 4, size.x / 2, size.y / 2);
    EXPECT_EQ(choice->region(), middle);
    press(WXK_LEFT);
    press(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_EQ(choice->region(), wxRect(middle.x - 10, middle.y + 1, middle.width, middle.height));
    press(WXK_UP, wxMOD_SHIFT);
    press(WXK_RIGHT, wxMOD_SHIFT | wxMOD_CONTROL);
    const wxRect wanted(middle.x - 10, middle.y + 1, middle.width + 1, middle.height - 10);
    EXPECT_EQ(choice->region(), wanted);
    press(WXK_RETURN);
    expectEnd();
    EXPECT_EQ(chosen, wanted);
}

TEST_F(ScreenRegionChoiceTest, enterWithoutARegion_takesTheDisplay)
{
    begin();
    press(WXK_RETURN);
    expectEnd();
    EXPECT_EQ(chosen, wxRect(0, 0, size.x, size.y));
}

TEST_F(ScreenRegionChoiceTest, overlay_showsThePictureDimmedAndTheRegionBright)
{
    begin();
    choice->setRegion(wxRect(20, 30, 40, 50));
    Tests::pumpEvents(200);
    const wxImage shown = Tests::captureClientArea(overlay);
    EXPECT_EQ(Tests::pixelAt(shown, 2 * 30, 2 * 40), Tests::coordinate(30, 40));
    EXPECT_EQ(Tests::pixelAt(shown, 2 * 20, 2 * 30), Tests::coordinate(20, 30)) << "the first pixel";
    EXPECT_EQ(Tests::pixelAt(shown, 2 * 60 - 1, 2 * 80 - 1), Tests::coordinate(59, 79)) << "the last pixel";
    EXPECT_EQ(Tests::pixelAt(shown, 2 * 100, 2 * 40), (RgbBytes{50, 20, 49}));
}

TEST_F(ScreenRegionChoiceTest, destruction_removesTheOverlaysWithoutACall)
{
    begin();
    choice.reset();
    EXPECT_TRUE(pumpUntil([this] { return !overlay; }));
    EXPECT_EQ(ends, 0);
}

TEST_F(ScreenRegionChoiceTest, destructionOfTheOwner_leavesNothingBehind)
{
    begin();
    destroyFrame();
    EXPECT_TRUE(pumpUntil([this] { return !overlay; }));
    choice.reset();
    EXPECT_EQ(ends, 0);
}

TEST(PartOfPictureTest, part_hasThePixelsOfTheRegion)
{
    const Viewer::SharedPicture whole = Tests::coordinates(30, 20);
    const Expected<Viewer::SharedPicture, String> part = Viewer::partOf(*whole, wxRect(7, 3, 20, 10));
    ASSERT_TRUE(part.hasValue());
    EXPECT_EQ((*part)->size(), (Pixel{20, 10}));
    EXPECT_EQ((*part)->name(), whole->name());
    const Rgb first = (*part)->image().getRgba(0, 9);
    EXPECT_EQ(std::lround(first.r * 255), 7);
    EXPECT_EQ(std::lround(first.g * 255), 3);
    const Rgb last = (*part)->image().getRgba(19, 0);
    EXPECT_EQ(std::lround(last.r * 255), 26);
    EXPECT_EQ(std::lround(last.g * 255), 12);
}
