// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PortableAnyMapReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

using namespace Nolvex;
using namespace std::string_literals;
using Viewer::PortableAnyMapReader;

namespace {

Expected<Image, String> imageOf(const std::string& file)
{
    const ArrayView<const std::byte> bytes(reinterpret_cast<const std::byte*>(file.data()), file.size());
    if (!PortableAnyMapReader().knows(bytes))
        return Unexpected{String(L"unknown")};
    auto read = PortableAnyMapReader().read(bytes, 0, {});
    return read ? Expected<Image, String>(std::move(read->image)) : Unexpected{read.error()};
}

// Returns the channels of all pixels, row by row from the top, as the whole numbers of the format.
Array<int> valuesOf(const std::string& file, PixelFormat format)
{
    const auto image = imageOf(file);
    if (!image) {
        ADD_FAILURE() << image.error().toUtf8();
        return {};
    }
    EXPECT_EQ(image->descriptor().format, format);
    EXPECT_EQ(image->descriptor().gamma, 1.0f);
    const bool isWide = format == PixelFormat::UINT16_GREY || format == PixelFormat::UINT16_RGB;
    Array<int> values;
    for (int y = image->descriptor().height - 1; y >= 0; --y) {
        for (int x = 0; x < image->descriptor().width; ++x) {
            const Rgb pixel = image->getRgba(x, y);
            const float channels[] = {pixel.r, pixel.g, pixel.b};
            for (int i = 0; i < Image::getPixelFormatChannelCount(format); ++i)
                values.push_back(static_cast<int>(std::lround(channels[i] * (isWide ? 65535.0f : 255.0f))));
        }
    }
    return values;
}

String errorOf(const std::string& file)
{
    const auto image = imageOf(file);
    return image ? String(L"(read)") : image.error();
}

} // namespace

TEST(PortableAnyMapReaderTest, bytes_areReadFromTheTop)
{
    EXPECT_EQ(valuesOf("P5\n2 2\n255\n\x00\x10\x80\xff"s, PixelFormat::UINT8_GREY),
              (Array<int>{0, 16, 128, 255}));
    EXPECT_EQ(valuesOf("P6 1 2 255 \x01\x02\x03\xfd\xfe\xff"s, PixelFormat::UINT8_RGB),
              (Array<int>{1, 2, 3, 253, 254, 255}));
}

TEST(PortableAnyMapReaderTest, pairsOfBytes_haveTheUpperByteFirst)
{
    EXPECT_EQ(valuesOf("P5 2 1 65535 \x01\x02\xff\xfe"s, PixelFormat::UINT16_GREY),
              (Array<int>{0x0102, 0xfffe}));
    EXPECT_EQ(valuesOf("P6 1 1 65535\n\x01\x02\x03\x04\x05\x06"s, PixelFormat::UINT16_RGB),
              (Array<int>{0x0102, 0x0304, 0x0506}));
}

TEST(PortableAnyMapReaderTest, largestValue_becomesWhite)
{
    EXPECT_EQ(valuesOf("P5 3 1 100 \x00\x32\x64"s, PixelFormat::UINT8_GREY), (Array<int>{0, 128, 255}));
    EXPECT_EQ(valuesOf("P5 2 1 1023 \x03\xff\x01\xff"s, PixelFormat::UINT16_GREY),
              (Array<int>{65535, 32735}));
    EXPECT_EQ(valuesOf("P5 1 1 100 \xff"s, PixelFormat::UINT8_GREY), (Array<int>{255}))
        << "above the largest";
}

TEST(PortableAnyMapReaderTest, bits_areBlackIfSet)
{
    EXPECT_EQ(valuesOf("P4\n10 2\n\x80\x40\x7f\x80"s, PixelFormat::UINT8_GREY),
              (Array<int>{0,   255, 255, 255, 255, 255, 255, 255, 255, 0, //
                          255, 0,   0,   0,   0,   0,   0,   0,   0,   255}));
    EXPECT_EQ(valuesOf("P1\n3 1\n1 01"s, PixelFormat::UINT8_GREY), (Array<int>{0, 255, 0}));
}

TEST(PortableAnyMapReaderTest, texts_areReadWithComments)
{
    EXPECT_EQ(valuesOf("P2 # grey\n# twice\n2 1 # size\n15\n0 # black\n15"s, PixelFormat::UINT8_GREY),
              (Array<int>{0, 255}));
    EXPECT_EQ(valuesOf("P3 1 1 65535 1 2 65535 "s, PixelFormat::UINT16_RGB), (Array<int>{1, 2, 65535}));
}

TEST(PortableAnyMapReaderTest, damagedHeaders_areRefused)
{
    for (const std::string& file : {"P5"s, "P5 "s, "P5 1"s, "P5 1 1"s, "P5 1 1 255"s, "P5 0 1 255 \x01"s,
                                    "P5 -1 1 255 \x01"s, "P5 1 1 0 \x01"s, "P5 1 1 65536 \x01\x01"s,
                                    "P5 99999999999 1 255 \x01"s, "P5 x 1 255 \x01"s, "P5 # only a comment"s})
        EXPECT_NE(errorOf(file), String(L"(read)")) << file;
    EXPECT_EQ(errorOf("P7\nWIDTH 1"s), String(L"unknown"));
    EXPECT_EQ(errorOf("P55 1 1 255 \x01"s), String(L"unknown"));
}

TEST(PortableAnyMapReaderTest, cutFiles_areRefused)
{
    EXPECT_EQ(errorOf("P6 2 1 255 \x01\x02\x03\x04\x05"s), String(L"it ends before its last pixel"));
    EXPECT_EQ(errorOf("P5 1 1 65535 \x01"s), String(L"it ends before its last pixel"));
    EXPECT_EQ(errorOf("P4 9 1 \x01"s), String(L"it ends before its last pixel"));
    EXPECT_EQ(errorOf("P2 2 2 9 1 1 100000"s), String(L"it is damaged or cut off"));
    EXPECT_EQ(errorOf("P2 2 1 9 1 12"s), String(L"it is damaged or cut off")) << "above the largest";
    EXPECT_EQ(errorOf("P1 2 1 12"s), String(L"it is damaged or cut off"));
    EXPECT_EQ(errorOf("P5 30000 30000 255 \x01"s), String(L"it ends before its last pixel"));
}

TEST(PortableAnyMapReaderTest, progress_canStopTheReading)
{
    const std::string file = "P5 1 4 255 1234";
    const ArrayView<const std::byte> bytes(reinterpret_cast<const std::byte*>(file.data()), file.size());
    EXPECT_FALSE(PortableAnyMapReader().read(bytes, 0, [](float share) { return share < 0.5f; }).hasValue());
}
