// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Vector2.h"

#include <algorithm>

namespace Nolvex {

/// A closed axis-aligned box: both corners lie inside.
template<class Vector>
class BoundingBox;

template<>
class BoundingBox<Vector2>
{
public:
    constexpr BoundingBox() = default;

    /// The box spanned by two corners, given in any order.
    constexpr BoundingBox(const Vector2& a, const Vector2& b)
        : min{std::min(a.x, b.x), std::min(a.y, b.y)}, max{std::max(a.x, b.x), std::max(a.y, b.y)}
    {}

    friend constexpr bool operator==(const BoundingBox&, const BoundingBox&) = default;

    constexpr bool contains(const Vector2& point) const
    {
        return point.x >= min.x && point.x <= max.x && point.y >= min.y && point.y <= max.y;
    }

    /// The squared Euclidean distance from the point to the nearest point of the box, which is 0 for a point
    /// inside.
    constexpr float squaredDistance(const Vector2& point) const
    {
        const float dx = std::max({min.x - point.x, 0.0f, point.x - max.x});
        const float dy = std::max({min.y - point.y, 0.0f, point.y - max.y});
        return dx * dx + dy * dy;
    }

    Vector2 min;
    Vector2 max;
};

} // namespace Nolvex
