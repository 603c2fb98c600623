// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Rgb.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Nolvex::Tests {

inline constexpr Rgb TRANSPARENT_BLACK{};

inline bool isOnOneOf(const Array<Bucket>& displays, Pixel point)
{
    return std::ranges::any_of(displays, [&](const Bucket& display) { return display.contains(point); });
}

/// `expected` returns the colour of a place on the screen.
template<class Expected>
void expectPixels(const BitmapImpl<Rgb>& image, const Bucket& region, Expected expected)
{
    ASSERT_EQ(image.size(), region.size());
    for (std::int32_t y = region.min.y; y < region.max.y; ++y) {
        for (std::int32_t x = region.min.x; x < region.max.x; ++x)
            ASSERT_EQ(image.at(x - region.min.x, y - region.min.y), expected(x, y))
                << "at " << x << ", " << y;
    }
}

} // namespace Nolvex::Tests
