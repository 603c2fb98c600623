// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// A point or displacement in floating-point pixels.
struct Vector2
{
    float x = 0.0f;
    float y = 0.0f;

    friend constexpr bool operator==(const Vector2&, const Vector2&) = default;

    constexpr Vector2& operator+=(const Vector2& other) { return *this = *this + other; }

    constexpr Vector2& operator-=(const Vector2& other) { return *this = *this - other; }

    friend constexpr Vector2 operator+(const Vector2& a, const Vector2& b) { return {a.x + b.x, a.y + b.y}; }

    friend constexpr Vector2 operator-(const Vector2& a, const Vector2& b) { return {a.x - b.x, a.y - b.y}; }

    friend constexpr Vector2 operator-(const Vector2& a) { return {-a.x, -a.y}; }

    friend constexpr Vector2 operator*(const Vector2& a, float factor)
    {
        return {a.x * factor, a.y * factor};
    }
};

} // namespace Nolvex
