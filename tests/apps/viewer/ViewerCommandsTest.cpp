// SPDX-License-Identifier: MIT
// Tests the commands of the viewer's window and the lines of its log.
#include "NolvexLibWx/Clipboard.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/viewer/Command.h"
#include "support/ClipboardReading.h"
#include "support/ViewerFixture.h"

#include <wx/display.h>
#include <wx/menu.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::coordinate;
using Tests::coordinates;
using Tests::findIn;
using Tests::testPicture;

using ViewerCommandsTest = Tests::ViewerFixture;

TEST_F(ViewerCommandsTest, opening_isWrittenToTheLog)
{
    make(coordinates(60, 40));
    EXPECT_EQ(lastMessage(), L"Opened \"test\", 60 \u00D7 40 pixels.");
    EXPECT_TRUE(frame->openPicture(testPicture(L"pattern.png")));
    const Pixel size = view->picture()->size();
    EXPECT_EQ(lastMessage(),
              wxString::Format(L"Opened \"pattern.png\", %d \u00D7 %d pixels.", size.x, size.y));
    EXPECT_EQ(frame->GetTitle(), wxString::Format(L"pattern.png (%d \u00D7 %d)", size.x, size.y));
    EXPECT_FALSE(frame->isLogShown());
}

TEST_F(ViewerCommandsTest, opening_showsTheNewPicture)
{
    show(coordinates(4000, 3000));
    view->setScale(2.0);
    view->scroll({-160, -160});
    ASSERT_TRUE(frame->openPicture(testPicture(L"pattern.bmp")));
    const wxImage expected(wxString(testPicture(L"pattern.bmp").nativeStr().c_str()));
    EXPECT_EQ(shownAtTheCorner(), Tests::pixelAt(expected, 0, 0));
    EXPECT_EQ(view->scale(), 1.0);
    EXPECT_TRUE(wxRect(view->GetClientSize()).Contains(view->pictureArea())) << "nothing left to scroll";
}

TEST_F(ViewerCommandsTest, openingWhatIsNoPicture_keepsThePictureAndTellsInTheLog)
{
    show(coordinates(60, 40));
    for (const wchar_t* name : {L"missing.png", L"noimage.txt", L"truncated.jpg"}) {
        frame->showLog(false);
        EXPECT_FALSE(frame->openPicture(testPicture(name)));
        EXPECT_TRUE(lastMessage().Contains(name)) << lastMessage();
        EXPECT_TRUE(frame->isLogShown()) << name;
    }
    EXPECT_EQ(shownAtTheCorner(), coordinate(0, 0));
    EXPECT_EQ(frame->GetTitle(), L"test (60 \u00D7 40)");
}

TEST_F(ViewerCommandsTest, log_isShownAndHiddenByItsCommand)
{
    show(coordinates(60, 40));
    const wxMenuItem* item = frame->GetMenuBar()->FindItem(Viewer::SHOW_LOG);
    const int height = view->GetSize().y;
    EXPECT_FALSE(frame->isLogShown());
    EXPECT_FALSE(item->IsChecked());
    command(Viewer::SHOW_LOG);
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_TRUE(item->IsChecked());
    EXPECT_LE(view->GetSize().y, height - log->GetSize().y);
    command(Viewer::SHOW_LOG);
    EXPECT_FALSE(frame->isLogShown());
    EXPECT_FALSE(item->IsChecked());
    EXPECT_EQ(view->GetSize().y, height);
}

TEST_F(ViewerCommandsTest, log_isShownAndHiddenByItsKey_alsoWhileItHasTheFocus)
{
    show(coordinates(60, 40));
    focus(view);
    wxUIActionSimulator().Char('L', wxMOD_CONTROL);
    ASSERT_TRUE(Tests::pumpUntil([&] { return frame->isLogShown(); }));
    focus(log);
    wxUIActionSimulator().Char('L', wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return !frame->isLogShown(); }));
    EXPECT_TRUE(Tests::pumpUntil([&] { return view->HasFocus(); }));
}

TEST_F(ViewerCommandsTest, log_followsItsEnd)
{
    show(coordinates(60, 40));
    frame->showLog(true);
    for (int i = 0; i < 40; ++i)
        frame->openPicture(testPicture(L"pattern.png"));
    EXPECT_TRUE(Tests::pumpUntil([&] {
        const int y = log->PositionToCoords(log->GetLastPosition()).y;
        return y > 0 && y < log->GetClientSize().y;
    }));
}

TEST_F(ViewerCommandsTest, log_cannotBeEdited)
{
    make(coordinates(60, 40));
    EXPECT_FALSE(log->IsEditable());
}

TEST_F(ViewerCommandsTest, copy_pastesAtTheTopWhatIsShownAtTheTop)
{
    make(coordinates(60, 40));
    EXPECT_TRUE(frame->copyPicture());
    EXPECT_EQ(lastMessage(), L"Copied the picture, 60 \u00D7 40 pixels.");
    const auto pictures = Tests::clipboardPictures();
    EXPECT_FALSE(pictures.empty());
    for (const auto& [form, picture] : pictures) {
        ASSERT_TRUE(picture.IsOk()) << form;
        ASSERT_EQ(picture.GetSize(), wxSize(60, 40)) << form;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 60; ++x)
                ASSERT_EQ(Tests::pixelAt(picture, x, y), coordinate(x, y)) << form << ' ' << x << ' ' << y;
        }
    }
}

TEST_F(ViewerCommandsTest, copy_showsTheSurroundThroughWhatIsTransparent)
{
    Expected<Image, String> image = Image::create(3, 1, PixelFormat::UINT8_RGBA, 1.0f);
    const int bytes[] = {200, 100, 0, 255, 200, 100, 0, 51, 200, 100, 0, 0};
    std::transform(std::begin(bytes), std::end(bytes), image->row(0).begin(),
                   [](int byte) { return static_cast<std::byte>(byte); });
    make(std::make_shared<const Viewer::Picture>(L"transparent", std::move(*image)));
    view->SetBackgroundColour(wxColour(0, 50, 250));
    EXPECT_TRUE(frame->copyPicture());
    for (const auto& [form, picture] : Tests::clipboardPictures()) {
        ASSERT_TRUE(picture.IsOk()) << form;
        EXPECT_EQ(Tests::pixelAt(picture, 0, 0), (RgbBytes{200, 100, 0})) << form;
        EXPECT_EQ(Tests::pixelAt(picture, 1, 0), (RgbBytes{40, 60, 200})) << form;
        EXPECT_EQ(Tests::pixelAt(picture, 2, 0), (RgbBytes{0, 50, 250})) << form;
    }
}

TEST_F(ViewerCommandsTest, copy_whileAnotherProgramHasTheClipboard_saysSoAndLosesNothing)
{
    show(coordinates(60, 40));
    EXPECT_FALSE(Tests::whileClipboardIsTaken([&] { return frame->copyPicture(); }));
    EXPECT_TRUE(lastMessage().Contains(L"another program is using the clipboard"));
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_EQ(shownAtTheCorner(), coordinate(0, 0));
    EXPECT_TRUE(frame->copyPicture()) << "free again";
}

TEST_F(ViewerCommandsTest, closedWhileTheCopyIsFetched_isGoneWithoutHarm)
{
    show(coordinates(60, 40));
    const wxWeakRef<wxFrame> closing(frame);
    // If a clipboard manager fetches the picture, events are processed meanwhile, and the window closes then.
    // On other systems the window closes later.
    frame->CallAfter([this] { frame->Close(); });
    Tests::whileClipboardOwnerIsSilent([&] {
        wxCommandEvent event(wxEVT_MENU, Viewer::COPY);
        frame->GetEventHandler()->ProcessEvent(event);
        return true;
    });
    EXPECT_TRUE(Tests::pumpUntil([&] { return !closing; }));
    frame = nullptr;
    EXPECT_FALSE(Tests::clipboardBitmap().empty());
}

TEST_F(ViewerCommandsTest, copy_withoutAPicture_saysSoAndLeavesTheClipboardAlone)
{
    make(nullptr);
    ASSERT_TRUE(Wx::setClipboardData(String(L"still here")));
    EXPECT_FALSE(frame->copyPicture());
    EXPECT_EQ(lastMessage(), L"There is no picture to copy.");
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_EQ(Tests::clipboardText(), String(L"still here"));
}

TEST_F(ViewerCommandsTest, withoutAPicture_theWindowShowsItsBackgroundUntilOneIsOpened)
{
    make(nullptr);
    frame->Show();
    Tests::pumpEvents(200);
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(view), 20, 20), Wx::GuiSkin::DEFAULT().darkBackground);
    EXPECT_TRUE(log->IsEmpty());
    ASSERT_TRUE(frame->openPicture(testPicture(L"pattern.png")));
    EXPECT_NE(view->picture(), nullptr);
}

TEST_F(ViewerCommandsTest, copyKey_copiesThePicture_orTheSelectedTextOfTheLog)
{
    show(coordinates(6, 4));
    frame->showLog(true);
    focus(view);
    wxUIActionSimulator().Char('C', wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return lastMessage().StartsWith(L"Copied"); }));
    focus(log);
    log->SetSelection(0, 6);
    wxUIActionSimulator().Char('C', wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return Tests::clipboardText() == String(L"Opened"); }));
}

TEST_F(ViewerCommandsTest, capture_showsWhatAllDisplaysShowed)
{
    show(coordinates(60, 40));
    wxRect whole;
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
        whole.Union(wxDisplay(index).GetGeometry());
    const wxSize room = view->GetClientSize() - wxSize(60, 40);
    const wxPoint origin = view->ClientToScreen(wxPoint(room.x / 2, room.y / 2)) - whole.GetTopLeft();
    const BitmapImpl<Rgb> expected = Wx::getScreenRegionColors(Wx::toBucket(whole));
    frame->captureScreen();
    ASSERT_TRUE(Tests::pumpUntil([&] { return frame->GetTitle().StartsWith(L"Unsaved"); }));
    EXPECT_EQ(frame->GetTitle(),
              wxString::Format(L"Unsaved picture of the screen (%d \u00D7 %d)", whole.width, whole.height));
    EXPECT_EQ(lastMessage(),
              wxString::Format(L"Captured the screen, %d \u00D7 %d pixels.", whole.width, whole.height));
    const wxImage shown = view->picture()->bitmap().ConvertToImage();
    ASSERT_EQ(shown.GetSize(), whole.GetSize());
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x)
            ASSERT_EQ(Tests::pixelAt(shown, origin.x + x, origin.y + y), coordinate(x, y));
    }
    for (int y = 0; y < whole.height; y += 7) {
        for (int x = 0; x < whole.width; x += 5)
            ASSERT_EQ(shown.GetRed(x, y), static_cast<int>(expected.at(x, y).r * 255.0f + 0.5f));
    }
}

TEST_F(ViewerCommandsTest, captureCommand_capturesALittleLater)
{
    show(coordinates(60, 40));
    command(Viewer::CAPTURE_SCREEN);
    EXPECT_TRUE(Tests::pumpUntil([&] { return frame->GetTitle().StartsWith(L"Unsaved"); }));
}

TEST_F(ViewerCommandsTest, closedBeforeTheCaptureItWasToMake_isGone)
{
    show(coordinates(60, 40));
    command(Viewer::CAPTURE_SCREEN);
    frame->Close();
    frame = nullptr;
    Tests::pumpEvents(500);
}

TEST_F(ViewerCommandsTest, tooltips_tellWhatIsShown)
{
    make(coordinates(60, 40));
    ASSERT_NE(view->tooltip(), nullptr);
    EXPECT_EQ(view->tooltip()->lines(), (Array<String>{L"test", L"60 \u00D7 40 pixels"}));
    const auto* ofLog = findIn<Wx::Tooltip>(log);
    ASSERT_NE(ofLog, nullptr);
    EXPECT_FALSE(ofLog->lines().empty());
    frame->setTooltips(false);
    EXPECT_TRUE(ofLog->lines().empty());
    EXPECT_TRUE(frame->openPicture(testPicture(L"pattern.png")));
    EXPECT_TRUE(view->tooltip()->lines().empty());
    frame->setTooltips(true);
    EXPECT_EQ(view->tooltip()->lines().at(0), L"pattern.png");
}

TEST_F(ViewerCommandsTest, restingMouse_bringsUpTheTooltips)
{
    show(coordinates(60, 40));
    frame->showLog(true);
    Tests::pumpEvents(200);
    for (wxWindow* window : {static_cast<wxWindow*>(view), static_cast<wxWindow*>(log)}) {
        const auto* tooltip = findIn<Wx::Tooltip>(window);
        wxUIActionSimulator().MouseMove(window->ClientToScreen(wxPoint(28, 30)));
        Tests::pumpEvents(60);
        wxUIActionSimulator().MouseMove(window->ClientToScreen(wxPoint(30, 30)));
        EXPECT_TRUE(Tests::pumpUntil([&] { return tooltip->IsShown(); }, 3000));
    }
}
