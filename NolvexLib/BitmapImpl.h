// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/StopException.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace Nolvex {

/// A picture in memory: width x height pixels, row by row from the top. The pixel (x, y) has the index
/// width * y + x. The picture is empty if its width or height is below 1.
template<class PixelType>
class BitmapImpl
{
public:
    BitmapImpl() = default;

    /// Sets all pixels to `value`. A size below 1 gives an empty bitmap, which keeps that size. Throws
    /// std::bad_alloc or std::length_error if there is not enough memory.
    BitmapImpl(std::int32_t width, std::int32_t height, const PixelType& value = {})
        : m_width(width), m_height(height), m_pixels(pixelCount(width, height), value)
    {}

    BitmapImpl(const BitmapImpl&) = default;
    BitmapImpl& operator=(const BitmapImpl&) = default;

    /// Leaves `other` empty, with a size of 0 x 0.
    BitmapImpl(BitmapImpl&& other) noexcept
        : m_width(std::exchange(other.m_width, 0)),
          m_height(std::exchange(other.m_height, 0)),
          m_pixels(std::exchange(other.m_pixels, {}))
    {}

    BitmapImpl& operator=(BitmapImpl&& other) noexcept
    {
        BitmapImpl taken(std::move(other));
        std::swap(m_width, taken.m_width);
        std::swap(m_height, taken.m_height);
        m_pixels.swap(taken.m_pixels);
        return *this;
    }

    ~BitmapImpl() = default;

    friend bool operator==(const BitmapImpl&, const BitmapImpl&) = default;

    std::int32_t width() const { return m_width; }

    std::int32_t height() const { return m_height; }

    Pixel size() const { return {m_width, m_height}; }

    bool isEmpty() const { return m_pixels.empty(); }

    /// The number of pixels. It may exceed 32 bits.
    std::size_t count() const { return m_pixels.size(); }

    PixelType* data() { return m_pixels.data(); }

    const PixelType* data() const { return m_pixels.data(); }

    /// The first pixel of row y. The caller makes sure that 0 <= y < height: loops over rows are not to pay
    /// for a check.
    PixelType* row(std::int32_t y) { return data() + rowOffset(y); }

    const PixelType* row(std::int32_t y) const { return data() + rowOffset(y); }

    /// The pixel at (x, y). A position outside the bitmap is a programming error (StopException).
    PixelType& at(std::int32_t x, std::int32_t y) { return m_pixels[checkedOffset(x, y)]; }

    const PixelType& at(std::int32_t x, std::int32_t y) const { return m_pixels[checkedOffset(x, y)]; }

private:
    static std::size_t pixelCount(std::int32_t width, std::int32_t height)
    {
        return width < 1 || height < 1 ? 0
                                       : static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }

    std::size_t rowOffset(std::int32_t y) const
    {
        return static_cast<std::size_t>(m_width) * static_cast<std::size_t>(y);
    }

    std::size_t checkedOffset(std::int32_t x, std::int32_t y) const
    {
        if (x < 0 || y < 0 || x >= m_width || y >= m_height)
            Detail::throwStopException("BitmapImpl", __LINE__);
        return rowOffset(y) + static_cast<std::size_t>(x);
    }

    std::int32_t m_width = 0;
    std::int32_t m_height = 0;
    Array<PixelType> m_pixels;
};

} // namespace Nolvex
