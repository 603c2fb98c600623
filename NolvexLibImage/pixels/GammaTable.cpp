// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/GammaTable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace Nolvex::Pixels {

namespace {

/// Between 0 and 1 floats are ordered as their bits are: everything below counts in bits.
constexpr std::uint32_t ONE = std::bit_cast<std::uint32_t>(1.0f);

/// Outside of these the bytes change so steeply or so slowly that tables become large or steps of powf
/// uneven.
constexpr float SMALLEST_EXPONENT = 1.0f / 16.0f;
constexpr float LARGEST_EXPONENT = 16.0f;

/// How wide buckets may be: as wide as the steepest part allows, since a small table stays in the cache.
constexpr std::int32_t WIDEST_SHIFT = 20;
constexpr std::int32_t NARROWEST_SHIFT = 10;
constexpr std::size_t MOST_ENTRIES = std::size_t(1) << 16;

/// How far around its threshold every byte is compared with powf.
constexpr std::uint32_t CHECKED_STEPS = 4;

/// Element k - 1: the smallest float whose byte is k or more.
using Thresholds = std::array<std::uint32_t, 255>;

std::uint8_t encodeBits(std::uint32_t bits, float exponent)
{
    return encodePower(std::bit_cast<float>(bits), exponent);
}

/// The smallest bits in (low, ONE] whose byte is `byte` or more, which is true of 1.
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

/// Zero when the thresholds are too close.
std::int32_t findShift(const Thresholds& thresholds)
{
    std::int32_t shift = WIDEST_SHIFT;
    while (shift >= NARROWEST_SHIFT && !haveOneABucket(thresholds, shift))
        --shift;
    return shift < NARROWEST_SHIFT ? 0 : shift;
}

/// For the bucket that begins at `start`; `passed` thresholds lie before it, `next` is the one after these.
/// Adding the bits and shifting gives `passed`, and one more from the threshold on.
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
    // Even exponents turn negative numbers into positive ones: not worth a second kind of table.
    return exponent >= SMALLEST_EXPONENT && exponent <= LARGEST_EXPONENT && !isWhole(exponent / 2.0f);
}

} // namespace

std::uint8_t encodePower(float value, float exponent)
{
    const float power = std::pow(value, exponent);
    // NaN passes no comparison, so it gives 0 as well.
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
    if ((ONE >> shift) - firstBucket >= MOST_ENTRIES)
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
