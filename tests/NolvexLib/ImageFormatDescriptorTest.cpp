// SPDX-License-Identifier: MIT
#include "NolvexLib/ImageFormatDescriptor.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace Nolvex {
namespace {

constexpr ColorFormat U8 = ColorFormat::UINT8_RGB;
constexpr ColorFormat U16 = ColorFormat::UINT16_RGB;
constexpr ColorFormat F16 = ColorFormat::FLT16_LINEAR_RGB;
constexpr ColorFormat F32 = ColorFormat::FLT32_LINEAR_RGB;

constexpr std::uint32_t ALPHA = 0x102;

struct Expectation
{
    ImageFormat format;
    int value;
    const wchar_t* mimeType;
    const wchar_t* extension;
    Flags<ColorFormat> colorFormats;
    ColorFormat defaultFormat;
    std::uint32_t flags;
};

const Expectation EXPECTATIONS[] = {
    {ImageFormat::BMP, 0, L"image/bmp", L"bmp", U8, U8, ALPHA},
    {ImageFormat::PNG, 1, L"image/png", L"png", {U8, U16}, U8, ALPHA},
    {ImageFormat::JPEG, 2, L"image/jpeg", L"jpg", U8, U8, 0},
    {ImageFormat::EXR, 3, L"image/x-exr", L"exr", {F16, F32}, F16, ALPHA},
    {ImageFormat::GIF, 4, L"image/gif", L"gif", U8, U8, 0},
    {ImageFormat::TARGA, 5, L"image/x-targa", L"tga", U8, U8, ALPHA},
    {ImageFormat::TIFF, 6, L"image/tiff", L"tif", {U8, U16, F16, F32}, U8, ALPHA},
    {ImageFormat::RADIANCE, 7, L"image/vnd.radiance", L"hdr", F32, F32, 0},
    {ImageFormat::CINEON, 8, L"image/x-cineon", L"cin", U16, U16, 0},
    {ImageFormat::DDS, 9, L"image/vnd-ms.dds", L"dds", {U8, U16, F16, F32}, U8, ALPHA},
    {ImageFormat::ICO, 10, L"image/vnd.microsoft.icon", L"ico", U8, U8, ALPHA},
    {ImageFormat::IFF, 11, L"image/x-iff", L"iff", {U8, U16}, U8, ALPHA},
    {ImageFormat::JPEG2000, 12, L"image/jp2", L"jp2", {U8, U16}, U8, ALPHA},
    {ImageFormat::PHOTOSHOP, 13, L"image/vnd.adobe.photoshop", L"psd", {U8, U16, F32}, U8, ALPHA},
    {ImageFormat::RLA, 14, L"image/x-rla", L"rla", {U8, U16, F32}, U8, ALPHA},
    {ImageFormat::SGI, 15, L"image/x-sgi", L"sgi", {U8, U16}, U8, ALPHA},
    {ImageFormat::TX, 16, L"image/x-tx", L"tx", {U8, U16, F16, F32}, U8, ALPHA},
};

TEST(ImageFormatDescriptorTest, getImageFormatDescriptor_ofEachFormat_saysWhatItCanHold)
{
    for (const Expectation& expected : EXPECTATIONS) {
        SCOPED_TRACE(expected.value);
        const ImageFormatDescriptor& descriptor = getImageFormatDescriptor(expected.format);
        EXPECT_EQ(static_cast<int>(expected.format), expected.value);
        EXPECT_EQ(descriptor.format, expected.format);
        EXPECT_EQ(descriptor.mimeType, expected.mimeType);
        EXPECT_EQ(descriptor.extensions.at(0), expected.extension);
        EXPECT_EQ(descriptor.allowedColorFormats, expected.colorFormats);
        EXPECT_EQ(descriptor.defaultColorFormat, expected.defaultFormat);
        EXPECT_EQ(descriptor.flags.bits(), expected.flags);
    }
    EXPECT_EQ(static_cast<int>(std::size(EXPECTATIONS)), IMAGE_FORMAT_COUNT);
}

TEST(ImageFormatDescriptorTest, getImageFormatDescriptor_namesEachFormatAndExtensionOnce)
{
    std::set<std::wstring> names;
    std::set<std::wstring> extensions;
    std::size_t extensionCount = 0;
    for (const Expectation& expected : EXPECTATIONS) {
        const ImageFormatDescriptor& descriptor = getImageFormatDescriptor(expected.format);
        EXPECT_FALSE(descriptor.name.isEmpty());
        names.insert(descriptor.name.wstr());
        for (const String& extension : descriptor.extensions)
            extensions.insert(extension.wstr());
        extensionCount += descriptor.extensions.size();
    }
    EXPECT_EQ(static_cast<int>(names.size()), IMAGE_FORMAT_COUNT);
    EXPECT_EQ(extensions.size(), extensionCount);
    EXPECT_EQ(getImageFormatDescriptor(ImageFormat::PNG).name, L"PNG");
}

TEST(ImageFormatDescriptorTest, getImageFormatDescriptor_ofWhatIsNoFormat_isAProgrammingError)
{
    EXPECT_THROW(getImageFormatDescriptor(static_cast<ImageFormat>(17)), StopException);
    EXPECT_THROW(getImageFormatDescriptor(static_cast<ImageFormat>(-1)), StopException);
}

TEST(ImageFormatDescriptorTest, getImageFormatFromExtension_findsEachFormatByEachOfItsExtensions)
{
    for (int value = 0; value < IMAGE_FORMAT_COUNT; ++value) {
        const auto format = static_cast<ImageFormat>(value);
        for (const String& extension : getImageFormatDescriptor(format).extensions)
            EXPECT_EQ(getImageFormatFromExtension(extension), format) << extension.toUtf8();
    }
}

TEST(ImageFormatDescriptorTest, getImageFormatFromExtension_ignoresTheCaseOfLetters)
{
    EXPECT_EQ(getImageFormatFromExtension(L"PNG"), ImageFormat::PNG);
    EXPECT_EQ(getImageFormatFromExtension(L"jPeG"), ImageFormat::JPEG);
    EXPECT_EQ(getImageFormatFromExtension(L"JP2"), ImageFormat::JPEG2000);
}

TEST(ImageFormatDescriptorTest, getImageFormatFromExtension_ofOtherTexts_isEmpty)
{
    for (const wchar_t* text : {L"", L".png", L"pn", L"pngs", L"png ", L"txt", L"\u017Fgi", L"t\u0130f"})
        EXPECT_EQ(getImageFormatFromExtension(text), Optional<ImageFormat>()) << StringView(text).toUtf8();
}

TEST(ColorFormatTest, values_areBitsOfASet)
{
    EXPECT_EQ(static_cast<int>(ColorFormat::DEFAULT), 0);
    EXPECT_EQ((Flags<ColorFormat>{U8, F16}).bits(), 5u);
    EXPECT_EQ((Flags<ColorFormat>{U16, F32}).bits(), 10u);
}

} // namespace
} // namespace Nolvex
