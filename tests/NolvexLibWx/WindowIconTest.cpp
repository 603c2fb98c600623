// SPDX-License-Identifier: MIT
#include "NolvexLibWx/WindowIcon.h"

#include "support/FrameFixture.h"
#include "support/Screen.h"
#include "support/TestData.h"

#include <wx/bitmap.h>
#include <wx/iconbndl.h>
#include <wx/image.h>

#include <gtest/gtest.h>

#include <filesystem>

using namespace Nolvex;

namespace {

struct WindowIconTest : Tests::FrameFixture
{
    wxImage icon() const
    {
        // GetIcon() would search for an icon of the system's size.
        if (frame->GetIcons().IsEmpty())
            return {};
        wxBitmap bitmap;
        bitmap.CopyFromIcon(frame->GetIcons().GetIconByIndex(0));
        return bitmap.ConvertToImage();
    }
};

wxImage artwork()
{
    const auto file =
        Tests::testData().parent_path().parent_path() / "NolvexLibWx" / "resources" / "ApplicationIcon.png";
    return wxImage(wxString(file.wstring()));
}

wxImage twoColours()
{
    wxImage image(32, 32);
    image.SetRGB(wxRect(0, 0, 32, 16), 200, 30, 10);
    image.SetRGB(wxRect(0, 16, 32, 16), 5, 60, 250);
    return image;
}

} // namespace

TEST_F(WindowIconTest, setIcon_givesTheWindowTheBitmap)
{
    Wx::setIcon(frame, wxBitmap(twoColours()));
    const wxImage shown = icon();
    ASSERT_TRUE(shown.IsOk());
    ASSERT_EQ(shown.GetSize(), wxSize(32, 32));
    EXPECT_EQ(Tests::pixelAt(shown, 3, 15), (RgbBytes{200, 30, 10}));
    EXPECT_EQ(Tests::pixelAt(shown, 31, 16), (RgbBytes{5, 60, 250}));
}

TEST_F(WindowIconTest, setIcon_again_replacesTheIcon)
{
    Wx::setZephraIcon(frame);
    Wx::setIcon(frame, wxBitmap(twoColours()));
    EXPECT_EQ(frame->GetIcons().GetIconCount(), 1u);
    EXPECT_EQ(icon().GetSize(), wxSize(32, 32));
}

TEST_F(WindowIconTest, setIcon_invalidBitmap_leavesNoIcon)
{
    Wx::setIcon(frame, wxBitmap(twoColours()));
    Wx::setIcon(frame, wxBitmap());
    EXPECT_FALSE(icon().IsOk());
}

TEST_F(WindowIconTest, setZephraIcon_isTheArtwork)
{
    Wx::setZephraIcon(frame);
    const wxImage shown = icon();
    const wxImage drawn = artwork();
    ASSERT_TRUE(shown.IsOk() && drawn.IsOk());
    ASSERT_EQ(drawn.GetSize(), wxSize(128, 128));
    ASSERT_EQ(shown.GetSize(), wxSize(128, 128));
    int different = 0;
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            if (drawn.GetAlpha(x, y) == 255 && Tests::pixelAt(shown, x, y) != Tests::pixelAt(drawn, x, y))
                ++different;
        }
    }
    EXPECT_EQ(different, 0);
}

TEST_F(WindowIconTest, setZephraIcon_hasSoftEdges)
{
    Wx::setZephraIcon(frame);
    const wxImage shown = icon();
    const wxImage drawn = artwork();
    ASSERT_TRUE(shown.IsOk() && drawn.IsOk());
    ASSERT_TRUE(shown.HasAlpha() && drawn.HasAlpha());
    EXPECT_EQ(shown.GetAlpha(0, 0), 0);
    EXPECT_EQ(shown.GetAlpha(64, 64), 255);
    for (int y = 0; y < 128; ++y)
        EXPECT_EQ(shown.GetAlpha(64, y), drawn.GetAlpha(64, y)) << y;
}

TEST_F(WindowIconTest, ofNoWindow_isNothing)
{
    Wx::setIcon(nullptr, wxBitmap(twoColours()));
    Wx::setZephraIcon(nullptr);
    EXPECT_FALSE(icon().IsOk());
}
