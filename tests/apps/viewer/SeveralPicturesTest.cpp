// SPDX-License-Identifier: MIT
// Opens one and several files through the dialog, and goes through them.
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/LayerBar.h"
#include "apps/viewer/LoadingBar.h"
#include "reading/ExrFiles.h"
#include "support/ModalDialogs.h"
#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <wx/listbox.h>
#include <wx/menu.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>

using namespace Nolvex;
using Tests::coordinates;
using Tests::testPicture;

namespace {

struct SeveralPicturesTest : Tests::ViewerFixture
{
    static void copyTo(const Tests::TemporaryFolder& folder, std::initializer_list<const wchar_t*> names)
    {
        for (const wchar_t* name : names)
            std::filesystem::copy_file(testPicture(name).native(), folder.file(name).native());
    }

    bool isEnabled(Viewer::Command id) const { return frame->GetMenuBar()->IsEnabled(id); }

    wxListBox* list() const { return Tests::findIn<wxListBox>(frame); }

    /// Selects a row as the user does, and does not wait until the picture has been read.
    void select(int row) const
    {
        list()->SetSelection(row);
        wxCommandEvent event(wxEVT_LISTBOX, list()->GetId());
        event.SetEventObject(list());
        event.SetInt(row);
        list()->GetEventHandler()->ProcessEvent(event);
    }

    /// Clicks the button of the bar that shows the progress.
    void cancelReading() const
    {
        auto* const bar = Tests::findIn<Viewer::LoadingBar>(frame);
        for (int i = 0; i < 10 && !bar->IsShown(); ++i)
            bar->update();
        Tests::findIn<Wx::Button>(bar)->doClick({5, 5});
    }

    wxString shownName() const { return frame->GetTitle().BeforeFirst(L' '); }
};

} // namespace

TEST_F(SeveralPicturesTest, open_showsTheChosenFile)
{
    const Tests::TemporaryFolder folder;
    copyTo(folder, {L"pattern.gif", L"pattern.png"});
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPicture(folder.file(L"pattern.gif"))) << "the dialog opens in its folder";
    {
        Tests::DialogRobot robot({Tests::FileDialogFixture::enter(L"pattern.png")});
        command(Viewer::OPEN);
    }
    EXPECT_EQ(shownName(), L"pattern.png");
    EXPECT_EQ(frame->workspace().pictures().size(), 3U) << "the others stay open";
}

TEST_F(SeveralPicturesTest, open_showsTheFirstOfSeveralFilesAndLeadsThroughThem)
{
    const Tests::TemporaryFolder folder;
    copyTo(folder, {L"pattern.bmp", L"pattern.gif", L"pattern.png"});
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPicture(folder.file(L"pattern.gif")));
    {
        Tests::DialogRobot robot({Tests::FileDialogFixture::inDialog([] {
            Tests::selectFiles({L"pattern.bmp", L"pattern.gif", L"pattern.png"});
            Tests::pumpEvents(150);
            wxUIActionSimulator().Char(WXK_RETURN);
        })});
        command(Viewer::OPEN);
    }
    EXPECT_EQ(shownName(), L"pattern.bmp");
    EXPECT_TRUE(isEnabled(Viewer::NEXT_PICTURE));
    command(Viewer::NEXT_PICTURE);
    EXPECT_EQ(shownName(), L"pattern.png") << "pattern.gif was open before";
    command(Viewer::NEXT_PICTURE);
    EXPECT_EQ(shownName(), L"test") << "the first one comes behind the last one";
    command(Viewer::NEXT_PICTURE);
    EXPECT_EQ(shownName(), L"pattern.gif");
    command(Viewer::PREVIOUS_PICTURE);
    command(Viewer::PREVIOUS_PICTURE);
    EXPECT_EQ(shownName(), L"pattern.png");
}

TEST_F(SeveralPicturesTest, cancelled_keepsThePicture)
{
    show(coordinates(60, 40));
    {
        Tests::DialogRobot robot({Tests::FileDialogFixture::press(WXK_ESCAPE)});
        command(Viewer::OPEN);
    }
    EXPECT_EQ(shownName(), L"test");
}

TEST_F(SeveralPicturesTest, filesThatAreNoPictures_arePassedOverAndToldInTheLog)
{
    show(coordinates(60, 40));
    EXPECT_TRUE(frame->openPictures({testPicture(L"noimage.txt"), testPicture(L"pattern.png")}));
    EXPECT_EQ(shownName(), L"pattern.png");
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_TRUE(log->GetValue().Contains(L"noimage.txt"));
    EXPECT_EQ(frame->workspace().pictures().size(), 2U) << "what is no picture is not listed";
}

TEST_F(SeveralPicturesTest, noneThatIsAPicture_keepsThePicture)
{
    show(coordinates(60, 40));
    EXPECT_FALSE(frame->openPictures({testPicture(L"noimage.txt"), testPicture(L"missing.png")}));
    EXPECT_FALSE(frame->openPictures({}));
    EXPECT_EQ(shownName(), L"test");
}

TEST_F(SeveralPicturesTest, fileThatHasBeenDamagedSinceItWasListed_isPassedOver)
{
    const Tests::TemporaryFolder folder;
    copyTo(folder, {L"pattern.bmp", L"pattern.gif", L"pattern.png"});
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPictures(
        {folder.file(L"pattern.bmp"), folder.file(L"pattern.gif"), folder.file(L"pattern.png")}));
    std::filesystem::resize_file(folder.file(L"pattern.gif").native(), 30);
    command(Viewer::NEXT_PICTURE);
    EXPECT_EQ(shownName(), L"pattern.png");
    EXPECT_TRUE(log->GetValue().Contains(L"pattern.gif"));
    EXPECT_EQ(frame->workspace().pictures().size(), 3U);
}

TEST_F(SeveralPicturesTest, closedPicture_leavesTheListAndTheNextOneIsShown)
{
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPictures({testPicture(L"pattern.png")}));
    command(Viewer::CLOSE_PICTURE);
    EXPECT_EQ(shownName(), L"test");
    EXPECT_FALSE(isEnabled(Viewer::NEXT_PICTURE));
    command(Viewer::CLOSE_PICTURE);
    EXPECT_EQ(view->picture(), nullptr);
    EXPECT_FALSE(isEnabled(Viewer::CLOSE_PICTURE));
}

TEST_F(SeveralPicturesTest, fileReadAgain_showsItsNewContent)
{
    const Tests::TemporaryFolder folder;
    copyTo(folder, {L"pattern.png"});
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPictures({folder.file(L"pattern.png")}));
    std::ofstream(folder.file(L"pattern.png").native(), std::ios::binary) << "Pf\n2 1\n-1.0\n"
                                                                          << std::string(8, '\0');
    command(Viewer::RELOAD);
    EXPECT_EQ(view->picture()->size(), (Pixel{2, 1}));
    std::filesystem::resize_file(folder.file(L"pattern.png").native(), 12);
    command(Viewer::RELOAD);
    ASSERT_NE(view->picture(), nullptr) << "the old state stays";
    EXPECT_EQ(view->picture()->size(), (Pixel{2, 1}));
    EXPECT_TRUE(frame->isLogShown());
}

TEST_F(SeveralPicturesTest, pictureThatCannotBeRead_leavesTheShownOneSelectedInTheList)
{
    const Tests::TemporaryFolder folder;
    copyTo(folder, {L"pattern.png"});
    show(coordinates(60, 40));
    frame->workspace().addFiles({folder.file(L"pattern.png"), folder.file(L"missing.png")});
    select(1);
    ASSERT_TRUE(Tests::pumpUntil([this] { return shownName() == L"pattern.png"; }));
    select(2);
    ASSERT_TRUE(Tests::pumpUntil([this] { return frame->isLogShown() && !frame->isReading(); }));
    EXPECT_EQ(list()->GetCount(), 2U);
    EXPECT_EQ(list()->GetSelection(), 1);
    std::filesystem::remove(folder.file(L"pattern.png").native());
    select(0);
    frame->workspace().limitMemory(0);
    select(1);
    ASSERT_TRUE(Tests::pumpUntil([this] { return lastMessage().Contains(L"stays in the list"); }));
    EXPECT_EQ(list()->GetSelection(), 0);
}

TEST_F(SeveralPicturesTest, readingThatIsCancelled_leavesTheShownOneSelectedInTheList)
{
    show(coordinates(60, 40));
    frame->workspace().addFiles({testPicture(L"pattern.png")});
    select(1);
    ASSERT_TRUE(frame->isReading());
    EXPECT_EQ(list()->GetSelection(), 1) << "what is being read";
    cancelReading();
    EXPECT_FALSE(frame->isReading());
    EXPECT_EQ(list()->GetSelection(), 0);
    EXPECT_EQ(frame->workspace().pictures().size(), 2U);
}

TEST_F(SeveralPicturesTest, layerThatIsNotRead_leavesTheShownOneSelected)
{
    const Tests::TemporaryFolder folder;
    Tests::ExrPart part;
    part.channels = {{"R"}, {"G"}, {"B"}, {"depth.Z"}};
    const Array<std::byte> content = Tests::exrFile({part});
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPicture(
        folder.file(L"a.exr", std::string(reinterpret_cast<const char*>(content.data()), content.size()))));
    auto* const layers = Tests::findIn<Wx::ComboBox>(Tests::findIn<Viewer::LayerBar>(frame));
    layers->selectId(1, true);
    ASSERT_TRUE(frame->isReading());
    EXPECT_EQ(layers->getSelectedId(), 1);
    cancelReading();
    EXPECT_EQ(layers->getSelectedId(), 0);
    EXPECT_EQ(view->picture()->layer(), 0U);
}

TEST_F(SeveralPicturesTest, pictureSavedInAnotherFormat_isNotReadFromThere)
{
    const Tests::TemporaryFolder folder;
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPictures({testPicture(L"pattern.png")}));
    frame->savePicture(folder.file(L"saved.jpg"), ImageFormat::JPEG, {});
    ASSERT_TRUE(Tests::pumpUntil([this] { return lastMessage().StartsWith(L"Saved"); }));
    const Image original = view->picture()->image();
    command(Viewer::RELOAD);
    EXPECT_EQ(shownName(), L"saved.jpg");
    for (int y = 0; y < original.descriptor().height; ++y)
        ASSERT_TRUE(std::ranges::equal(view->picture()->image().row(y), original.row(y))) << y;
}

TEST_F(SeveralPicturesTest, savedPictureOfTheScreen_isNotReadAgain)
{
    const Tests::TemporaryFolder folder;
    show(nullptr);
    frame->captureScreen();
    ASSERT_TRUE(Tests::pumpUntil([this] { return view->picture() != nullptr; }));
    frame->savePicture(folder.file(L"saved.jpg"), ImageFormat::JPEG, {});
    ASSERT_TRUE(Tests::pumpUntil([this] { return lastMessage().StartsWith(L"Saved"); }));
    EXPECT_FALSE(isEnabled(Viewer::RELOAD));
    const Viewer::SharedPicture before = view->picture();
    command(Viewer::RELOAD);
    EXPECT_EQ(view->picture(), before);
    EXPECT_TRUE(lastMessage().StartsWith(L"There is no file from which \"saved.jpg\"")) << lastMessage();
}

TEST_F(SeveralPicturesTest, withOnePicture_nextAndPreviousDoNothing)
{
    show(coordinates(60, 40));
    command(Viewer::NEXT_PICTURE);
    command(Viewer::PREVIOUS_PICTURE);
    EXPECT_EQ(shownName(), L"test");
    EXPECT_FALSE(frame->isLogShown());
}

TEST_F(SeveralPicturesTest, keys_leadThroughThePictures)
{
    show(coordinates(60, 40));
    ASSERT_TRUE(frame->openPictures({testPicture(L"pattern.png"), testPicture(L"pattern.bmp")}));
    focus(view);
    wxUIActionSimulator().Char(WXK_PAGEDOWN, wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return shownName() == L"pattern.bmp"; }));
    wxUIActionSimulator().Char(WXK_PAGEUP, wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return shownName() == L"pattern.png"; }));
}
