// SPDX-License-Identifier: MIT
// Opens one and several files through the dialog, and goes through them.
#include "apps/viewer/Command.h"
#include "support/ModalDialogs.h"
#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <wx/menu.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>

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
    EXPECT_FALSE(isEnabled(Viewer::NEXT_PICTURE));
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
    EXPECT_EQ(shownName(), L"pattern.gif");
    command(Viewer::PREVIOUS_PICTURE);
    command(Viewer::PREVIOUS_PICTURE);
    EXPECT_EQ(shownName(), L"pattern.png") << "the last one comes before the first one";
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
    command(Viewer::NEXT_PICTURE);
    EXPECT_EQ(shownName(), L"pattern.png") << "the other one still is no picture";
}

TEST_F(SeveralPicturesTest, noneThatIsAPicture_keepsThePicture)
{
    show(coordinates(60, 40));
    EXPECT_FALSE(frame->openPictures({testPicture(L"noimage.txt"), testPicture(L"missing.png")}));
    EXPECT_FALSE(frame->openPictures({}));
    EXPECT_EQ(shownName(), L"test");
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
