// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/Conversions.h"

#include "AtEachLevel.h"
#include "Reference.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <random>
#include <utility>

namespace Nolvex::Pixels {

namespace {

using Bytes = std::vector<std::byte>;

/// A conversion to floats from `format`, or from the same format with red and blue swapped.
struct Conversion
{
    PixelFormat format;
    bool isSwapped;

    void convert(const std::byte* source, Rgb* destination, std::size_t count) const
    {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(source);
        if (!isSwapped)
            toRgb(format, source, destination, count);
        else if (format == PixelFormat::UINT8_RGB)
            bgr8ToRgb(bytes, destination, count);
        else
            bgra8ToRgb(bytes, destination, count);
    }

    Rgb expected(const std::byte* source) const
    {
        Rgb pixel = Reference::pixel(format, source);
        if (isSwapped)
            std::swap(pixel.r, pixel.b);
        return pixel;
    }
};

std::ostream& operator<<(std::ostream& stream, const Conversion& conversion)
{
    return stream << "format " << static_cast<int>(conversion.format)
                  << (conversion.isSwapped ? ", swapped" : "");
}

std::vector<Conversion> allConversions()
{
    std::vector<Conversion> conversions = {{PixelFormat::UINT8_RGB, true}, {PixelFormat::UINT8_RGBA, true}};
    for (int format = 0; format < PIXEL_FORMAT_COUNT; ++format)
        conversions.push_back({static_cast<PixelFormat>(format), false});
    return conversions;
}

Bytes randomBytes(std::size_t count)
{
    std::mt19937 random; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers every time
    Bytes bytes(count);
    for (std::byte& byte : bytes)
        byte = static_cast<std::byte>(random() >> 24);
    return bytes;
}

testing::AssertionResult isAsReference(const Conversion& conversion, const std::byte* source,
                                       const Rgb* converted, std::size_t count)
{
    const std::size_t step = Reference::pixelBytes(conversion.format);
    for (std::size_t i = 0; i < count; ++i) {
        if (!Reference::haveSameBits(converted[i], conversion.expected(source + i * step)))
            return testing::AssertionFailure() << conversion << ": pixel " << i << " of " << count;
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult convertsAsReference(const Conversion& conversion, const Bytes& source)
{
    const std::size_t count = source.size() / Reference::pixelBytes(conversion.format);
    std::vector<Rgb> converted(count);
    conversion.convert(source.data(), converted.data(), count);
    return isAsReference(conversion, source.data(), converted.data(), count);
}

/// Returns all numbers of 16 bits and then some of them again, so that each number comes in each channel.
Bytes allWords()
{
    std::vector<std::uint16_t> words(std::size_t(3) * 0x1'0000);
    for (std::size_t i = 0; i < words.size(); ++i)
        words[i] = static_cast<std::uint16_t>(i * (1 + 2 * (i / 0x1'0000)));
    Bytes bytes(words.size() * 2);
    std::memcpy(bytes.data(), words.data(), bytes.size());
    return bytes;
}

constexpr std::size_t MAX_PIXELS = 70;
constexpr std::size_t ALIGNMENTS = 32;
constexpr float GUARD = -7.5f;

/// Tries all alignments of the destination with one source and number of pixels.
testing::AssertionResult fitsEverywhere(const Conversion& conversion, const std::byte* source,
                                        std::size_t count)
{
    std::vector<float> memory(MAX_PIXELS * 4 + 24);
    const auto isGuard = [](float value) { return value == GUARD; };
    for (std::size_t offset = 8; offset < 8 + ALIGNMENTS / sizeof(float); ++offset) {
        std::ranges::fill(memory, GUARD);
        const auto begin = memory.begin() + static_cast<std::ptrdiff_t>(offset);
        Rgb* const destination = reinterpret_cast<Rgb*>(memory.data() + offset);
        conversion.convert(source, destination, count);
        const bool guarded =
            std::all_of(memory.begin(), begin, isGuard) &&
            std::all_of(begin + static_cast<std::ptrdiff_t>(4 * count), memory.end(), isGuard);
        if (!guarded || !isAsReference(conversion, source, destination, count))
            return testing::AssertionFailure() << conversion << ", " << count << " pixels, at " << offset;
    }
    return testing::AssertionSuccess();
}

} // namespace

using ConversionsToFloatsTest = AtEachLevel;
INSTANTIATE_TEST_SUITE_P(Levels, ConversionsToFloatsTest, testing::ValuesIn(AtEachLevel::levels()),
                         AtEachLevel::nameOf);

TEST_P(ConversionsToFloatsTest, everyByte_isMultipliedByTheSinglePrecisionFraction)
{
    Bytes bytes(std::size_t(256) * 12);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::byte>(i * (1 + 2 * (i / 256)));
    for (const Conversion& conversion : allConversions()) {
        if (conversion.format <= PixelFormat::UINT8_RGBA) {
            EXPECT_TRUE(convertsAsReference(conversion, bytes));
        }
    }
}

TEST_P(ConversionsToFloatsTest, everyWord_isConvertedExactly)
{
    for (int format = static_cast<int>(PixelFormat::UINT16_GREY);
         format <= static_cast<int>(PixelFormat::FLOAT16_RGBA); ++format)
        EXPECT_TRUE(convertsAsReference({static_cast<PixelFormat>(format), false}, allWords()));
}

TEST_P(ConversionsToFloatsTest, highestIntegers_becomeOne)
{
    const std::uint8_t bytes[] = {255, 0, 255, 255};
    Rgb pixel;
    rgba8ToRgb(bytes, &pixel, 1);
    EXPECT_EQ(pixel, (Rgb{1.0f, 0.0f, 1.0f, 1.0f}));

    const std::uint16_t words[] = {65535, 0, 65535, 65535};
    toRgb(PixelFormat::UINT16_RGBA, reinterpret_cast<const std::byte*>(words), &pixel, 1);
    EXPECT_EQ(pixel, (Rgb{1.0f, 0.0f, 1.0f, 1.0f}));
}

TEST_P(ConversionsToFloatsTest, orderOfBytes_isThatOfTheName)
{
    constexpr auto FRACTION = std::bit_cast<float>(0x3B808081);
    const std::uint8_t bytes[] = {0, 51, 102, 153};
    Rgb pixel;
    bgra8ToRgb(bytes, &pixel, 1);
    EXPECT_EQ(pixel, (Rgb{102.0f * FRACTION, 51.0f * FRACTION, 0.0f, 153.0f * FRACTION}));
    bgr8ToRgb(bytes, &pixel, 1);
    EXPECT_EQ(pixel, (Rgb{102.0f * FRACTION, 51.0f * FRACTION, 0.0f, 1.0f}));
    rgb8ToRgb(bytes, &pixel, 1);
    EXPECT_EQ(pixel, (Rgb{0.0f, 51.0f * FRACTION, 102.0f * FRACTION, 1.0f}));
}

TEST_P(ConversionsToFloatsTest, floats_keepTheirBits)
{
    std::vector<float> values = Reference::specialFloats();
    const std::vector<float> random = Reference::randomFloats(100'000);
    values.insert(values.end(), random.begin(), random.end());
    Bytes bytes(values.size() * sizeof(float));
    std::memcpy(bytes.data(), values.data(), bytes.size());
    for (int format = static_cast<int>(PixelFormat::FLOAT32_GREY); format < PIXEL_FORMAT_COUNT; ++format)
        EXPECT_TRUE(convertsAsReference({static_cast<PixelFormat>(format), false}, bytes));
}

TEST_P(ConversionsToFloatsTest, everyCountAndAlignment_writesItsPixelsOnly)
{
    const Bytes memory = randomBytes(MAX_PIXELS * 16 + ALIGNMENTS);
    for (const Conversion& conversion : allConversions()) {
        for (std::size_t misalignment = 0; misalignment < ALIGNMENTS; misalignment += 3) {
            for (std::size_t count = 0; count <= MAX_PIXELS; ++count)
                ASSERT_TRUE(fitsEverywhere(conversion, memory.data() + misalignment, count));
        }
    }
}

TEST_P(ConversionsToFloatsTest, everyCount_readsItsPixelsOnly)
{
    for (const Conversion& conversion : allConversions()) {
        for (std::size_t count = 1; count <= MAX_PIXELS; ++count) {
            // The block ends at the last pixel, so that the sanitizers see reads beyond the end.
            const Bytes exact = randomBytes(count * Reference::pixelBytes(conversion.format));
            EXPECT_TRUE(convertsAsReference(conversion, exact));
        }
    }
}

TEST_P(ConversionsToFloatsTest, largeOutput_equalsItsPartsAtEveryAlignment)
{
    constexpr std::size_t COUNT = (std::size_t(16) << 20) / sizeof(Rgb) + 77;
    constexpr std::size_t PART = 1000;
    const Bytes source = randomBytes(COUNT * 16);
    std::vector<Rgb> parts(COUNT);
    std::vector<float> memory(COUNT * 4 + 8);
    for (const Conversion& conversion : allConversions()) {
        const std::size_t step = Reference::pixelBytes(conversion.format);
        for (std::size_t done = 0; done < COUNT; done += PART)
            conversion.convert(source.data() + done * step, parts.data() + done,
                               std::min(PART, COUNT - done));
        for (const std::size_t offset : {0, 1, 4}) {
            std::ranges::fill(memory, GUARD);
            Rgb* const whole = reinterpret_cast<Rgb*>(memory.data() + offset);
            conversion.convert(source.data(), whole, COUNT);
            EXPECT_TRUE(std::equal(parts.begin(), parts.end(), whole, Reference::haveSameBits)) << conversion;
            EXPECT_EQ(memory[offset + 4 * COUNT], GUARD) << conversion;
        }
    }
}

} // namespace Nolvex::Pixels
