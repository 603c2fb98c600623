// SPDX-License-Identifier: MIT
// Saves pictures as a user does: through the dialogs, by the keyboard.
#include "apps/viewer/PictureSaving.h"

#include "NolvexLibWx/BitmapConverter.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/ImageFile.h"
#include "support/FloatImage.h"
#include "support/ModalDialogs.h"
#include "support/Screen.h"
#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <wx/platinfo.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

using namespace Nolvex;
using Tests::coordinates;
using Tests::DialogRobot;
using Tests::FileDialogFixture;
using Tests::pressIn;
using Tests::pumpUntil;
using Wx::ImageSaveSettingsDialog;
using Wx::MessageDialog;

namespace {

struct PictureSavingTest : Tests::ViewerFixture
{
    Tests::TemporaryFolder folder;

    static DialogRobot::Step confirmSettings() { return pressIn<ImageSaveSettingsDialog>(WXK_RETURN); }

    static DialogRobot::Step answer(int key) { return pressIn<MessageDialog>(key); }

    /// Returns the step, delayed until the log has another line. The dialogs of Windows let wxWidgets handle
    /// its events only from time to time.
    DialogRobot::Step afterTheNextMessage(DialogRobot::Step step) const
    {
        step.isPossible = [this, before = log->GetValue(), isPossible = step.isPossible] {
            return log->GetValue() != before && isPossible();
        };
        return step;
    }

    // Windows does so if no program is registered for the typed extension, and in Wine there is none.
    static bool appendsExtensions()
    {
        return (wxPlatformInfo::Get().GetOperatingSystemId() & wxOS_WINDOWS) != 0;
    }

    /// Shows a picture without a file.
    void showUnsaved()
    {
        show(coordinates(60, 40));
        frame->captureScreen();
        ASSERT_TRUE(pumpUntil([this] { return frame->GetTitle().StartsWith(L"Unsaved"); }));
        Tests::pumpEvents(100);
    }

    /// Closes the window as the user does. Returns whether it is gone.
    bool isGoneAfterClosing()
    {
        const wxWeakRef<Viewer::ViewerFrame> window(frame);
        frame->Close();
        Tests::pumpUntil([&] { return !window; }, 500);
        if (!window)
            frame = nullptr;
        return !window;
    }

    std::ptrdiff_t fileCount() const
    {
        return std::distance(std::filesystem::directory_iterator(folder.path().native()),
                             std::filesystem::directory_iterator());
    }
};

} // namespace

TEST_F(PictureSavingTest, saveAs_writesTheFileAndTakesItsName)
{
    show(coordinates(60, 40));
    const Io::Path file = folder.file(L"saved.png");
    {
        DialogRobot robot({FileDialogFixture::enter(file), confirmSettings()});
        command(Viewer::SAVE_AS);
    }
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().StartsWith(L"Saved"); })) << lastMessage();
    EXPECT_EQ(frame->GetTitle(), L"saved.png (60 \u00D7 40)");
    const Expected<Viewer::SharedPicture, String> read = Viewer::readPictureFile(file);
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(Tests::pixelAt(BitmapConverter::zephraImageToWxImage((*read)->image()), 59, 20),
              Tests::coordinate(59, 20));
    EXPECT_FALSE(frame->isLogShown());
}

TEST_F(PictureSavingTest, saveView_writesThePixelsThatTheViewShowsAndKeepsThePicture)
{
    show(std::make_shared<const Viewer::Picture>(L"floats", Tests::placesAsFloats(60, 40, 2.2f)));
    const Viewer::SharedPicture picture = view->picture();
    view->showActualSize();
    int number = 0;
    for (const Viewer::DisplaySettings& display :
         {Viewer::DisplaySettings{.exposure = 1.0f},
          Viewer::DisplaySettings{.gamma = 0.7f, .falseColor = Viewer::FalseColor::VALUES},
          Viewer::DisplaySettings{.channel = Viewer::Channel::GREEN, .encoding = Viewer::Encoding::SRGB}}) {
        view->setDisplay(display);
        Tests::pumpEvents(100);
        const wxRect area = view->pictureArea();
        const wxImage shown = Tests::captureClientArea(view).GetSubImage(area);
        const Io::Path file = folder.file(std::to_wstring(++number) + L".png");
        {
            DialogRobot robot({FileDialogFixture::enter(file)});
            command(Viewer::SAVE_VIEW);
        }
        ASSERT_TRUE(pumpUntil([&] { return lastMessage().Contains(file.fileName().c_str()); }))
            << lastMessage();
        EXPECT_TRUE(lastMessage().StartsWith(L"Saved the view as"));
        const Expected<Viewer::SharedPicture, String> read = Viewer::readPictureFile(file);
        ASSERT_TRUE(read.hasValue());
        const wxImage written = BitmapConverter::zephraImageToWxImage((*read)->image());
        ASSERT_EQ(written.GetSize(), wxSize(60, 40));
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 60; ++x) {
                ASSERT_EQ(Tests::pixelAt(written, x, y), Tests::pixelAt(shown, x, y)) << x << ", " << y;
            }
        }
    }
    EXPECT_EQ(view->picture(), picture);
    EXPECT_EQ(frame->GetTitle(), L"floats (60 \u00D7 40)");
}

TEST_F(PictureSavingTest, saveViewOfAPictureWithoutAFile_leavesThePictureUnsaved)
{
    showUnsaved();
    const wxString title = frame->GetTitle();
    {
        DialogRobot robot({FileDialogFixture::enter(folder.file(L"view.png"))});
        command(Viewer::SAVE_VIEW);
    }
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().StartsWith(L"Saved the view"); })) << lastMessage();
    EXPECT_EQ(frame->GetTitle(), title);
    DialogRobot robot({answer(WXK_ESCAPE)});
    EXPECT_FALSE(isGoneAfterClosing()) << "the picture would be lost";
}

TEST_F(PictureSavingTest, saveViewInAFormatOfFloats_isRefused)
{
    if (appendsExtensions())
        GTEST_SKIP() << "the dialog of Wine appends .png to .exr";
    show(coordinates(60, 40));
    {
        DialogRobot robot({FileDialogFixture::enter(folder.file(L"a.exr")), answer(WXK_RETURN)});
        command(Viewer::SAVE_VIEW);
    }
    EXPECT_EQ(fileCount(), 0);
}

TEST_F(PictureSavingTest, saveAs_ofAFormatWithoutChoice_asksForTheFileOnly)
{
    if (appendsExtensions())
        GTEST_SKIP() << "the dialog of Wine appends .png to .jpg";
    show(coordinates(60, 40));
    {
        DialogRobot robot({FileDialogFixture::enter(folder.file(L"saved.jpg"))});
        command(Viewer::SAVE_AS);
    }
    EXPECT_TRUE(pumpUntil([&] { return lastMessage().StartsWith(L"Saved"); })) << lastMessage();
}

TEST_F(PictureSavingTest, saveAs_cancelledAnywhere_writesNothing)
{
    show(coordinates(60, 40));
    {
        DialogRobot robot({FileDialogFixture::press(WXK_ESCAPE)});
        command(Viewer::SAVE_AS);
    }
    {
        DialogRobot robot({FileDialogFixture::enter(folder.file(L"saved.png")),
                           pressIn<ImageSaveSettingsDialog>(WXK_ESCAPE)});
        command(Viewer::SAVE_AS);
    }
    Tests::pumpEvents(100);
    EXPECT_EQ(fileCount(), 0);
    EXPECT_EQ(frame->GetTitle(), L"test (60 \u00D7 40)");
    EXPECT_TRUE(frame->IsEnabled());
}

TEST_F(PictureSavingTest, saveAs_ofAKindThatCannotBeWritten_saysWhichCan)
{
    if (appendsExtensions())
        GTEST_SKIP() << "the dialog of Windows appends .png to an extension that it does not know";
    show(coordinates(60, 40));
    wxString message;
    {
        DialogRobot robot(
            {FileDialogFixture::enter(folder.file(L"saved.dds")),
             {"the message is shown", [] { return Tests::activeModal<MessageDialog>() != nullptr; },
              [&] {
                  message = Tests::findIn<Wx::StaticText>(Tests::activeModal<MessageDialog>())->GetLabel();
                  wxUIActionSimulator().Char(WXK_RETURN);
              }}});
        command(Viewer::SAVE_AS);
    }
    EXPECT_TRUE(message.Contains(L"\"dds\"")) << message;
    EXPECT_TRUE(message.Contains(L"PNG")) << message;
    EXPECT_EQ(fileCount(), 0);
}

TEST_F(PictureSavingTest, savingThatFails_isToldInTheLogAndNothingIsLost)
{
    show(coordinates(60, 40));
    frame->savePicture(folder.path() / L"missing" / L"a.png", ImageFormat::PNG, {});
    ASSERT_TRUE(pumpUntil([&] { return frame->isLogShown(); }));
    EXPECT_TRUE(lastMessage().Contains(L"a.png")) << lastMessage();
    EXPECT_EQ(frame->GetTitle(), L"test (60 \u00D7 40)");
}

TEST_F(PictureSavingTest, alphaThatIsLeftOut_isSaid)
{
    show(std::make_shared<const Viewer::Picture>(L"test", Tests::placesAsFloats(6, 4, 1.0f)));
    frame->savePicture(folder.file(L"a.bmp"), ImageFormat::BMP, {ColorFormat::UINT8_RGB, true});
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().StartsWith(L"Saved"); }));
    EXPECT_TRUE(lastMessage().EndsWith(L"Its alpha was left out.")) << lastMessage();
}

TEST_F(PictureSavingTest, pictureWithoutAlpha_losesNone)
{
    show(coordinates(60, 40));
    frame->savePicture(folder.file(L"a.jpg"), ImageFormat::JPEG, {ColorFormat::DEFAULT, true});
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().StartsWith(L"Saved"); }));
    EXPECT_FALSE(lastMessage().Contains(L"alpha")) << lastMessage();
}

TEST_F(PictureSavingTest, twoFilesAtOnce_areBothWritten)
{
    show(coordinates(60, 40));
    frame->savePicture(folder.file(L"a.png"), ImageFormat::PNG, {});
    frame->savePicture(folder.file(L"b.png"), ImageFormat::PNG, {});
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().Contains(L"b.png"); }));
    EXPECT_EQ(fileCount(), 2);
    EXPECT_EQ(frame->GetTitle(), L"b.png (60 \u00D7 40)");
}

TEST_F(PictureSavingTest, anotherPictureUnderTheDialogs_isNotSavedInsteadOfThisOne)
{
    show(coordinates(60, 40));
    const Io::Path file = folder.file(L"saved.png");
    {
        DialogRobot robot({FileDialogFixture::inDialog([&] { frame->captureScreen(); }),
                           FileDialogFixture::enter(file), confirmSettings()});
        command(Viewer::SAVE_AS);
    }
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().StartsWith(L"Saved"); })) << lastMessage();
    EXPECT_EQ((*Viewer::readPictureFile(file))->size(), (Pixel{60, 40}));
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"Unsaved")) << frame->GetTitle();
}

TEST_F(PictureSavingTest, saving_keepsTheOtherPicturesThatWereOpened)
{
    show(coordinates(60, 40));
    ASSERT_TRUE(
        frame->openPictures({Tests::testPicture(L"pattern.png"), Tests::testPicture(L"pattern.bmp")}));
    frame->savePicture(folder.file(L"a.png"), ImageFormat::PNG, {});
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().StartsWith(L"Saved"); }));
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"a.png"));
    command(Viewer::NEXT_PICTURE);
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"pattern.bmp")) << frame->GetTitle();
}

TEST_F(PictureSavingTest, pictureWithAFile_isClosedWithoutAQuestion)
{
    show(coordinates(60, 40));
    EXPECT_TRUE(isGoneAfterClosing());
}

TEST_F(PictureSavingTest, pictureOfTheScreenUnderTheQuestion_isAskedAboutToo)
{
    showUnsaved();
    const Viewer::PictureId first = frame->workspace().current()->id;
    DialogRobot::Step capture = answer('D');
    capture.action = [this] { frame->captureScreen(); };
    DialogRobot::Step firstAnswer = afterTheNextMessage(answer('D'));
    DialogRobot::Step second = answer(WXK_ESCAPE);
    Viewer::PictureId asked{};
    second.action = [this, &asked, press = second.action] {
        asked = frame->workspace().current()->id;
        press();
    };
    DialogRobot robot({capture, firstAnswer, second});
    EXPECT_FALSE(isGoneAfterClosing());
    ASSERT_EQ(frame->workspace().pictures().size(), 3U) << "neither is lost";
    EXPECT_EQ(asked, frame->workspace().pictures()[2].id);
    EXPECT_NE(asked, first);
}

TEST_F(PictureSavingTest, pictureOfTheScreenUnderTheFileDialog_staysOpen)
{
    show(coordinates(60, 40));
    const Io::Path other = folder.file(L"other.png");
    std::filesystem::copy_file(Tests::testPicture(L"pattern.png").native(), other.native());
    DialogRobot robot({FileDialogFixture::inDialog([this] { frame->captureScreen(); }),
                       afterTheNextMessage(FileDialogFixture::enter(other))});
    command(Viewer::OPEN);
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"other.png")) << frame->GetTitle();
    command(Viewer::PREVIOUS_PICTURE);
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"Unsaved")) << frame->GetTitle();
}

TEST_F(PictureSavingTest, unsavedPicture_staysIfTheQuestionIsCancelled)
{
    showUnsaved();
    DialogRobot robot({answer(WXK_ESCAPE)});
    EXPECT_FALSE(isGoneAfterClosing());
    EXPECT_TRUE(frame->IsEnabled());
}

TEST_F(PictureSavingTest, unsavedPicture_isGivenUpIfTheUserSaysSo)
{
    showUnsaved();
    DialogRobot robot({answer('D')});
    EXPECT_TRUE(isGoneAfterClosing());
}

TEST_F(PictureSavingTest, unsavedPicture_isSavedBeforeTheWindowCloses)
{
    showUnsaved();
    const Io::Path file = folder.file(L"screen.png");
    DialogRobot robot({answer('S'), FileDialogFixture::enter(file), confirmSettings()});
    EXPECT_TRUE(isGoneAfterClosing());
    EXPECT_TRUE(Viewer::readPictureFile(file).hasValue());
}

TEST_F(PictureSavingTest, unsavedPicture_staysIfSavingIsCancelled)
{
    showUnsaved();
    DialogRobot robot({answer('S'), FileDialogFixture::press(WXK_ESCAPE)});
    EXPECT_FALSE(isGoneAfterClosing());
}

TEST_F(PictureSavingTest, unsavedPicture_staysOpenBesideOthers)
{
    showUnsaved();
    ASSERT_TRUE(frame->openPicture(Tests::testPicture(L"pattern.png")));
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"pattern.png"));
    command(Viewer::PREVIOUS_PICTURE);
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"Unsaved")) << frame->GetTitle();
    command(Viewer::NEXT_PICTURE);
    DialogRobot robot({answer(WXK_ESCAPE)});
    EXPECT_FALSE(isGoneAfterClosing());
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"Unsaved")) << "the question is about what is shown";
}

TEST_F(PictureSavingTest, unsavedPicture_isNotClosedWithoutAQuestion)
{
    showUnsaved();
    {
        DialogRobot robot({answer(WXK_ESCAPE)});
        command(Viewer::CLOSE_PICTURE);
    }
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"Unsaved")) << frame->GetTitle();
    {
        DialogRobot robot({answer('D')});
        command(Viewer::CLOSE_PICTURE);
    }
    EXPECT_TRUE(frame->GetTitle().StartsWith(L"test")) << frame->GetTitle();
}

TEST_F(PictureSavingTest, windowThatCannotStay_isClosedWithoutAQuestion)
{
    showUnsaved();
    const wxWeakRef<Viewer::ViewerFrame> window(frame);
    frame->Close(true);
    ASSERT_TRUE(pumpUntil([&] { return !window; }));
    frame = nullptr;
}

TEST_F(PictureSavingTest, windowDestroyedUnderTheQuestion_endsTheQuestion)
{
    showUnsaved();
    const wxWeakRef<Viewer::ViewerFrame> window(frame);
    {
        DialogRobot robot(
            {{"the question is shown", [] { return Tests::activeModal<MessageDialog>() != nullptr; },
              [&] { frame->Destroy(); }}});
        frame->Close();
    }
    ASSERT_TRUE(pumpUntil([&] { return !window; }));
    frame = nullptr;
}

TEST_F(PictureSavingTest, windowDestroyedWhileAFileIsWritten_completesTheFile)
{
    show(coordinates(3000, 2000));
    const Io::Path file = folder.file(L"large.png");
    frame->savePicture(file, ImageFormat::PNG, {});
    Tests::destroyNow(frame);
    frame = nullptr;
    EXPECT_TRUE(Viewer::readPictureFile(file).hasValue());
}

TEST_F(PictureSavingTest, closingWhileAFileIsWritten_waitsForTheFile)
{
    show(coordinates(3000, 2000));
    const Io::Path file = folder.file(L"large.png");
    frame->savePicture(file, ImageFormat::PNG, {});
    EXPECT_TRUE(isGoneAfterClosing());
    EXPECT_TRUE(Viewer::readPictureFile(file).hasValue());
}

TEST_F(PictureSavingTest, closingWhileAFileCannotBeWritten_tellsAndStays)
{
    show(coordinates(60, 40));
    frame->savePicture(folder.path() / L"missing" / L"a.png", ImageFormat::PNG, {});
    EXPECT_FALSE(isGoneAfterClosing());
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_TRUE(isGoneAfterClosing()) << "once the user has been told";
}
