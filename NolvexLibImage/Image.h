// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/Export.h"
#include "NolvexLibImage/ImageDescriptor.h"

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Nolvex {

/// A picture in memory. The bottom row comes first: y = 0 is the lowest row. There are no gaps between the
/// rows, nor between the pixels of a row.
///
/// Copying copies the pixels, and throws std::bad_alloc if there is not enough memory. An image that was
/// moved from has 0 x 0 pixels.
class NOLVEXLIBIMAGE_EXPORT Image
{
public:
    /// The largest images that create() makes.
    static constexpr std::int64_t MAX_PIXEL_COUNT = 0x7fff'ffff;
    static constexpr std::int64_t MAX_BYTE_COUNT = std::int64_t(16) << 30;

    /// Makes an image whose bytes are all zero. That fails if a side is below 1, for more than
    /// MAX_PIXEL_COUNT pixels or MAX_BYTE_COUNT bytes, and if there is not enough memory. The error is a
    /// sentence for the user.
    static Expected<Image, String> create(std::int32_t width, std::int32_t height, PixelFormat format,
                                          float gamma);

    ~Image();
    Image(const Image& other);
    Image(Image&& other) noexcept;
    Image& operator=(const Image& other);
    Image& operator=(Image&& other) noexcept;

    const ImageDescriptor& descriptor() const noexcept { return m_descriptor; }

    /// The number of channels: 1, 3 or 4.
    static int getPixelFormatChannelCount(PixelFormat format);

    /// The number of bytes in a pixel: 1 to 16.
    static std::size_t getPixelFormatByteCount(PixelFormat format);

    /// The number of bytes in a row, which is also the distance from a row to the row above.
    std::size_t rowBytes() const noexcept { return m_rowBytes; }

    /// The memory of a row. It is aligned for the numbers of the format. Here and below, a row or column
    /// outside the image is a programming error (StopException).
    ArrayView<std::byte> row(std::int32_t y);
    ArrayView<const std::byte> row(std::int32_t y) const;

    /// Reads one pixel. Integers become 0 to 1, grey gives r = g = b, and alpha is 1 in formats without
    /// alpha.
    Rgb getRgba(std::int32_t x, std::int32_t y) const;

    /// Reads a whole row as getRgba() reads its pixels. `destination` has room for `width` pixels.
    void readRow(std::int32_t y, Rgb* destination) const;

private:
    struct Free
    {
        void operator()(std::byte* memory) const noexcept;
    };

    using Memory = std::unique_ptr<std::byte, Free>;

    Image(const ImageDescriptor& descriptor, Memory memory);

    static Memory allocate(std::size_t size) noexcept;
    std::size_t byteCount() const noexcept;
    std::byte* rowStart(std::int32_t y) const;

    ImageDescriptor m_descriptor;
    std::size_t m_rowBytes = 0;
    Memory m_memory;
};

} // namespace Nolvex
