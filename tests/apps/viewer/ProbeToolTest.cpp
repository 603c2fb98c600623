// SPDX-License-Identifier: MIT
#include "apps/viewer/ProbeTool.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/PixelProbe.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/view/PixelCursor.h"
#include "support/Gestures.h"
#include "support/ViewerFixture.h"

#include <wx/menu.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::coordinates;
using Tests::pumpUntil;
using Tests::typeKey;
using Viewer::Channel;

namespace {

struct ProbeToolTest : Tests::ViewerFixture
{
    const Wx::PixelProbe* probe() const { return Tests::findIn<Wx::PixelProbe>(view); }

    bool isProbeShown() const { return probe() != nullptr && probe()->IsShown(); }

    bool appears() const
    {
        return pumpUntil([this] { return isProbeShown(); }, 2000);
    }

    bool disappears() const
    {
        return pumpUntil([this] { return !isProbeShown(); }, 2000);
    }

    /// Returns the text whose first line begins with these words.
    wxString shownText(const wxString& beginning) const
    {
        for (const wxWindow* child : probe()->GetChildren()) {
            if (child->GetLabel().StartsWith(beginning))
                return child->GetLabel();
        }
        return {};
    }

    wxString bytes() const { return shownText(L"Tonemapped\nsRGB 8-bit"); }

    /// The place of a pixel of the picture in the view.
    wxPoint placeOf(int x, int y) const { return view->pictureArea().GetTopLeft() + wxPoint(x, y); }

    /// The bytes of a pixel as the frame shows them.
    static wxString bytesOf(const Pixel& pixel)
    {
        return wxString::Format("R: %d\nG: %d\nB: 99", pixel.x, pixel.y);
    }

    void pointAt(int x, int y) const
    {
        Tests::moveMouse(view, placeOf(x, y) + wxPoint(1, 1));
        Tests::moveMouse(view, placeOf(x, y));
    }

    /// Shows a picture, switches the probe on and points at a pixel.
    void probePixel(int x, int y)
    {
        show(coordinates(200, 150));
        command(Viewer::PIXEL_PROBE);
        pointAt(x, y);
        ASSERT_TRUE(appears());
    }
};

} // namespace

TEST_F(ProbeToolTest, off_showsNothing)
{
    show(coordinates(200, 150));
    pointAt(30, 40);
    Tests::pumpEvents(100);
    EXPECT_EQ(probe(), nullptr);
    EXPECT_FALSE(frame->hasPixelProbe());
}

TEST_F(ProbeToolTest, on_followsTheMouseAndTellsThePixel)
{
    probePixel(30, 40);
    EXPECT_EQ(probe()->GetScreenPosition(), view->ClientToScreen(placeOf(30, 40)) + wxPoint(20, 20));
    EXPECT_EQ(shownText(L"Position"), "Position:\n30\n40");
    EXPECT_EQ(bytes(), "Tonemapped\nsRGB 8-bit:\nR: 30\nG: 40\nB: 99\nA: 255");
    EXPECT_EQ(shownText(L"Tonemapped\nsRGB:"),
              "Tonemapped\nsRGB:\nR: 0.11765\nG: 0.15686\nB: 0.38824\nA: 1.00000");
    EXPECT_EQ(shownText(L"Original"),
              "Original\nLinear RGB:\nR: 0.00902\nG: 0.01699\nB: 0.12474\nA: 1.00000");
    pointAt(199, 149);
    EXPECT_TRUE(pumpUntil([this] { return shownText(L"Position") == "Position:\n199\n149"; }));
    pointAt(0, 0);
    EXPECT_TRUE(pumpUntil([this] { return shownText(L"Position") == "Position:\n0\n0"; }));
}

TEST_F(ProbeToolTest, besideThePicture_isHidden)
{
    probePixel(30, 40);
    ASSERT_GT(placeOf(0, 0).x, 3);
    pointAt(-3, 40);
    EXPECT_TRUE(disappears());
    pointAt(0, 0);
    EXPECT_TRUE(appears());
}

TEST_F(ProbeToolTest, mouseOutsideTheView_hidesTheProbe)
{
    probePixel(30, 40);
    Tests::moveMouse(frame, {10, 10});
    EXPECT_TRUE(disappears());
}

TEST_F(ProbeToolTest, anotherActiveWindow_hidesTheProbe)
{
    probePixel(30, 40);
    if (!frame->IsActive())
        GTEST_SKIP() << "No window manager activates windows.";
    auto* other = new wxFrame(nullptr, wxID_ANY, "other", {5, 5}, {150, 100});
    other->Show();
    other->Raise();
    EXPECT_TRUE(disappears());
    pointAt(31, 40);
    EXPECT_FALSE(isProbeShown());
    Tests::destroyNow(other);
    frame->Raise();
    EXPECT_TRUE(appears());
}

TEST_F(ProbeToolTest, commandAgain_hidesTheProbe)
{
    probePixel(30, 40);
    command(Viewer::PIXEL_PROBE);
    EXPECT_FALSE(isProbeShown());
    pointAt(32, 40);
    EXPECT_FALSE(isProbeShown());
    command(Viewer::PIXEL_PROBE);
    EXPECT_TRUE(isProbeShown()) << "the mouse is over the picture";
}

TEST_F(ProbeToolTest, escape_switchesTheProbeOffBeforeItClosesTheWindow)
{
    probePixel(30, 40);
    focus(view);
    Tests::typeKey(WXK_ESCAPE);
    EXPECT_TRUE(disappears());
    EXPECT_FALSE(frame->hasPixelProbe());
    EXPECT_TRUE(frame->IsShown());
}

TEST_F(ProbeToolTest, itsKey_switchesTheProbe)
{
    show(coordinates(200, 150));
    focus(view);
    Tests::typeKey('I', wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([this] { return frame->hasPixelProbe(); }));
    Tests::typeKey('I', wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([this] { return !frame->hasPixelProbe(); }));
}

TEST_F(ProbeToolTest, menuAndOption_showWhetherTheProbeIsOn)
{
    show(coordinates(200, 150));
    const wxMenuItem* item = frame->GetMenuBar()->FindItem(Viewer::PIXEL_PROBE);
    auto* box = dynamic_cast<Wx::CheckBox*>(wxWindow::FindWindowById(Viewer::PIXEL_PROBE, frame));
    ASSERT_NE(box, nullptr);
    EXPECT_FALSE(item->IsChecked());
    command(Viewer::PIXEL_PROBE);
    EXPECT_TRUE(item->IsChecked());
    EXPECT_TRUE(box->GetValue());
    command(Viewer::PIXEL_PROBE);
    EXPECT_FALSE(item->IsChecked());
    EXPECT_FALSE(box->GetValue());
}

TEST_F(ProbeToolTest, whileOn_thePictureHasNoTooltip)
{
    show(coordinates(200, 150));
    EXPECT_FALSE(view->tooltip()->lines().empty());
    command(Viewer::PIXEL_PROBE);
    EXPECT_TRUE(view->tooltip()->lines().empty());
    frame->openPicture(Tests::testPicture(L"pattern.png"));
    EXPECT_TRUE(view->tooltip()->lines().empty());
    command(Viewer::PIXEL_PROBE);
    EXPECT_FALSE(view->tooltip()->lines().empty());
}

TEST_F(ProbeToolTest, anotherPictureOrSetting_isToldWithoutAMovementOfTheMouse)
{
    probePixel(30, 40);
    const wxPoint mouse = placeOf(30, 40);
    view->setDisplay({0.0f, Channel::GREEN});
    EXPECT_TRUE(pumpUntil([this] {
        return bytes() == "Tonemapped\nsRGB 8-bit:\nR: 40\nG: 40\nB: 40\nA: 255";
    })) << bytes();
    view->setDisplay({});
    view->setPicture(coordinates(4000, 3000));
    view->showActualSize();
    view->scroll({4000, 3000}); // to the top left corner
    view->scroll({0, -80});
    const wxString expected = wxString::Format("Position:\n%d\n%d", mouse.x, mouse.y + 80);
    EXPECT_TRUE(pumpUntil([&] { return shownText(L"Position") == expected; })) << shownText(L"Position");
    EXPECT_TRUE(isProbeShown());
}

TEST_F(ProbeToolTest, noPicture_isSurvived)
{
    show(coordinates(200, 150));
    command(Viewer::PIXEL_PROBE);
    pointAt(30, 40);
    EXPECT_TRUE(appears());
    view->setPicture(nullptr);
    EXPECT_TRUE(disappears());
}

TEST_F(ProbeToolTest, closingTheWindow_takesTheProbeAlong)
{
    probePixel(30, 40);
    Tests::destroyNow(frame);
    frame = nullptr;
}

TEST_F(ProbeToolTest, pixelAt_isThePixelUnderThatPoint)
{
    show(coordinates(4000, 3000));
    view->showActualSize();
    view->scroll({4000, 3000});
    EXPECT_EQ(view->pixelAt({7, 9}), (Pixel{7, 9}));
    view->scroll({-32, -16});
    EXPECT_EQ(view->pixelAt({7, 9}), (Pixel{39, 25}));
    EXPECT_FALSE(view->pixelAt({-1, 9}));
    EXPECT_FALSE(view->pixelAt({7, view->GetClientSize().y}));
    view->setPicture(nullptr);
    EXPECT_FALSE(view->pixelAt({7, 9}));
}

TEST_F(ProbeToolTest, atAnyScale_tellsThePixelThatTheScreenShows)
{
    show(coordinates(200, 150));
    command(Viewer::PIXEL_PROBE);
    for (const double scale : {0.37, 1.0, 3.0, 17.5}) {
        view->setScale(scale);
        const wxPoint place = wxPoint() + view->GetClientSize() / 2 + wxPoint(5, -7);
        Tests::moveMouse(view, place + wxPoint(1, 1));
        Tests::moveMouse(view, place);
        const Pixel pixel = view->pixelAt(place).value_or(Pixel{-1, -1});
        EXPECT_TRUE(pumpUntil([&] {
            return shownText(L"Position") == wxString::Format("Position:\n%d\n%d", pixel.x, pixel.y);
        })) << scale
            << ", " << shownText(L"Position");
        if (scale >= 1.0) {
            EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(view), place.x, place.y),
                      Tests::coordinate(pixel.x, pixel.y))
                << scale;
        }
    }
}

TEST_F(ProbeToolTest, arrowsWithCtrl_switchTheProbeOnAndMoveItByPixels)
{
    show(coordinates(200, 150));
    focus(view);
    view->showActualSize();
    typeKey(WXK_RIGHT, wxMOD_CONTROL);
    ASSERT_TRUE(appears());
    EXPECT_TRUE(frame->hasPixelProbe());
    EXPECT_TRUE(frame->GetMenuBar()->IsChecked(Viewer::PIXEL_PROBE));
    ASSERT_TRUE(view->pixelCursor().pixel());
    const Pixel first = *view->pixelCursor().pixel();
    EXPECT_TRUE(pumpUntil([&] { return bytes().Contains(bytesOf(first)); })) << bytes();
    typeKey(WXK_RIGHT, wxMOD_CONTROL);
    typeKey(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_EQ(view->pixelCursor().pixel(), first + (Pixel{1, 1}));
    typeKey(WXK_LEFT, wxMOD_CONTROL | wxMOD_SHIFT);
    typeKey(WXK_UP, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(view->pixelCursor().pixel(), first + (Pixel{-9, -9}));
    EXPECT_TRUE(pumpUntil([&] { return bytes().Contains(bytesOf(first + Pixel{-9, -9})); })) << bytes();
}

TEST_F(ProbeToolTest, mouse_takesOverFromTheKeys)
{
    probePixel(30, 40);
    focus(view);
    typeKey(WXK_HOME, wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([&] { return bytes().Contains(bytesOf({0, 0})); })) << bytes();
    // Events of a resting mouse change nothing.
    wxMouseEvent resting(wxEVT_MOTION);
    resting.SetPosition(placeOf(30, 40));
    view->ProcessWindowEvent(resting);
    EXPECT_EQ(view->pixelCursor().pixel(), (Pixel{0, 0}));
    pointAt(31, 41);
    EXPECT_TRUE(pumpUntil([&] { return bytes().Contains(bytesOf({31, 41})); })) << bytes();
    EXPECT_FALSE(view->pixelCursor().pixel());
    EXPECT_TRUE(isProbeShown());
}

TEST_F(ProbeToolTest, click_takesOverFromTheKeys)
{
    probePixel(30, 40);
    focus(view);
    typeKey(WXK_HOME, wxMOD_CONTROL);
    ASSERT_TRUE(view->pixelCursor().pixel());
    Tests::pressMouse();
    Tests::releaseMouse();
    EXPECT_TRUE(pumpUntil([&] { return bytes().Contains(bytesOf({30, 40})); })) << bytes();
    EXPECT_FALSE(view->pixelCursor().pixel());
}

TEST_F(ProbeToolTest, escape_endsTheProbeAndForgetsThePixelOfTheKeys)
{
    show(coordinates(200, 150));
    focus(view);
    typeKey(WXK_END, wxMOD_CONTROL);
    ASSERT_TRUE(appears());
    typeKey(WXK_ESCAPE);
    EXPECT_TRUE(disappears());
    EXPECT_FALSE(view->pixelCursor().pixel());
    EXPECT_FALSE(frame->hasPixelProbe());
}
