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

/// A picture in memory. The bottom row comes first: y = 0 is the lowest row. The rows follow each other
/// without a gap, the pixels of a row too.
///
/// A copy owns pixels of its own (std::bad_alloc when there is no memory for them). An image that was moved
/// from has 0 x 0 pixels.
class NOLVEXLIBIMAGE_EXPORT Image
{
public:
    /// The limits of create().
    static constexpr std::int64_t MAX_PIXEL_COUNT = 0x7fff'ffff;
    static constexpr std::int64_t MAX_BYTE_COUNT = std::int64_t(16) << 30;

    /// An image whose bytes are all zero. The error is a sentence for the user: a side below 1, more than
    /// MAX_PIXEL_COUNT pixels or MAX_BYTE_COUNT bytes, or no memory left.
    static Expected<Image, String> create(std::int32_t width, std::int32_t height, PixelFormat format,
                                          float gamma);

    ~Image();
    Image(const Image& other);
    Image(Image&& other) noexcept;
    Image& operator=(const Image& other);
    Image& operator=(Image&& other) noexcept;

    const ImageDescriptor& descriptor() const noexcept { return m_descriptor; }

    /// 1, 3 or 4.
    static int getPixelFormatChannelCount(PixelFormat format);

    /// The bytes of one pixel, 1 to 16.
    static std::size_t getPixelFormatByteCount(PixelFormat format);

    /// The bytes of one row, and the distance from a row to the one above it.
    std::size_t rowBytes() const noexcept { return m_rowBytes; }

    /// The memory of a row, to be read and written through memcpy or as the type of the format. It is aligned
    /// for that type. A row outside the image is a programming error (StopException), here as below.
    ArrayView<std::byte> row(std::int32_t y);
    ArrayView<const std::byte> row(std::int32_t y) const;

    /// One pixel. Integers become 0 to 1, grey gives r = g = b, a missing alpha is 1.
    Rgb getRgba(std::int32_t x, std::int32_t y) const;

    /// A whole row as getRgba() reads its pixels; `destination` holds `width` pixels.
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
