// SPDX-License-Identifier: MIT
#include "apps/viewer/HalfFloat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

using namespace Nolvex;
using Viewer::toHalf;

namespace {

// Half floats, computed by arithmetic instead of by bits.
float halfValue(std::uint16_t half)
{
    const int exponent = half >> 10 & 31;
    const auto mantissa = static_cast<float>(half & 1023);
    return exponent == 0 ? std::ldexp(mantissa, -24) : std::ldexp(1024.0f + mantissa, exponent - 25);
}

} // namespace

TEST(HalfFloatTest, ofEveryHalf_isThatHalf)
{
    for (std::uint32_t half = 0; half < 0x7c00; ++half) {
        const auto bits = static_cast<std::uint16_t>(half);
        ASSERT_EQ(toHalf(halfValue(bits)), bits);
        ASSERT_EQ(toHalf(-halfValue(bits)), bits | 0x8000);
    }
}

TEST(HalfFloatTest, betweenTwoHalves_takesTheNearerOneAndInTheMiddleTheEvenOne)
{
    for (std::uint32_t half = 0; half < 0x7bff; ++half) {
        const auto lower = static_cast<std::uint16_t>(half);
        const auto upper = static_cast<std::uint16_t>(half + 1);
        const float middle = (halfValue(lower) + halfValue(upper)) / 2.0f;
        ASSERT_EQ(toHalf(middle), half % 2 == 0 ? lower : upper) << half;
        ASSERT_EQ(toHalf(std::nextafter(middle, 0.0f)), lower) << half;
        ASSERT_EQ(toHalf(std::nextafter(middle, INFINITY)), upper) << half;
    }
}

TEST(HalfFloatTest, ofWhatIsTooLarge_isInfiniteAndOfNanNan)
{
    EXPECT_EQ(toHalf(65519.99f), 0x7bff);
    EXPECT_EQ(toHalf(65520.0f), 0x7c00);
    EXPECT_EQ(toHalf(-std::numeric_limits<float>::max()), 0xfc00);
    EXPECT_EQ(toHalf(INFINITY), 0x7c00);
    EXPECT_EQ(toHalf(NAN) & 0x7c00, 0x7c00);
    EXPECT_NE(toHalf(NAN) & 0x03ff, 0);
}
