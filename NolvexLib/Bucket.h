// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"

#include <algorithm>

namespace Nolvex {

/// An integer rectangle, half open: `min` is its top-left pixel, and `max` lies one past its bottom-right
/// pixel. A rectangle whose `max` does not lie beyond `min` is empty.
struct Bucket
{
    Pixel min;
    Pixel max;

    friend constexpr bool operator==(const Bucket&, const Bucket&) = default;

    constexpr std::int32_t width() const { return max.x - min.x; }

    constexpr std::int32_t height() const { return max.y - min.y; }

    constexpr Pixel size() const { return max - min; }

    constexpr bool isEmpty() const { return max.x <= min.x || max.y <= min.y; }

    constexpr bool contains(const Pixel& point) const
    {
        return point.x >= min.x && point.x < max.x && point.y >= min.y && point.y < max.y;
    }

    /// The pixels that both rectangles contain; empty if there are none.
    constexpr Bucket intersected(const Bucket& other) const
    {
        return {{std::max(min.x, other.min.x), std::max(min.y, other.min.y)},
                {std::min(max.x, other.max.x), std::min(max.y, other.max.y)}};
    }
};

} // namespace Nolvex
