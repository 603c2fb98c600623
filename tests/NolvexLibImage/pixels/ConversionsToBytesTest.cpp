// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/Conversions.h"

#include "AtEachLevel.h"
#include "Reference.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <tuple>

namespace Nolvex::Pixels {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// A conversion to bytes, and the reference for its results.
struct Conversion
{
    const char* name;
    void (*convert)(const Rgb* source, std::uint8_t* colour, std::uint8_t* alpha, std::size_t count);
    std::size_t colourBytes;
    std::size_t alphaBytes;
    bool isSwapped;
    std::uint8_t (*alphaRule)(float);
};

const Conversion CONVERSIONS[] = {
    {"rgbToRgb8",
     [](const Rgb* source, std::uint8_t* colour, std::uint8_t*, std::size_t count) {
         rgbToRgb8(source, colour, count);
     },
     3, 0, false, nullptr},
    {"rgbToBgr8",
     [](const Rgb* source, std::uint8_t* colour, std::uint8_t*, std::size_t count) {
         rgbToBgr8(source, colour, count);
     },
     3, 0, true, nullptr},
    {"rgbToRgba8",
     [](const Rgb* source, std::uint8_t* colour, std::uint8_t*, std::size_t count) {
         rgbToRgba8(source, colour, count);
     },
     4, 0, false, Reference::alphaByte},
    {"rgbToBgra8",
     [](const Rgb* source, std::uint8_t* colour, std::uint8_t*, std::size_t count) {
         rgbToBgra8(source, colour, count);
     },
     4, 0, true, Reference::alphaByte},
    {"rgbToRgb8Alpha8", rgbToRgb8Alpha8, 3, 1, false, Reference::colourByte},
};

struct Planes
{
    Bytes colour;
    Bytes alpha;

    friend bool operator==(const Planes&, const Planes&) = default;
};

Planes expectedPlanes(const Conversion& conversion, const std::vector<Rgb>& pixels)
{
    Planes planes;
    for (const Rgb& pixel : pixels) {
        std::uint8_t colours[] = {Reference::colourByte(pixel.r), Reference::colourByte(pixel.g),
                                  Reference::colourByte(pixel.b)};
        if (conversion.isSwapped)
            std::swap(colours[0], colours[2]);
        planes.colour.insert(planes.colour.end(), std::begin(colours), std::end(colours));
        if (conversion.alphaRule != nullptr)
            (conversion.alphaBytes != 0 ? planes.alpha : planes.colour)
                .push_back(conversion.alphaRule(pixel.a));
    }
    return planes;
}

/// Copies the source into a block that ends at the last pixel, so that the sanitizers see reads beyond the
/// end.
Planes convertedPlanes(const Conversion& conversion, const std::vector<Rgb>& pixels)
{
    Planes planes{Bytes(pixels.size() * conversion.colourBytes),
                  Bytes(pixels.size() * conversion.alphaBytes)};
    conversion.convert(pixels.data(), planes.colour.data(), planes.alpha.data(), pixels.size());
    return planes;
}

void expectAsReference(const std::vector<float>& values)
{
    const std::vector<Rgb> pixels = Reference::pixelsOf(values);
    for (const Conversion& conversion : CONVERSIONS)
        EXPECT_TRUE(convertedPlanes(conversion, pixels) == expectedPlanes(conversion, pixels))
            << conversion.name;
}

constexpr std::size_t MAX_PIXELS = 70;
constexpr std::size_t ALIGNMENTS = 32;
constexpr std::uint8_t GUARD = 0xa5;

/// A plane at any alignment between bytes that must stay as they are.
class GuardedPlane
{
public:
    explicit GuardedPlane(std::size_t bytesPerPixel) : m_bytesPerPixel(bytesPerPixel) {}

    /// Returns the plane, which starts `misalignment` bytes beyond a multiple of 32.
    std::uint8_t* place(std::size_t misalignment)
    {
        std::ranges::fill(m_bytes, GUARD);
        const std::size_t beyond = reinterpret_cast<std::uintptr_t>(m_bytes.data()) % ALIGNMENTS;
        m_start = 2 * ALIGNMENTS - beyond + misalignment;
        return m_bytes.data() + m_start;
    }

    /// Returns whether the plane begins with `count` pixels of `expected` and no other byte was written.
    bool holds(const Bytes& expected, std::size_t count) const
    {
        const auto begin = m_bytes.begin() + static_cast<std::ptrdiff_t>(m_start);
        const auto end = begin + static_cast<std::ptrdiff_t>(count * m_bytesPerPixel);
        const auto isGuard = [](std::uint8_t byte) { return byte == GUARD; };
        return std::all_of(m_bytes.begin(), begin, isGuard) && std::equal(begin, end, expected.begin()) &&
               std::all_of(end, m_bytes.end(), isGuard);
    }

private:
    std::size_t m_bytesPerPixel;
    std::size_t m_start = 0;
    Bytes m_bytes = Bytes(MAX_PIXELS * 4 + 5 * ALIGNMENTS);
};

/// Tries all alignments of the destination with one source and number of pixels.
testing::AssertionResult fitsEverywhere(const Conversion& conversion, const Planes& expected,
                                        const Rgb* source, std::size_t count)
{
    GuardedPlane colour(conversion.colourBytes);
    GuardedPlane alpha(conversion.alphaBytes);
    for (std::size_t misalignment = 0; misalignment < ALIGNMENTS; ++misalignment) {
        // The planes are five steps apart, so that their alignments differ.
        std::uint8_t* const alphaPlane = alpha.place((misalignment + 5) % ALIGNMENTS);
        conversion.convert(source, colour.place(misalignment), alphaPlane, count);
        if (!colour.holds(expected.colour, count) || !alpha.holds(expected.alpha, count))
            return testing::AssertionFailure() << count << " pixels at misalignment " << misalignment;
    }
    return testing::AssertionSuccess();
}

} // namespace

using ConversionsToBytesTest = AtEachLevel;
INSTANTIATE_TEST_SUITE_P(Levels, ConversionsToBytesTest, testing::ValuesIn(AtEachLevel::levels()),
                         AtEachLevel::nameOf);

TEST_P(ConversionsToBytesTest, specialNumbers_followTheRules)
{
    expectAsReference(Reference::specialFloats());
}

TEST_P(ConversionsToBytesTest, floatsAroundTies_areRoundedToEven)
{
    std::vector<float> ties(255);
    for (std::size_t byte = 0; byte < ties.size(); ++byte)
        ties[byte] = (static_cast<float>(byte) + 0.5f) / 255.0f;
    expectAsReference(Reference::neighbours(ties, 3));
}

TEST_P(ConversionsToBytesTest, floatsAroundWholeBytes_areTruncatedInAlpha)
{
    std::vector<float> bytes(256);
    for (std::size_t byte = 0; byte < bytes.size(); ++byte)
        bytes[byte] = static_cast<float>(byte) / 255.0f;
    expectAsReference(Reference::neighbours(bytes, 3));
}

TEST_P(ConversionsToBytesTest, randomBits_followTheRules)
{
    expectAsReference(Reference::randomFloats(1'000'000));
}

TEST_P(ConversionsToBytesTest, alpha_isTruncatedAndClamped)
{
    const Rgb pixels[] = {{0, 0, 0, 0.999f}, {0, 0, 0, -0.1f}, {0, 0, 0, 1.2f}, {0, 0, 0, 1.0f}};
    std::uint8_t bytes[16];
    rgbToRgba8(pixels, bytes, 4);
    EXPECT_EQ(bytes[3], 254);
    EXPECT_EQ(bytes[7], 0);
    EXPECT_EQ(bytes[11], 255);
    EXPECT_EQ(bytes[15], 255);
}

TEST_P(ConversionsToBytesTest, separateAlpha_isRounded)
{
    const Rgb pixel = {0.2f, 0.4f, 0.6f, 0.999f};
    std::uint8_t rgb[3];
    std::uint8_t alpha = 0;
    rgbToRgb8Alpha8(&pixel, rgb, &alpha, 1);
    EXPECT_EQ(rgb[0], 51);
    EXPECT_EQ(rgb[1], 102);
    EXPECT_EQ(rgb[2], 153);
    EXPECT_EQ(alpha, 255);
}

TEST_P(ConversionsToBytesTest, everyByte_comesBackFromItsFloat)
{
    Bytes bytes(std::size_t(256) * 3);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i / 3);
    std::vector<Rgb> pixels(256);
    rgb8ToRgb(bytes.data(), pixels.data(), 256);
    Bytes back(bytes.size());
    rgbToRgb8(pixels.data(), back.data(), 256);
    EXPECT_EQ(back, bytes);
}

TEST_P(ConversionsToBytesTest, everyCountAndAlignment_writesItsBytesOnly)
{
    const std::vector<Rgb> pixels = Reference::pixelsOf(Reference::randomFractions(MAX_PIXELS));
    std::vector<float> memory(MAX_PIXELS * 4 + 16);
    for (const Conversion& conversion : CONVERSIONS) {
        const Planes expected = expectedPlanes(conversion, pixels);
        for (std::size_t offset = 0; offset < ALIGNMENTS / sizeof(float); ++offset) {
            Rgb* const source = reinterpret_cast<Rgb*>(memory.data() + offset);
            std::ranges::copy(pixels, source);
            for (std::size_t count = 0; count <= MAX_PIXELS; ++count)
                ASSERT_TRUE(fitsEverywhere(conversion, expected, source, count))
                    << conversion.name << ", source " << offset;
        }
    }
}

TEST_P(ConversionsToBytesTest, everyCount_readsItsPixelsOnly)
{
    for (std::size_t count = 1; count <= MAX_PIXELS; ++count)
        expectAsReference(Reference::randomFractions(count));
}

TEST_P(ConversionsToBytesTest, largeOutput_equalsItsPartsAtEveryAlignment)
{
    const std::vector<Rgb> pixels =
        Reference::pixelsOf(Reference::randomFractions((std::size_t(16) << 20) / 3 + 77));
    const std::size_t count = pixels.size();
    constexpr std::size_t PART = 1000;
    for (const Conversion& conversion : CONVERSIONS) {
        Planes parts{Bytes(count * conversion.colourBytes), Bytes(count * conversion.alphaBytes)};
        for (std::size_t done = 0; done < count; done += PART)
            conversion.convert(pixels.data() + done, parts.colour.data() + done * conversion.colourBytes,
                               parts.alpha.data() + done * conversion.alphaBytes,
                               std::min(PART, count - done));
        for (const std::size_t offset : {0, 1, 4, 16}) {
            Planes whole{Bytes(offset + parts.colour.size() + 1, GUARD),
                         Bytes(offset + parts.alpha.size() + 1, GUARD)};
            conversion.convert(pixels.data(), whole.colour.data() + offset, whole.alpha.data() + offset,
                               count);
            EXPECT_TRUE(std::equal(parts.colour.begin(), parts.colour.end(),
                                   whole.colour.begin() + static_cast<std::ptrdiff_t>(offset)));
            EXPECT_TRUE(std::equal(parts.alpha.begin(), parts.alpha.end(),
                                   whole.alpha.begin() + static_cast<std::ptrdiff_t>(offset)));
            EXPECT_EQ(whole.colour.back(), GUARD);
            EXPECT_EQ(whole.alpha.back(), GUARD);
        }
    }
}

} // namespace Nolvex::Pixels
