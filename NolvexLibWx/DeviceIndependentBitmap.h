// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/Export.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex {

/// A picture as bytes in the form that the Windows clipboard (CF_DIB) and BMP files share: a BITMAPINFOHEADER
/// of 40 bytes, then rows of blue, green, red, 24 bits a pixel, each row padded with zeros to a multiple of
/// four bytes. Colours are clamped to 0 to 1 and rounded, ties to even; alpha is dropped.
///
/// The rows stand in the image's order, and the form shows its first row at the bottom: row 0 of the image is
/// the lowest.
class NOLVEXLIBWX_EXPORT DeviceIndependentBitmap
{
public:
    static constexpr std::size_t FILE_HEADER_SIZE = 14;
    static constexpr std::size_t HEADER_SIZE = 40;

    /// Of a file as a whole; receivers count its bytes in 32 bits.
    static constexpr std::int64_t MAX_FILE_SIZE = 0x7fff'ffff;

    /// 3 * width rounded up to a multiple of 4.
    static constexpr std::int64_t stride(std::int32_t width) { return (std::int64_t(width) * 3 + 3) / 4 * 4; }

    /// Empty for an empty image and for one beyond MAX_FILE_SIZE. std::bad_alloc when there is no memory.
    explicit DeviceIndependentBitmap(const BitmapImpl<Rgb>& image);

    bool isEmpty() const { return m_file.empty(); }

    Pixel size() const { return m_size; }

    /// Whether red, green and blue are the same bytes in every pixel. True of an empty one.
    bool isGrey() const { return m_grey; }

    /// Changes the blue byte of the first pixel of a grey picture by one level, 0 to 1 and any other down, so
    /// that programs that look for shades of grey find colour. Does nothing to a coloured or empty one.
    void disguiseGrey();

    /// Header and rows, as the Windows clipboard takes them.
    ArrayView<const std::uint8_t> bytes() const;

    /// The same behind the 14 bytes that make it a BMP file.
    ArrayView<const std::uint8_t> fileBytes() const { return m_file; }

    /// The first pixel of a row, 0 <= y < height (not checked).
    const std::uint8_t* row(std::int32_t y) const;

private:
    void writeHeaders();
    void writeRows(const BitmapImpl<Rgb>& image);

    Pixel m_size;
    Array<std::uint8_t> m_file;
    bool m_grey = true;
};

} // namespace Nolvex
