// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/detail/GammaTable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace Nolvex::Pixels {

namespace {

/// Floats from 0 to 1 have the same order as their bits, so everything below works on the bits.
constexpr std::uint32_t ONE = std::bit_cast<std::uint32_t>(1.0f);

/// With other exponents the byte changes so fast or so slowly that tables become large or powf is not
/// monotonic.
constexpr float MIN_EXPONENT = 1.0f / 16.0f;
constexpr float MAX_EXPONENT = 16.0f;

/// Buckets are as wide as the steepest part of the curve allows, since a small table stays in the cache.
constexpr std::int32_t MAX_SHIFT = 20;
constexpr std::int32_t MIN_SHIFT = 10;
constexpr std::size_t MAX_ENTRIES = std::size_t(1) << 16;

/// The number of floats before and after each threshold that are compared with powf.
constexpr std::uint32_t CHECKED_STEPS = 4;

/// The element k - 1 is the smallest float whose byte is k or more.
using Thresholds = std::array<std::uint32_t, 255>;

std::uint8_t encodeBits(std::uint32_t bits, float exponent)
{
    return encodePower(std::bit_cast<float>(bits), exponent);
}

/// The smallest bits in (low, ONE] whose byte is `byte` or more. The byte of ONE is 255.
std::uint32_t findThreshold(std::uint32_t low, int byte, float exponent)
{
    std::uint32_t high = ONE;
    while (high - low > 1) {
        const std::uint32_t middle = low + (high - low) / 2;
        (encodeBits(middle, exponent) >= byte ? high : low) = middle;
    }
    return high;
}

Thresholds findThresholds(float exponent)
{
    Thresholds thresholds{};
    std::uint32_t below = 0;
    int byte = 0;
    for (std::uint32_t& threshold : thresholds) {
        threshold = findThreshold(below, ++byte, exponent);
        below = threshold - 1;
    }
    return thresholds;
}

bool haveOneABucket(const Thresholds& thresholds, std::int32_t shift)
{
    const auto inOneBucket = [shift](std::uint32_t a, std::uint32_t b) { return a >> shift == b >> shift; };
    return std::ranges::adjacent_find(thresholds, inOneBucket) == thresholds.end();
}

/// Returns 0 if the thresholds are too close to each other.
std::int32_t findShift(const Thresholds& thresholds)
{
    std::int32_t shift = MAX_SHIFT;
    while (shift >= MIN_SHIFT && !haveOneABucket(thresholds, shift))
        --shift;
    return shift < MIN_SHIFT ? 0 : shift;
}

/// The entry of the bucket that begins at `start`. `passed` thresholds lie before the bucket, and `next` is
/// the threshold after these or null. Adding the bits of a float and shifting gives `passed`, or `passed` + 1
/// from `next` on.
std::uint32_t makeEntry(std::uint32_t start, std::uint32_t passed, const std::uint32_t* next,
                        std::int32_t shift)
{
    const std::uint32_t size = 1U << shift;
    const bool changes = next != nullptr && *next - start < size;
    return (passed << shift) + (changes ? size - *next : 0U - start);
}

Array<std::uint32_t> makeEntries(const Thresholds& thresholds, std::uint32_t firstBucket, std::int32_t shift)
{
    Array<std::uint32_t> entries((ONE >> shift) - firstBucket + 1);
    std::uint32_t passed = 0;
    std::uint32_t start = firstBucket << shift;
    for (std::uint32_t& entry : entries) {
        while (passed < thresholds.size() && thresholds[passed] < start)
            ++passed;
        const bool more = passed < thresholds.size();
        entry = makeEntry(start, passed, more ? &thresholds[passed] : nullptr, shift);
        start += 1U << shift;
    }
    return entries;
}

std::uint8_t lookUp(const Detail::GammaLookup& lookup, std::uint32_t bits)
{
    const std::uint32_t entry = lookup.entries[(bits >> lookup.shift) - lookup.firstBucket];
    return static_cast<std::uint8_t>((entry + bits) >> lookup.shift);
}

bool agreesWithPower(const Detail::GammaLookup& lookup, const Thresholds& thresholds, float exponent)
{
    const std::uint32_t lowest = std::bit_cast<std::uint32_t>(lookup.lowest);
    return std::ranges::all_of(thresholds, [&](std::uint32_t threshold) {
        const std::uint32_t first = std::max(threshold, lowest + CHECKED_STEPS) - CHECKED_STEPS;
        const std::uint32_t last = std::min(threshold + CHECKED_STEPS, ONE);
        for (std::uint32_t bits = first; bits <= last; ++bits) {
            if (lookUp(lookup, bits) != encodeBits(bits, exponent))
                return false;
        }
        return true;
    });
}

bool isWhole(float number)
{
    return number == std::trunc(number);
}

bool isOrdinary(float exponent)
{
    // Even exponents turn negative numbers into positive numbers, for which a second kind of table would be
    // needed.
    return exponent >= MIN_EXPONENT && exponent <= MAX_EXPONENT && !isWhole(exponent / 2.0f);
}

} // namespace

std::uint8_t encodePower(float value, float exponent)
{
    const float power = std::pow(value, exponent);
    // NaN gives 0 as well, because no comparison with NaN is true.
    const float clamped = power > 0.0f ? std::min(power, 1.0f) : 0.0f;
    return static_cast<std::uint8_t>(std::nearbyint(clamped * 255.0f));
}

std::unique_ptr<const GammaTable> GammaTable::make(float exponent)
{
    if (!isOrdinary(exponent))
        return nullptr;
    const Thresholds thresholds = findThresholds(exponent);
    const std::int32_t shift = findShift(thresholds);
    if (shift == 0)
        return nullptr;
    const std::uint32_t firstBucket = (thresholds.front() - 1) >> shift;
    if ((ONE >> shift) - firstBucket >= MAX_ENTRIES)
        return nullptr;

    auto table = std::make_unique<GammaTable>();
    table->entries = makeEntries(thresholds, firstBucket, shift);
    table->lookup = {
        .entries = table->entries.data(),
        .firstBucket = firstBucket,
        .shift = shift,
        .lowest = std::bit_cast<float>(firstBucket << shift),
        .infinityFlip = isWhole(exponent) ? 0U : 0x8000'0000U,
    };
    if (!agreesWithPower(table->lookup, thresholds, exponent))
        return nullptr;
    return table;
}

} // namespace Nolvex::Pixels
