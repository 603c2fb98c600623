// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex {

/// An integer point (x, y) or size (width in x, height in y), in pixels.
struct Pixel
{
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend constexpr bool operator==(const Pixel&, const Pixel&) = default;

    constexpr Pixel& operator+=(const Pixel& other) { return *this = *this + other; }

    constexpr Pixel& operator-=(const Pixel& other) { return *this = *this - other; }

    friend constexpr Pixel operator+(const Pixel& a, const Pixel& b) { return {a.x + b.x, a.y + b.y}; }

    friend constexpr Pixel operator-(const Pixel& a, const Pixel& b) { return {a.x - b.x, a.y - b.y}; }

    friend constexpr Pixel operator-(const Pixel& a) { return {-a.x, -a.y}; }

    friend constexpr Pixel operator*(const Pixel& a, std::int32_t factor)
    {
        return {a.x * factor, a.y * factor};
    }
};

} // namespace Nolvex
