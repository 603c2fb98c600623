// SPDX-License-Identifier: MIT
#include "NolvexLibImage/Image.h"

#include "NolvexLib/StopException.h"
#include "pixels/Reference.h"
#include "support/SystemLimits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace Nolvex {

namespace {

constexpr PixelFormat FORMATS[] = {
    PixelFormat::UINT8_GREY,   PixelFormat::UINT8_RGB,   PixelFormat::UINT8_RGBA,
    PixelFormat::UINT16_GREY,  PixelFormat::UINT16_RGB,  PixelFormat::UINT16_RGBA,
    PixelFormat::FLOAT16_GREY, PixelFormat::FLOAT16_RGB, PixelFormat::FLOAT16_RGBA,
    PixelFormat::FLOAT32_GREY, PixelFormat::FLOAT32_RGB, PixelFormat::FLOAT32_RGBA,
};

Image makeImage(std::int32_t width, std::int32_t height, PixelFormat format = PixelFormat::UINT8_RGB)
{
    return Image::create(width, height, format, 1.0f).value();
}

/// Fills the image with bytes that differ from pixel to pixel.
void fill(Image& image)
{
    unsigned next = 0;
    for (std::int32_t y = 0; y < image.descriptor().height; ++y) {
        for (std::byte& byte : image.row(y))
            byte = static_cast<std::byte>(next += 7);
    }
}

String errorOf(std::int32_t width, std::int32_t height, PixelFormat format)
{
    const auto image = Image::create(width, height, format, 1.0f);
    return image ? String(L"created") : image.error();
}

} // namespace

TEST(ImageTest, create_describesItself)
{
    const auto image = Image::create(5, 3, PixelFormat::UINT16_RGBA, 2.2f);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->descriptor(), (ImageDescriptor{5, 3, PixelFormat::UINT16_RGBA, 2.2f}));
    EXPECT_EQ(image->rowBytes(), 40U);
}

TEST(ImageTest, create_keepsAnyGamma)
{
    EXPECT_EQ(Image::create(1, 1, PixelFormat::UINT8_RGB, -3.0f)->descriptor().gamma, -3.0f);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(std::isnan(Image::create(1, 1, PixelFormat::UINT8_RGB, nan)->descriptor().gamma));
}

TEST(ImageTest, create_givesZeroBytes)
{
    const Image image = makeImage(1000, 100);
    for (std::int32_t y = 0; y < 100; ++y)
        ASSERT_TRUE(std::ranges::all_of(image.row(y), [](std::byte byte) { return byte == std::byte(0); }));
}

TEST(ImageTest, create_withASideBelowOne_saysSo)
{
    const String error =
        L"An image of 0 x 5 pixels is not possible: it needs at least one column and one row.";
    EXPECT_EQ(errorOf(0, 5, PixelFormat::UINT8_RGB), error);
    EXPECT_NE(errorOf(5, 0, PixelFormat::UINT8_RGB), L"created");
    EXPECT_NE(errorOf(-1, -1, PixelFormat::UINT8_RGB), L"created");
    const std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    EXPECT_NE(errorOf(lowest, lowest, PixelFormat::UINT8_RGB), L"created");
}

TEST(ImageTest, create_withTooManyPixels_saysSo)
{
    const String error =
        L"An image of 65536 x 32768 pixels is too large: at most 2147483647 pixels are possible.";
    EXPECT_EQ(errorOf(65536, 32768, PixelFormat::UINT8_GREY), error);
    const std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    EXPECT_NE(errorOf(highest, highest, PixelFormat::FLOAT32_RGBA), L"created");
}

TEST(ImageTest, create_withTooManyBytes_saysSo)
{
    const String error =
        L"An image of 32768 x 32769 pixels is too large: it would take more than 16 GiB of memory.";
    EXPECT_EQ(errorOf(32768, 32769, PixelFormat::FLOAT32_RGBA), error);
}

// The machine may lack the memory for such an image, which gives a different error.
TEST(ImageTest, create_atTheLimits_isNotTooLarge)
{
    EXPECT_EQ(errorOf(2147483647, 1, PixelFormat::UINT8_GREY).find(L"too large"), String::NPOS);
    EXPECT_EQ(errorOf(1, 2147483647, PixelFormat::UINT8_GREY).find(L"too large"), String::NPOS);
    EXPECT_EQ(errorOf(32768, 32768, PixelFormat::FLOAT32_RGBA).find(L"too large"), String::NPOS);
    EXPECT_NE(errorOf(32769, 32768, PixelFormat::FLOAT32_RGBA).find(L"too large"), String::NPOS);
}

TEST(ImageTest, create_withoutEnoughMemory_saysSo)
{
    const Tests::ScarceMemory scarce;
    if (!scarce.isEffective())
        GTEST_SKIP() << "memory cannot be limited";
    EXPECT_EQ(errorOf(20'000, 10'000, PixelFormat::UINT8_RGB),
              L"An image of 20000 x 10000 pixels does not fit into the memory that is left.");
}

TEST(ImageTest, copy_withoutEnoughMemory_throwsAndChangesNothing)
{
    Image large = makeImage(20'000, 10'000);
    large.row(9'999)[0] = std::byte(255);
    Image assigned = makeImage(4, 3);
    fill(assigned);
    const Rgb before = assigned.getRgba(2, 1);

    const Tests::ScarceMemory scarce;
    if (!scarce.isEffective())
        GTEST_SKIP() << "memory cannot be limited";
    EXPECT_THROW(const Image copy = large, std::bad_alloc);
    EXPECT_THROW(assigned = large, std::bad_alloc);
    EXPECT_EQ(assigned.descriptor().width, 4);
    EXPECT_EQ(assigned.getRgba(2, 1), before);
    EXPECT_EQ(large.getRgba(0, 9'999), (Rgb{1, 0, 0, 1}));
}

// Systems that give out memory when it is first used have room for this image.
TEST(ImageTest, rowsBeyondFourGigabytes_haveTheirOwnMemory)
{
    constexpr std::int32_t SIDE = 40'000;
    Expected<Image, String> image = Image::create(SIDE, SIDE, PixelFormat::UINT8_RGBA, 1.0f);
    if (!image)
        GTEST_SKIP() << image.error().toUtf8();
    EXPECT_EQ(image->row(SIDE - 1).data() - image->row(0).data(), std::ptrdiff_t(SIDE - 1) * SIDE * 4);
    image->row(SIDE - 1).back() = std::byte(255);
    EXPECT_EQ(image->getRgba(SIDE - 1, SIDE - 1), (Rgb{0, 0, 0, 1}));
    EXPECT_EQ(image->getRgba(SIDE - 1, 0), (Rgb{0, 0, 0, 0}));
    // The row at which offsets of 32 bits would start again, rounded down.
    constexpr std::int32_t WRAPPED = static_cast<std::int32_t>((std::int64_t(1) << 32) / (SIDE * 4));
    EXPECT_EQ(image->getRgba(SIDE - 1, SIDE - 1 - WRAPPED), (Rgb{0, 0, 0, 0}));
}

TEST(ImageTest, create_withAnInvalidFormat_isAProgrammingError)
{
    const auto invalid = static_cast<PixelFormat>(PIXEL_FORMAT_COUNT);
    EXPECT_THROW(static_cast<void>(Image::create(1, 1, invalid, 1.0f)), StopException);
}

TEST(ImageTest, getPixelFormatChannelCount_isOneThreeOrFour)
{
    for (std::size_t i = 0; i < std::size(FORMATS); ++i) {
        const int expected[] = {1, 3, 4};
        EXPECT_EQ(Image::getPixelFormatChannelCount(FORMATS[i]), expected[i % 3]);
    }
    EXPECT_THROW(Image::getPixelFormatChannelCount(static_cast<PixelFormat>(-1)), StopException);
}

TEST(ImageTest, getPixelFormatByteCount_isThatOfItsChannels)
{
    const std::size_t expected[] = {1, 3, 4, 2, 6, 8, 2, 6, 8, 4, 12, 16};
    for (std::size_t i = 0; i < std::size(FORMATS); ++i)
        EXPECT_EQ(Image::getPixelFormatByteCount(FORMATS[i]), expected[i]);
}

TEST(ImageTest, row_zeroIsTheLowest)
{
    Image image = makeImage(2, 2, PixelFormat::UINT8_GREY);
    image.row(0)[0] = std::byte(255);
    EXPECT_EQ(image.getRgba(0, 0), (Rgb{1, 1, 1, 1}));
    EXPECT_EQ(image.getRgba(0, 1), (Rgb{0, 0, 0, 1}));
    EXPECT_EQ(image.row(1).data(), image.row(0).data() + image.rowBytes());
}

TEST(ImageTest, row_ofEveryFormat_isAlignedForItsNumbers)
{
    for (const PixelFormat format : FORMATS) {
        Image image = makeImage(3, 5, format);
        const auto channels = static_cast<std::size_t>(Image::getPixelFormatChannelCount(format));
        const std::size_t alignment = Image::getPixelFormatByteCount(format) / channels;
        for (std::int32_t y = 0; y < 5; ++y)
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(image.row(y).data()) % alignment, 0U);
    }
}

TEST(ImageTest, row_ofEveryFormat_holdsTheBytesOfItsPixels)
{
    for (const PixelFormat format : FORMATS) {
        const Image image = makeImage(11, 2, format);
        EXPECT_EQ(image.row(0).size(), 11 * Image::getPixelFormatByteCount(format));
        EXPECT_EQ(image.row(1).size(), image.rowBytes());
    }
}

TEST(ImageTest, getRgba_ofHandWrittenPixels_givesTheirValues)
{
    Image bytes = makeImage(2, 1, PixelFormat::UINT8_RGBA);
    const std::uint8_t colours[] = {0, 255, 51, 255, 255, 0, 0, 0};
    std::memcpy(bytes.row(0).data(), colours, sizeof colours);
    EXPECT_EQ(bytes.getRgba(0, 0), (Rgb{0, 1, std::bit_cast<float>(0x3E4C'CCCEU), 1}));
    EXPECT_EQ(bytes.getRgba(1, 0), (Rgb{1, 0, 0, 0}));

    Image halves = makeImage(1, 1, PixelFormat::FLOAT16_RGB);
    const std::uint16_t numbers[] = {0x3800, 0x4900, 0xBC00};
    std::memcpy(halves.row(0).data(), numbers, sizeof numbers);
    EXPECT_EQ(halves.getRgba(0, 0), (Rgb{0.5f, 10, -1, 1}));

    Image floats = makeImage(1, 1, PixelFormat::FLOAT32_GREY);
    const float value = 123456.75f;
    std::memcpy(floats.row(0).data(), &value, sizeof value);
    EXPECT_EQ(floats.getRgba(0, 0), (Rgb{value, value, value, 1}));
}

TEST(ImageTest, readRow_writesNothingBehindTheRow)
{
    const Image image = makeImage(3, 1);
    const Rgb guard = {9, 9, 9, 9};
    std::vector<Rgb> row(4, guard);
    image.readRow(0, row.data());
    EXPECT_EQ(row[2], (Rgb{0, 0, 0, 1}));
    EXPECT_EQ(row[3], guard);
}

TEST(ImageTest, getRgba_ofEveryFormat_followsTheRules)
{
    for (const PixelFormat format : FORMATS) {
        Image image = makeImage(7, 3, format);
        fill(image);
        const std::size_t pixelBytes = Image::getPixelFormatByteCount(format);
        for (std::int32_t y = 0; y < 3; ++y) {
            for (std::int32_t x = 0; x < 7; ++x) {
                const std::byte* bytes = image.row(y).data() + static_cast<std::size_t>(x) * pixelBytes;
                const Rgb expected = Pixels::Reference::pixel(format, bytes);
                ASSERT_TRUE(Pixels::Reference::haveSameBits(image.getRgba(x, y), expected)) << x << ", " << y;
            }
        }
    }
}

TEST(ImageTest, readRow_ofEveryFormat_isWhatGetRgbaReads)
{
    for (const PixelFormat format : FORMATS) {
        Image image = makeImage(37, 2, format);
        fill(image);
        std::vector<Rgb> row(37);
        for (std::int32_t y = 0; y < 2; ++y) {
            image.readRow(y, row.data());
            for (std::int32_t x = 0; x < 37; ++x)
                ASSERT_TRUE(
                    Pixels::Reference::haveSameBits(row[static_cast<std::size_t>(x)], image.getRgba(x, y)));
        }
    }
}

TEST(ImageTest, access_outside_isAProgrammingError)
{
    Image image = makeImage(4, 3);
    Rgb row[4];
    for (const std::int32_t y : {-1, 3}) {
        EXPECT_THROW(image.getRgba(0, y), StopException);
        EXPECT_THROW(image.row(y), StopException);
        EXPECT_THROW(std::as_const(image).row(y), StopException);
        EXPECT_THROW(image.readRow(y, row), StopException);
    }
    EXPECT_THROW(image.getRgba(-1, 0), StopException);
    EXPECT_THROW(image.getRgba(4, 0), StopException);
}

TEST(ImageTest, copy_hasPixelsOfItsOwn)
{
    Image image = makeImage(4, 3);
    fill(image);
    const Rgb before = image.getRgba(2, 1);
    Image copy = image;
    Image assigned = makeImage(1, 1);
    assigned = copy;
    std::memset(image.row(1).data(), 0, image.rowBytes());
    EXPECT_EQ(copy.getRgba(2, 1), before);
    EXPECT_EQ(assigned.getRgba(2, 1), before);
    EXPECT_EQ(assigned.descriptor(), image.descriptor());
    EXPECT_EQ(assigned.rowBytes(), 12U);
}

TEST(ImageTest, assignment_ofItself_keepsThePixels)
{
    Image image = makeImage(4, 3);
    fill(image);
    const Rgb before = image.getRgba(2, 1);
    const Image& same = image;
    image = same;
    EXPECT_EQ(image.getRgba(2, 1), before);
}

TEST(ImageTest, assignment_ofAnImageMovedFrom_leavesNoPixels)
{
    Image image = makeImage(4, 3);
    Image emptied = makeImage(2, 2);
    const Image taken = std::move(emptied);
    // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): the state is the promise
    image = emptied;
    EXPECT_EQ(image.descriptor(), ImageDescriptor());
    EXPECT_EQ(image.rowBytes(), 0U);
    EXPECT_THROW(image.getRgba(0, 0), StopException);
    EXPECT_EQ(taken.descriptor().width, 2);
}

TEST(ImageTest, descriptors_areEqualOnlyInAllProperties)
{
    const ImageDescriptor descriptor = {4, 3, PixelFormat::UINT8_RGB, 2.2f};
    EXPECT_EQ(descriptor, (ImageDescriptor{4, 3, PixelFormat::UINT8_RGB, 2.2f}));
    EXPECT_NE(descriptor, (ImageDescriptor{5, 3, PixelFormat::UINT8_RGB, 2.2f}));
    EXPECT_NE(descriptor, (ImageDescriptor{4, 2, PixelFormat::UINT8_RGB, 2.2f}));
    EXPECT_NE(descriptor, (ImageDescriptor{4, 3, PixelFormat::UINT8_RGBA, 2.2f}));
    EXPECT_NE(descriptor, (ImageDescriptor{4, 3, PixelFormat::UINT8_RGB, 1.0f}));
}

TEST(ImageTest, moveAssignment_ofItself_keepsThePixels)
{
    Image image = makeImage(4, 3);
    fill(image);
    const Rgb before = image.getRgba(2, 1);
    Image& same = image;
    image = std::move(same);
    EXPECT_EQ(image.descriptor(), (ImageDescriptor{4, 3, PixelFormat::UINT8_RGB, 1.0f}));
    EXPECT_EQ(image.getRgba(2, 1), before);
}

TEST(ImageTest, swap_exchangesPixelsAndProperties)
{
    Image small = makeImage(4, 3);
    fill(small);
    Image large = makeImage(50, 20, PixelFormat::FLOAT32_GREY);
    const Rgb before = small.getRgba(2, 1);
    std::swap(small, large);
    EXPECT_EQ(large.getRgba(2, 1), before);
    EXPECT_EQ(large.rowBytes(), 12U);
    EXPECT_EQ(small.descriptor(), (ImageDescriptor{50, 20, PixelFormat::FLOAT32_GREY, 1.0f}));
    EXPECT_EQ(small.row(19).size(), 200U);
}

TEST(ImageTest, copy_ofEveryFormat_hasTheSameBytes)
{
    for (const PixelFormat format : FORMATS) {
        Image image = Image::create(13, 7, format, 2.2f).value();
        fill(image);
        const Image copy = image;
        EXPECT_EQ(copy.descriptor(), image.descriptor());
        for (std::int32_t y = 0; y < 7; ++y)
            EXPECT_TRUE(std::ranges::equal(copy.row(y), image.row(y)));
    }
}

TEST(ImageTest, move_leavesNoPixelsBehind)
{
    Image image = makeImage(4, 3);
    fill(image);
    const Rgb before = image.getRgba(2, 1);
    const std::byte* memory = image.row(0).data();
    Image moved = std::move(image);
    EXPECT_EQ(moved.row(0).data(), memory);
    EXPECT_EQ(moved.getRgba(2, 1), before);
    // NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what is left is the promise
    EXPECT_EQ(image.descriptor(), ImageDescriptor());
    EXPECT_THROW(image.row(0), StopException);
    const Image copyOfNothing = image;
    EXPECT_EQ(copyOfNothing.rowBytes(), 0U);
    // NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    image = std::move(moved);
    EXPECT_EQ(image.getRgba(2, 1), before);
}

} // namespace Nolvex
