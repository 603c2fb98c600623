// SPDX-License-Identifier: MIT
//
// Compares GammaEncoder with powf for every float that exists, which takes too long for a test.
#include "NolvexLibImage/pixels/GammaEncoder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using namespace Nolvex;

/// The check encodes this many pixels of four floats at a time.
constexpr std::uint64_t BATCH = 1U << 16;
constexpr std::uint64_t ALL_FLOATS = std::uint64_t(1) << 32;

std::uint8_t encodePower(float value, float exponent)
{
    const float power = std::pow(value, exponent);
    const float clamped = std::isnan(power) ? 0.0f : std::clamp(power, 0.0f, 1.0f);
    return static_cast<std::uint8_t>(std::lrint(clamped * 255.0f));
}

float floatAt(std::uint64_t bits)
{
    return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
}

/// Checks the floats from `first` on, and returns how many results differ.
std::uint64_t countDifferences(const Pixels::GammaEncoder& encoder, float exponent, std::uint64_t first)
{
    static std::vector<Rgb> pixels(BATCH);
    static std::vector<std::uint8_t> rgb(3 * BATCH);
    static std::vector<std::uint8_t> alpha(BATCH);
    for (std::uint64_t i = 0; i < BATCH; ++i) {
        const std::uint64_t bits = first + 4 * i;
        pixels[i] = {floatAt(bits), floatAt(bits + 1), floatAt(bits + 2), floatAt(bits + 3)};
    }
    encoder.encode(pixels.data(), rgb.data(), alpha.data(), BATCH);

    std::uint64_t differences = 0;
    for (std::uint64_t i = 0; i < 4 * BATCH; ++i) {
        const std::uint8_t byte = i % 4 == 3 ? alpha[i / 4] : rgb[i / 4 * 3 + i % 4];
        if (byte != encodePower(floatAt(first + i), exponent))
            ++differences;
    }
    return differences;
}

/// Returns whether the results agree for all floats.
bool check(float exponent)
{
    const Pixels::GammaEncoder encoder(exponent);
    std::uint64_t differences = 0;
    for (std::uint64_t first = 0; first < ALL_FLOATS; first += 4 * BATCH)
        differences += countDifferences(encoder, exponent, first);
    std::printf("exponent %.9g, %s: %llu of 4294967296 floats differ from powf\n",
                static_cast<double>(exponent), encoder.hasTable() ? "by table" : "without a table",
                static_cast<unsigned long long>(differences));
    return differences == 0;
}

} // namespace

/// The arguments are the exponents. Without arguments the exponent is 1/2.2. Returns 1 if the result for any
/// float differs.
int main(int argc, char** argv)
{
    bool agrees = true;
    for (int i = 1; i < argc; ++i)
        agrees = check(std::strtof(argv[i], nullptr)) && agrees;
    if (argc == 1)
        agrees = check(1.0f / 2.2f);
    return agrees ? 0 : 1;
}
