// SPDX-License-Identifier: MIT
#include "apps/program/WindowPicture.h"

#include "support/FrameFixture.h"
#include "support/Screen.h"
#include "support/SystemLimits.h"

#include <wx/image.h>

#include <gtest/gtest.h>

#include <filesystem>

using namespace Nolvex;
using Program::writeWindowPicture;

namespace {

constexpr RgbBytes COLOUR{20, 140, 60};

struct WindowPictureTest : Tests::FrameFixture
{
    Io::Path file =
        Io::Path(std::filesystem::temp_directory_path()) / Io::Path(L"nolvex-window-picture-\u00FC.png");

    ~WindowPictureTest() override { remove(); }

    void remove() const
    {
        std::error_code ignored;
        std::filesystem::remove(file.native(), ignored);
    }

    bool exists() const { return std::filesystem::exists(file.native()); }
};

} // namespace

TEST_F(WindowPictureTest, file_holdsThePixelsOfTheScreen)
{
    remove();
    panel->SetBackgroundColour(wxColour(COLOUR.r, COLOUR.g, COLOUR.b));
    showFrame();
    EXPECT_TRUE(
        Tests::pumpUntil([&] { return Tests::pixelAt(Tests::captureClientArea(frame), 30, 40) == COLOUR; }));
    EXPECT_EQ(writeWindowPicture(*frame, file), L"");
    wxImage picture;
    ASSERT_TRUE(picture.LoadFile(wxString(file.nativeStr().c_str()), wxBITMAP_TYPE_PNG));
    EXPECT_EQ(picture.GetSize(), frame->GetClientSize());
    EXPECT_EQ(Tests::pixelAt(picture, 30, 40), COLOUR);
}

TEST_F(WindowPictureTest, existingFile_isReplaced)
{
    showFrame();
    ASSERT_EQ(writeWindowPicture(*frame, file), L"");
    const auto large = std::filesystem::file_size(file.native());
    wxPanel small(frame, wxID_ANY, wxPoint(0, 0), wxSize(2, 2));
    EXPECT_EQ(writeWindowPicture(small, file), L"");
    EXPECT_LT(std::filesystem::file_size(file.native()), large);
}

TEST_F(WindowPictureTest, windowThatTheScreenDoesNotShow_isAnErrorAndLeavesNoFile)
{
    remove();
    showFrame();
    wxPanel outside(frame, wxID_ANY, wxPoint(-30'000, -30'000), wxSize(50, 50));
    EXPECT_EQ(writeWindowPicture(outside, file), L"The window cannot be read from the screen.");
    EXPECT_FALSE(exists());
}

TEST_F(WindowPictureTest, fileThatCannotBeWritten_isNamedInTheError)
{
    showFrame();
    const String error = writeWindowPicture(*frame, Io::Path(L"no/such/folder/picture.png"));
    EXPECT_NE(error.find(L"picture.png"), String::NPOS) << error.toUtf8();
}

TEST_F(WindowPictureTest, folderInPlaceOfTheFile_isAnError)
{
    showFrame();
    const Io::Path folder = file.parentDirectory();
    const String error = writeWindowPicture(*frame, folder);
    EXPECT_NE(error.find(folder.fileName()), String::NPOS) << error.toUtf8();
    EXPECT_TRUE(std::filesystem::is_directory(folder.native()));
}

TEST_F(WindowPictureTest, fullDisk_isAnError)
{
    const Io::Path full = Tests::fileOnAFullDisk();
    if (full.nativeStr().isEmpty())
        GTEST_SKIP() << "this system has no file that takes no byte";
    showFrame();
    EXPECT_NE(writeWindowPicture(*frame, full), L"");
}

TEST_F(WindowPictureTest, windowThatCannotBeRead_leavesAnEarlierPictureAsItIs)
{
    showFrame();
    ASSERT_EQ(writeWindowPicture(*frame, file), L"");
    const auto size = std::filesystem::file_size(file.native());
    wxPanel outside(frame, wxID_ANY, wxPoint(-30'000, -30'000), wxSize(50, 50));
    EXPECT_NE(writeWindowPicture(outside, file), L"");
    EXPECT_EQ(std::filesystem::file_size(file.native()), size);
}

TEST_F(WindowPictureTest, windowPartlyBesideTheScreen_isBlackThere)
{
    panel->SetBackgroundColour(wxColour(COLOUR.r, COLOUR.g, COLOUR.b));
    showFrame();
    frame->Move(-200, 100);
    ASSERT_TRUE(Tests::pumpUntil([&] { return frame->ClientToScreen(wxPoint(0, 0)).x < -100; }));
    const int hidden = -frame->ClientToScreen(wxPoint(0, 0)).x;
    wxImage picture;
    // The system paints the window at its new place a little later.
    EXPECT_TRUE(Tests::pumpUntil([&] {
        return writeWindowPicture(*frame, file).isEmpty() &&
               picture.LoadFile(wxString(file.nativeStr().c_str())) &&
               Tests::pixelAt(picture, hidden + 20, 40) == COLOUR;
    }));
    EXPECT_EQ(picture.GetSize(), frame->GetClientSize());
    EXPECT_EQ(Tests::pixelAt(picture, hidden - 1, 40), (RgbBytes{0, 0, 0}));
}
