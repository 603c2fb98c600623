// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BoundingBox.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/Vector2.h"

#include <wx/gdicmn.h>

#include <cstdint>
#include <limits>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

namespace Detail {

// Sums that are too large wrap around, so that a rectangle with any corners is the same after the conversion
// to wxRect and back.
constexpr std::int32_t wrappingAdd(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr std::int32_t wrappingSubtract(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

/// Cuts off the fraction. Values beyond the range of integers become the nearest integer, NaN becomes 0.
constexpr std::int32_t truncate(float value)
{
    constexpr float LIMIT = 2147483648.0f;
    if (value >= LIMIT)
        return std::numeric_limits<std::int32_t>::max();
    if (value < -LIMIT)
        return std::numeric_limits<std::int32_t>::min();
    return value == value ? static_cast<std::int32_t>(value) : 0;
}

} // namespace Detail

inline Pixel toPixel(const wxSize& size)
{
    return {size.x, size.y};
}

inline Pixel toPixel(const wxPoint& point)
{
    return {point.x, point.y};
}

inline wxPoint toWxPoint(const Pixel& pixel)
{
    return {pixel.x, pixel.y};
}

inline wxSize toWxSize(const Pixel& pixel)
{
    return {pixel.x, pixel.y};
}

/// Returns a half-open rectangle: `max` lies one pixel beyond the last pixel.
inline Bucket toBucket(const wxRect& rect)
{
    return {{rect.x, rect.y},
            {Detail::wrappingAdd(rect.x, rect.width), Detail::wrappingAdd(rect.y, rect.height)}};
}

/// The inverse of toBucket.
inline wxRect toWxRect(const Bucket& bucket)
{
    return {bucket.min.x, bucket.min.y, Detail::wrappingSubtract(bucket.max.x, bucket.min.x),
            Detail::wrappingSubtract(bucket.max.y, bucket.min.y)};
}

/// Returns the box whose corners are the first and the last pixel: 10 pixels from x = 0 on span 0 to 9. If
/// the width or the height is 0 or negative, the corners are swapped.
inline BoundingBox<Vector2> toBoundingBox2(const wxRect& rect)
{
    const auto last = [](int start, int length) {
        return static_cast<float>(static_cast<std::int64_t>(start) + length - 1);
    };
    return {Vector2{static_cast<float>(rect.x), static_cast<float>(rect.y)},
            Vector2{last(rect.x, rect.width), last(rect.y, rect.height)}};
}

/// Returns (x + width / 2, y + height / 2), with halves truncated toward zero.
inline Pixel getRectCenter(const wxRect& rect)
{
    return {Detail::wrappingAdd(rect.x, rect.width / 2), Detail::wrappingAdd(rect.y, rect.height / 2)};
}

// The window is part of the signatures but is ignored, and may be null: the conversions are the same for
// every window. None of them scales by DPI.

inline Vector2 pixelToPoint(int x, int y, const wxWindow* /*window*/)
{
    return {static_cast<float>(x), static_cast<float>(y)};
}

inline Vector2 pixelToPoint(const Pixel& pixel, const wxWindow* window)
{
    return pixelToPoint(pixel.x, pixel.y, window);
}

/// Truncates toward zero.
inline Pixel pointToPixel(float x, float y, const wxWindow* /*window*/)
{
    return {Detail::truncate(x), Detail::truncate(y)};
}

inline Pixel pointToPixel(const Vector2& point, const wxWindow* window)
{
    return pointToPixel(point.x, point.y, window);
}

/// Converts by way of float, which is exact for numbers up to 2^24 only.
inline Pixel pointToPixel(int x, int y, const wxWindow* window)
{
    return pointToPixel(static_cast<float>(x), static_cast<float>(y), window);
}

inline Pixel pointToPixel(const Pixel& pixel, const wxWindow* window)
{
    return pointToPixel(pixel.x, pixel.y, window);
}

} // namespace Nolvex::Wx
