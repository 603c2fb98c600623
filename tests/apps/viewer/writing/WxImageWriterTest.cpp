// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/WxImageWriter.h"

#include "support/FloatImage.h"
#include "support/Screen.h"

#include <wx/image.h>
#include <wx/mstream.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

using namespace Nolvex;

namespace {

wxImage written(const Image& image, wxBitmapType type, bool alpha)
{
    std::ostringstream stream;
    EXPECT_FALSE(Viewer::writeByWxImage(stream, Viewer::Picture(L"picture", image), type, alpha).has_value());
    const std::string file = stream.str();
    wxMemoryInputStream bytes(file.data(), file.size());
    return {bytes, type};
}

} // namespace

TEST(WxImageWriterTest, formatsWithoutLoss_keepEveryByte)
{
    const Image image = Tests::placesAsFloats(50, 40, 1.0f);
    for (const wxBitmapType type : {wxBITMAP_TYPE_BMP, wxBITMAP_TYPE_TGA}) {
        const wxImage read = written(image, type, false);
        ASSERT_EQ(read.GetSize(), wxSize(50, 40)) << type;
        EXPECT_EQ(Tests::pixelAt(read, 0, 0), (RgbBytes{0, 0, 128})) << type;
        EXPECT_EQ(Tests::pixelAt(read, 16, 32), (RgbBytes{64, 128, 128})) << type;
        EXPECT_FALSE(read.HasAlpha()) << type;
    }
}

TEST(WxImageWriterTest, jpeg_isCloseToThePicture)
{
    const wxImage read = written(Tests::placesAsFloats(64, 64, 1.0f), wxBITMAP_TYPE_JPEG, false);
    for (int y = 0; y < 64; y += 9) {
        for (int x = 0; x < 64; x += 9) {
            EXPECT_LT(std::abs(read.GetRed(x, y) - x * 4), 16) << x << ' ' << y;
            EXPECT_LT(std::abs(read.GetGreen(x, y) - y * 4), 16) << x << ' ' << y;
        }
    }
}

TEST(WxImageWriterTest, gif_getsAPaletteOfItsOwn)
{
    const wxImage read = written(Tests::placesAsFloats(64, 64, 1.0f), wxBITMAP_TYPE_GIF, false);
    ASSERT_EQ(read.GetSize(), wxSize(64, 64));
    EXPECT_LT(std::abs(read.GetRed(40, 8) - 160), 40);
    EXPECT_LT(std::abs(read.GetGreen(8, 40) - 160), 40);
}

TEST(WxImageWriterTest, targa_keepsAlpha)
{
    const wxImage read = written(Tests::placesAsFloats(2, 1, 1.0f), wxBITMAP_TYPE_TGA, true);
    ASSERT_TRUE(read.HasAlpha());
    EXPECT_EQ(read.GetAlpha(1, 0), 191);
    EXPECT_EQ(Tests::pixelAt(read, 1, 0), (RgbBytes{4, 0, 128}));
}

TEST(WxImageWriterTest, pictureThatTheFormatCannotHold_isRefused)
{
    // A side of a JPEG file has 16 bits.
    const Image image = *Image::create(70'000, 1, PixelFormat::UINT8_GREY, 1.0f);
    std::ostringstream stream;
    EXPECT_EQ(Viewer::writeByWxImage(stream, Viewer::Picture(L"picture", image), wxBITMAP_TYPE_JPEG, false),
              String(L"the picture is too large for this format"));
}

TEST(WxImageWriterTest, streamThatFails_isAnError)
{
    std::ostringstream stream;
    stream.setstate(std::ios::badbit);
    EXPECT_EQ(Viewer::writeByWxImage(stream, Viewer::Picture(L"picture", Tests::placesAsFloats(2, 2, 1.0f)),
                                     wxBITMAP_TYPE_BMP, false),
              String(L"the file cannot be written"));
}
