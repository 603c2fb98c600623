// SPDX-License-Identifier: MIT
#include "apps/viewer/PastedPicture.h"

#include "NolvexLibWx/StringConversions.h"
#include "support/ViewerFixture.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/image.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Viewer::PastedContent;
using Viewer::pasteFromClipboard;

namespace {

struct PastedPictureTest : Tests::ViewerFixture
{
    static void put(wxDataObject* data)
    {
        const wxClipboardLocker lock;
        ASSERT_FALSE(!lock);
        ASSERT_TRUE(wxTheClipboard->SetData(data));
    }

    static void putPicture(int width, int height)
    {
        wxImage image(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                image.SetRGB(x, y, static_cast<unsigned char>(x), static_cast<unsigned char>(y), 99);
        }
        put(new wxBitmapDataObject(wxBitmap(image, 24)));
    }

    ~PastedPictureTest() override
    {
        const wxClipboardLocker lock;
        wxTheClipboard->Clear();
    }
};

} // namespace

TEST_F(PastedPictureTest, picture_isTakenPixelByPixel)
{
    putPicture(31, 7);
    const Expected<PastedContent, String> pasted = pasteFromClipboard();
    ASSERT_TRUE(pasted) << Wx::toWxString(pasted.error());
    ASSERT_NE(pasted->picture, nullptr);
    EXPECT_TRUE(pasted->files.empty());
    EXPECT_EQ(pasted->picture->size(), (Pixel{31, 7}));
    EXPECT_EQ(pasted->picture->name(), L"Pasted picture");
    const ArrayView<const std::byte> top = pasted->picture->image().row(6);
    EXPECT_EQ(top[0], std::byte(0));
    EXPECT_EQ(top[1], std::byte(0));
    EXPECT_FLOAT_EQ(pasted->picture->image().getRgba(30, 0).g, 6 / 255.0f);
}

TEST_F(PastedPictureTest, files_areTakenByTheirNames)
{
    auto* const files = new wxFileDataObject;
    for (const wxString& name : {Wx::toWxString(Tests::testPicture(L"pattern.png").nativeStr()),
                                 Wx::toWxString(Tests::testPicture(L"pattern.bmp").nativeStr())})
        files->AddFile(name);
    put(files);
    const Expected<PastedContent, String> pasted = pasteFromClipboard();
    ASSERT_TRUE(pasted) << Wx::toWxString(pasted.error());
    EXPECT_EQ(pasted->picture, nullptr);
    EXPECT_EQ(pasted->files,
              (Array<Io::Path>{Tests::testPicture(L"pattern.png"), Tests::testPicture(L"pattern.bmp")}));
}

TEST_F(PastedPictureTest, text_isNoPicture)
{
    put(new wxTextDataObject(L"text"));
    const Expected<PastedContent, String> pasted = pasteFromClipboard();
    ASSERT_FALSE(pasted);
    EXPECT_EQ(pasted.error(), L"There is no picture on the clipboard.");
}

TEST_F(PastedPictureTest, pastedPicture_isShownAndUnsaved)
{
    show(Tests::coordinates(60, 40));
    putPicture(20, 10);
    command(Viewer::PASTE);
    ASSERT_TRUE(Tests::pumpUntil([this] { return view->picture()->size() == Pixel{20, 10}; }));
    EXPECT_TRUE(frame->workspace().current()->isUnsaved());
}

TEST_F(PastedPictureTest, pastedText_isToldAndThePictureStays)
{
    show(Tests::coordinates(60, 40));
    put(new wxTextDataObject(L"text"));
    command(Viewer::PASTE);
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_EQ(lastMessage(), L"There is no picture on the clipboard.");
    EXPECT_EQ(view->picture()->name(), L"test");
}
