// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Optional.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Decoding {

/// What the header of a device-independent bitmap says: the part that BMP and ICO files share.
struct DibHeader
{
    enum class Compression : std::uint32_t
    {
        NONE = 0,
        RLE8 = 1,
        RLE4 = 2,
        BIT_FIELDS = 3,
    };

    /// Of the sides, as in wxBMPHandler.
    static constexpr std::int32_t MAX_SIDE = 32767;

    std::int32_t width = 0;
    std::int32_t height = 0;
    bool isTopDown = false;
    std::uint32_t bits = 0;
    Compression compression = Compression::NONE;
    /// Of red, green, blue and alpha; for bit fields only.
    std::array<std::uint32_t, 4> masks{};
    /// Zero where there is no palette.
    std::uint32_t colours = 0;
    std::size_t paletteStart = 0;
    std::size_t paletteEntrySize = 4;
    /// Behind header and palette. A BMP file may say that the pixels start later.
    std::size_t end = 0;

    bool isUsualSize() const { return width > 0 && width <= MAX_SIDE && height > 0 && height <= MAX_SIDE; }

    /// The bytes of a row without compression, for this many bits a pixel.
    std::size_t stride(std::uint32_t bitsPerPixel) const
    {
        return (static_cast<std::size_t>(width) * bitsPerPixel + 31) / 32 * 4;
    }

    /// Whether the rows, not compressed, are there from `start` on. The last one may lack its padding.
    bool hasRows(std::size_t start, std::size_t fileSize) const;

    /// Whether each pixel of such rows has its colour in the palette.
    bool pixelsAreInPalette(ArrayView<const std::byte> file, std::size_t start) const;
};

/// The header that begins at `start`; none if it is cut off, of an unknown kind or contradicts itself. An
/// icon's header counts the rows of picture and mask: its height is halved.
Optional<DibHeader> readDibHeader(ArrayView<const std::byte> file, std::size_t start, bool isIcon);

} // namespace Nolvex::Decoding
