// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// A colour with alpha. Values of 0 to 1 can be displayed; other values are kept, and clamped where they
/// become bytes.
struct Rgb
{
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 0.0f;

    friend constexpr bool operator==(const Rgb&, const Rgb&) = default;

    friend constexpr Rgb operator+(const Rgb& x, const Rgb& y)
    {
        return {x.r + y.r, x.g + y.g, x.b + y.b, x.a + y.a};
    }

    friend constexpr Rgb operator-(const Rgb& x, const Rgb& y)
    {
        return {x.r - y.r, x.g - y.g, x.b - y.b, x.a - y.a};
    }

    friend constexpr Rgb operator*(const Rgb& x, float factor)
    {
        return {x.r * factor, x.g * factor, x.b * factor, x.a * factor};
    }
};

// The image conversions read and write rows of Rgb as rows of floats.
static_assert(sizeof(Rgb) == 4 * sizeof(float));

} // namespace Nolvex
