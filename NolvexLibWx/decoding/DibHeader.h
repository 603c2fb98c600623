// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Optional.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Decoding {

/// The contents of the header of a device-independent bitmap, which BMP and ICO files share.
struct DibHeader
{
    enum class Compression : std::uint32_t
    {
        NONE = 0,
        RLE8 = 1,
        RLE4 = 2,
        BIT_FIELDS = 3,
    };

    /// The largest width and height, the same as in wxBMPHandler.
    static constexpr std::int32_t MAX_SIDE = 32767;

    std::int32_t width = 0;
    std::int32_t height = 0;
    bool isTopDown = false;
    std::uint32_t bits = 0;
    Compression compression = Compression::NONE;
    /// The masks of red, green, blue and alpha, which are set for bit fields only.
    std::array<std::uint32_t, 4> masks{};
    /// The number of colours in the palette, or 0 if there is no palette.
    std::uint32_t colours = 0;
    std::size_t paletteStart = 0;
    std::size_t paletteEntrySize = 4;
    /// The position behind header and palette. A BMP file may tell a later position for its pixels.
    std::size_t end = 0;

    bool isUsualSize() const { return width > 0 && width <= MAX_SIDE && height > 0 && height <= MAX_SIDE; }

    /// Returns the bytes of an uncompressed row with this many bits a pixel.
    std::size_t stride(std::uint32_t bitsPerPixel) const
    {
        return (static_cast<std::size_t>(width) * bitsPerPixel + 31) / 32 * 4;
    }

    /// Returns true if the file holds all uncompressed rows from `start` on. The last row may lack its
    /// padding.
    bool hasRows(std::size_t start, std::size_t fileSize) const;

    /// Returns true if each pixel of these rows has its colour in the palette.
    bool pixelsAreInPalette(ArrayView<const std::byte> file, std::size_t start) const;
};

/// Reads the header at `start`. Returns nullopt if the header is cut off, is of an unknown kind or
/// contradicts itself. The height in an icon counts the rows of picture and mask, so half of it is returned.
Optional<DibHeader> readDibHeader(ArrayView<const std::byte> file, std::size_t start, bool isIcon);

} // namespace Nolvex::Decoding
