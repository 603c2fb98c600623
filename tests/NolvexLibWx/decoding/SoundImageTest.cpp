// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Decoding::fitsWxImage;
using Decoding::isPlausible;
using Decoding::SoundImage;

namespace {

constexpr std::uint64_t HUGE_SIDE = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t MAX_PIXELS = 715'827'882; // three bytes each still fit into an int

} // namespace

TEST(SoundImageTest, fitsWxImage_upToTheBytesThatAnIntCounts)
{
    EXPECT_TRUE(fitsWxImage(1, 1));
    EXPECT_TRUE(fitsWxImage(MAX_PIXELS, 1));
    EXPECT_TRUE(fitsWxImage(1, MAX_PIXELS));
    EXPECT_FALSE(fitsWxImage(MAX_PIXELS + 1, 1));
    EXPECT_FALSE(fitsWxImage(1, MAX_PIXELS + 1));
    EXPECT_TRUE(fitsWxImage(26'754, 26'754));
    EXPECT_TRUE(fitsWxImage(26'755, 26'754));
    EXPECT_FALSE(fitsWxImage(26'756, 26'755));
}

TEST(SoundImageTest, fitsWxImage_refusesSidesWithoutPixels)
{
    EXPECT_FALSE(fitsWxImage(0, 5));
    EXPECT_FALSE(fitsWxImage(5, 0));
    EXPECT_FALSE(fitsWxImage(0, 0));
}

TEST(SoundImageTest, fitsWxImage_refusesProductsBeyond64Bits)
{
    EXPECT_FALSE(fitsWxImage(HUGE_SIDE, HUGE_SIDE));
    EXPECT_FALSE(fitsWxImage(std::uint64_t(1) << 32, std::uint64_t(1) << 32));
    EXPECT_FALSE(fitsWxImage(HUGE_SIDE, 1));
    EXPECT_FALSE(fitsWxImage(0, HUGE_SIDE));
}

TEST(SoundImageTest, isPlausible_acceptsEveryImageUpTo64Mebipixels)
{
    EXPECT_TRUE(isPlausible(0, 0));
    EXPECT_TRUE(isPlausible(std::uint64_t(1) << 26, 0));
    EXPECT_FALSE(isPlausible((std::uint64_t(1) << 26) + 1, 0));
}

TEST(SoundImageTest, isPlausible_asksALargerImageForItsBytes)
{
    constexpr std::uint64_t PIXELS_PER_BYTE = 8256;
    constexpr std::size_t FILE_SIZE = 100'000;
    EXPECT_TRUE(isPlausible(FILE_SIZE * PIXELS_PER_BYTE, FILE_SIZE));
    EXPECT_FALSE(isPlausible((FILE_SIZE + 1) * PIXELS_PER_BYTE, FILE_SIZE));
    EXPECT_FALSE(isPlausible(HUGE_SIDE, FILE_SIZE));
}

TEST(SoundImageTest, bytes_areThoseOfTheFile)
{
    const Array<std::byte> file(7, std::byte(3));
    const SoundImage image{ArrayView<const std::byte>(file)};
    EXPECT_EQ(image.bytes().data(), file.data());
    EXPECT_EQ(image.bytes().size(), 7u);
    EXPECT_EQ(image.orientation, 1);
    EXPECT_TRUE(image.isWhole);
}

TEST(SoundImageTest, rewrittenBytes_belongToTheImageAndMoveAlong)
{
    Array<std::byte> rewritten(100, std::byte(3));
    const std::byte* const memory = rewritten.data();
    SoundImage image(std::move(rewritten));
    EXPECT_EQ(image.bytes().data(), memory);
    const SoundImage moved = std::move(image);
    EXPECT_EQ(moved.bytes().data(), memory);
    EXPECT_EQ(moved.bytes().size(), 100u);
}

TEST(SoundImageTest, copyOfARewrittenImage_hasBytesOfItsOwn)
{
    const SoundImage image(Array<std::byte>(100, std::byte(3)));
    const SoundImage copy = image;
    EXPECT_NE(copy.bytes().data(), image.bytes().data());
    EXPECT_EQ(copy.bytes()[99], std::byte(3));
}

TEST(SoundImageTest, refusals_areTheRestOfASentence)
{
    for (const Unexpected<String>& refusal :
         {Decoding::refuseDamaged(), Decoding::refuseShort(), Decoding::refuseLarge()}) {
        const Decoding::CheckedImage checked = refusal;
        ASSERT_FALSE(checked);
        EXPECT_EQ(checked.error().find(L"it "), 0u) << checked.error().toUtf8();
    }
}
