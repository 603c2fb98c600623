// SPDX-License-Identifier: MIT
#include "apps/viewer/SaveDefaults.h"

#include "apps/viewer/Settings.h"

#include <wx/fileconf.h>
#include <wx/sstream.h>

#include <gtest/gtest.h>

#include <memory>

using namespace Nolvex;
using Viewer::SaveDefaults;
using Viewer::Settings;

namespace {

constexpr std::uint32_t ALPHA = 1;

Wx::ImageSaveSettings proposed(PixelFormat picture, ImageFormat file, std::uint32_t flags = ALPHA)
{
    Settings settings;
    SaveDefaults defaults(settings);
    defaults.setPicture({10, 10, picture, 1.0f});
    return *defaults.getDefaults(file, flags);
}

} // namespace

TEST(SaveDefaultsTest, proposal_keepsTheValuesOfThePictureWhereTheFormatCan)
{
    EXPECT_EQ(proposed(PixelFormat::UINT8_RGB, ImageFormat::TIFF).colorFormat, ColorFormat::UINT8_RGB);
    EXPECT_EQ(proposed(PixelFormat::UINT16_GREY, ImageFormat::PNG).colorFormat, ColorFormat::UINT16_RGB);
    EXPECT_EQ(proposed(PixelFormat::FLOAT16_RGBA, ImageFormat::TIFF).colorFormat,
              ColorFormat::FLT16_LINEAR_RGB);
    EXPECT_EQ(proposed(PixelFormat::FLOAT32_RGB, ImageFormat::TIFF).colorFormat,
              ColorFormat::FLT32_LINEAR_RGB);
    EXPECT_EQ(proposed(PixelFormat::FLOAT32_RGB, ImageFormat::PNG).colorFormat, ColorFormat::UINT16_RGB);
    EXPECT_EQ(proposed(PixelFormat::FLOAT32_RGB, ImageFormat::JPEG).colorFormat, ColorFormat::UINT8_RGB);
}

TEST(SaveDefaultsTest, proposal_hasAlphaIfBothThePictureAndTheFormatDo)
{
    EXPECT_TRUE(proposed(PixelFormat::UINT8_RGBA, ImageFormat::PNG).includeAlpha);
    EXPECT_FALSE(proposed(PixelFormat::UINT8_RGB, ImageFormat::PNG).includeAlpha);
    EXPECT_FALSE(proposed(PixelFormat::UINT8_RGBA, ImageFormat::JPEG, 0).includeAlpha);
}

TEST(SaveDefaultsTest, choice_isProposedAgainForTheSameFormatOnly)
{
    Settings settings;
    SaveDefaults defaults(settings);
    defaults.setPicture({10, 10, PixelFormat::UINT8_RGBA, 1.0f});
    defaults.storeSettings(ImageFormat::TIFF, {ColorFormat::FLT16_LINEAR_RGB, false});
    EXPECT_EQ(defaults.getDefaults(ImageFormat::TIFF, ALPHA)->colorFormat, ColorFormat::FLT16_LINEAR_RGB);
    EXPECT_FALSE(defaults.getDefaults(ImageFormat::TIFF, ALPHA)->includeAlpha);
    EXPECT_EQ(defaults.getDefaults(ImageFormat::PNG, ALPHA)->colorFormat, ColorFormat::UINT8_RGB);
}

TEST(SaveDefaultsTest, choice_isProposedInTheNextRun)
{
    wxStringInputStream nothing{wxString()};
    Settings settings(std::make_shared<wxFileConfig>(nothing));
    SaveDefaults(settings).storeSettings(ImageFormat::PNG, {ColorFormat::UINT16_RGB, true});
    SaveDefaults next(settings);
    next.setPicture({10, 10, PixelFormat::UINT8_RGB, 1.0f});
    EXPECT_EQ(next.getDefaults(ImageFormat::PNG, ALPHA)->colorFormat, ColorFormat::UINT16_RGB);
    EXPECT_TRUE(next.getDefaults(ImageFormat::PNG, ALPHA)->includeAlpha);
    EXPECT_EQ(next.getDefaults(ImageFormat::TIFF, ALPHA)->colorFormat, ColorFormat::UINT8_RGB);
}
