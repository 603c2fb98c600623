// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace Nolvex::RenderSample {

/// A point, a direction, or a colour in linear light; products are taken component by component.
struct Vector3
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend Vector3 operator+(const Vector3& a, const Vector3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }

    friend Vector3 operator-(const Vector3& a, const Vector3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }

    friend Vector3 operator*(const Vector3& a, const Vector3& b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }

    friend Vector3 operator*(const Vector3& a, double factor) { return a * Vector3{factor, factor, factor}; }
};

inline double dot(const Vector3& a, const Vector3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vector3 cross(const Vector3& a, const Vector3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline Vector3 normalized(const Vector3& a)
{
    return a * (1.0 / std::sqrt(dot(a, a)));
}

inline Vector3 mix(const Vector3& a, const Vector3& b, double share)
{
    return a * (1.0 - share) + b * share;
}

} // namespace Nolvex::RenderSample
