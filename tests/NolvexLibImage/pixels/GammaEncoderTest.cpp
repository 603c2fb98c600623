// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/GammaEncoder.h"

#include "AtEachLevel.h"
#include "Reference.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

namespace Nolvex::Pixels {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t MANY = 1'000'000;

const std::vector<float>& ordinaryExponents()
{
    static const std::vector<float> exponents = {
        1.0f / 2.2f, 1.0f / 2.4f, 1.0f / 1.8f, 0.0625f, 0.3f, 1.0f, 1.7f, 2.2f, 3.0f, 16.0f / 1.1f};
    return exponents;
}

const std::vector<float>& unusualExponents()
{
    using Limits = std::numeric_limits<float>;
    static const std::vector<float> exponents = {0.0f,
                                                 -0.0f,
                                                 -1.0f,
                                                 -2.2f,
                                                 2.0f,
                                                 4.0f,
                                                 1e-30f,
                                                 1e30f,
                                                 0.01f,
                                                 100.5f,
                                                 1.0f / 17.0f,
                                                 17.0f,
                                                 Limits::infinity(),
                                                 -Limits::infinity(),
                                                 Limits::quiet_NaN(),
                                                 Limits::denorm_min()};
    return exponents;
}

/// Returns the bits of the smallest float from 0 to 1 whose byte is `byte` or more.
int thresholdOf(int byte, float exponent)
{
    int low = 0;
    int high = std::bit_cast<int>(1.0f);
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (Reference::powerByte(std::bit_cast<float>(middle), exponent) >= byte)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

std::vector<float> thresholdsOf(float exponent)
{
    std::vector<float> thresholds;
    for (int byte = 1; byte < 256; ++byte)
        thresholds.push_back(std::bit_cast<float>(thresholdOf(byte, exponent)));
    return thresholds;
}

/// Encodes each value in each channel, alpha included. The last pixel is repeated to fill the last block.
testing::AssertionResult encodesAsPower(const GammaEncoder& encoder, float exponent,
                                        const std::vector<float>& values)
{
    const std::vector<Rgb> pixels = Reference::pixelsOf(values);
    Bytes rgb(pixels.size() * 3);
    Bytes alpha(pixels.size());
    encoder.encode(pixels.data(), rgb.data(), alpha.data(), pixels.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::uint8_t expected = Reference::powerByte(values[i], exponent);
        const std::size_t before = (i + values.size() - 1) % values.size();
        const std::size_t beforeThat = (i + 2 * values.size() - 2) % values.size();
        const std::size_t first = (i + 3 * values.size() - 3) % values.size();
        if (rgb[3 * i] != expected || rgb[3 * before + 1] != expected ||
            rgb[3 * beforeThat + 2] != expected || alpha[first] != expected)
            return testing::AssertionFailure() << values[i] << " to the power of " << exponent;
    }
    return testing::AssertionSuccess();
}

} // namespace

using GammaEncoderTest = AtEachLevel;
INSTANTIATE_TEST_SUITE_P(Levels, GammaEncoderTest, testing::ValuesIn(AtEachLevel::levels()),
                         AtEachLevel::nameOf);

TEST_P(GammaEncoderTest, encode_aroundEveryThreshold_isPower)
{
    for (const float exponent : ordinaryExponents()) {
        const GammaEncoder encoder(exponent, MANY);
        ASSERT_TRUE(encoder.hasTable()) << exponent;
        const std::vector<float> values = Reference::neighbours(thresholdsOf(exponent), 64);
        EXPECT_TRUE(encodesAsPower(encoder, exponent, values));
    }
}

TEST_P(GammaEncoderTest, encode_ofSpecialNumbers_isPower)
{
    for (const float exponent : ordinaryExponents())
        EXPECT_TRUE(encodesAsPower(GammaEncoder(exponent, MANY), exponent, Reference::specialFloats()));
    for (const float exponent : unusualExponents())
        EXPECT_TRUE(encodesAsPower(GammaEncoder(exponent, MANY), exponent, Reference::specialFloats()));
}

TEST_P(GammaEncoderTest, encode_ofRandomNumbers_isPower)
{
    for (const float exponent : {1.0f / 2.2f, 2.2f, 3.0f}) {
        const GammaEncoder encoder(exponent, MANY);
        EXPECT_TRUE(encodesAsPower(encoder, exponent, Reference::randomFloats(1'000'000)));
        EXPECT_TRUE(encodesAsPower(encoder, exponent, Reference::randomFractions(1'000'000)));
    }
}

TEST_P(GammaEncoderTest, encode_withUnusualExponents_isPower)
{
    for (const float exponent : unusualExponents()) {
        const GammaEncoder encoder(exponent, MANY);
        EXPECT_FALSE(encoder.hasTable()) << exponent;
        EXPECT_TRUE(encodesAsPower(encoder, exponent, Reference::randomFloats(2'000)));
        EXPECT_TRUE(encodesAsPower(encoder, exponent, Reference::randomFractions(2'000)));
    }
}

TEST_P(GammaEncoderTest, encode_ofFewPixels_isPowerWithoutATable)
{
    const GammaEncoder encoder(1.0f / 2.2f, 100);
    EXPECT_FALSE(encoder.hasTable());
    EXPECT_TRUE(encodesAsPower(encoder, 1.0f / 2.2f, Reference::randomFractions(100)));
    EXPECT_TRUE(encodesAsPower(encoder, 1.0f / 2.2f, Reference::specialFloats()));
}

TEST_P(GammaEncoderTest, encode_ofEveryCount_writesItsBytesOnly)
{
    const float exponent = 1.0f / 2.2f;
    const std::vector<Rgb> pixels = Reference::pixelsOf(Reference::randomFractions(70));
    for (const std::size_t planned : {std::size_t(1), MANY}) {
        const GammaEncoder encoder(exponent, planned);
        for (std::size_t count = 0; count <= pixels.size(); ++count) {
            const std::vector<Rgb> exact(pixels.begin(), pixels.begin() + static_cast<std::ptrdiff_t>(count));
            Bytes rgb(3 * count + 1, 0xa5);
            Bytes alpha(count + 1, 0xa5);
            encoder.encode(exact.data(), rgb.data(), alpha.data(), count);
            for (std::size_t i = 0; i < count; ++i) {
                ASSERT_EQ(rgb[3 * i], Reference::powerByte(exact[i].r, exponent)) << i << " of " << count;
                ASSERT_EQ(rgb[3 * i + 2], Reference::powerByte(exact[i].b, exponent)) << i << " of " << count;
                ASSERT_EQ(alpha[i], Reference::powerByte(exact[i].a, exponent)) << i << " of " << count;
            }
            ASSERT_EQ(rgb.back(), 0xa5) << count;
            ASSERT_EQ(alpha.back(), 0xa5) << count;
        }
    }
}

TEST_P(GammaEncoderTest, encode_withoutAlpha_givesTheSameColours)
{
    const std::vector<Rgb> pixels = Reference::pixelsOf(Reference::randomFractions(1001));
    for (const std::size_t planned : {std::size_t(1), MANY}) {
        const GammaEncoder encoder(1.0f / 2.2f, planned);
        Bytes rgb(pixels.size() * 3);
        Bytes alpha(pixels.size());
        encoder.encode(pixels.data(), rgb.data(), alpha.data(), pixels.size());
        Bytes coloursOnly(pixels.size() * 3 + 1, 0xa5);
        encoder.encode(pixels.data(), coloursOnly.data(), nullptr, pixels.size());
        EXPECT_TRUE(std::equal(rgb.begin(), rgb.end(), coloursOnly.begin()));
        EXPECT_EQ(coloursOnly.back(), 0xa5);
    }
}

TEST_P(GammaEncoderTest, encode_ofMoreThanTheCaches_equalsItsParts)
{
    const std::vector<Rgb> pixels =
        Reference::pixelsOf(Reference::randomFractions((std::size_t(16) << 20) / 3 + 77));
    const GammaEncoder encoder(1.0f / 2.2f, pixels.size());
    Bytes whole(pixels.size() * 3);
    encoder.encode(pixels.data(), whole.data(), nullptr, pixels.size());
    Bytes parts(pixels.size() * 3);
    constexpr std::size_t PART = 1000;
    for (std::size_t done = 0; done < pixels.size(); done += PART)
        encoder.encode(pixels.data() + done, parts.data() + 3 * done, nullptr,
                       std::min(PART, pixels.size() - done));
    EXPECT_TRUE(whole == parts);
}

TEST(GammaEncoderMoveTest, move_takesTheTableAlong)
{
    GammaEncoder source(1.0f / 2.2f, MANY);
    GammaEncoder target(std::move(source));
    EXPECT_TRUE(target.hasTable());
    target = GammaEncoder(2.2f, MANY);
    EXPECT_TRUE(encodesAsPower(target, 2.2f, Reference::randomFractions(1000)));
}

} // namespace Nolvex::Pixels
