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

/// An image in the form that the Windows clipboard (CF_DIB) and BMP files share: a BITMAPINFOHEADER of 40
/// bytes, then rows of blue, green and red, 24 bits a pixel, each row padded with zeros to a multiple of four
/// bytes. Colours are clamped to 0 to 1 and rounded to bytes, ties to even; alpha is dropped.
///
/// The rows have the order of the image. Programs show the first row of this form at the bottom, so that row
/// 0 of the image is the lowest.
class NOLVEXLIBWX_EXPORT DeviceIndependentBitmap
{
public:
    static constexpr std::size_t FILE_HEADER_SIZE = 14;
    static constexpr std::size_t HEADER_SIZE = 40;

    /// The largest size of a whole file. Programs that receive a file count its bytes in 32 bits.
    static constexpr std::int64_t MAX_FILE_SIZE = 0x7fff'ffff;

    /// Returns the bytes of a row: 3 * width rounded up to a multiple of 4.
    static constexpr std::int64_t stride(std::int32_t width) { return (std::int64_t(width) * 3 + 3) / 4 * 4; }

    /// The bitmap is empty for an empty image and for an image that would exceed MAX_FILE_SIZE. Throws
    /// std::bad_alloc.
    explicit DeviceIndependentBitmap(const BitmapImpl<Rgb>& image);

    bool isEmpty() const { return m_file.empty(); }

    Pixel size() const { return m_size; }

    /// Returns true if red, green and blue are the same bytes in every pixel. An empty bitmap is grey.
    bool isGrey() const { return m_grey; }

    /// Changes the blue byte of the first pixel of a grey bitmap by one level: 0 becomes 1, any other byte
    /// decreases. Programs that reduce grey pictures to shades of grey then find colour. Does nothing to a
    /// coloured or an empty bitmap.
    void disguiseGrey();

    /// Returns the header and the rows, the form in which the Windows clipboard takes them.
    ArrayView<const std::uint8_t> bytes() const;

    /// Returns the whole BMP file, which has 14 more bytes in front of bytes().
    ArrayView<const std::uint8_t> fileBytes() const { return m_file; }

    /// Returns the first pixel of a row. `y` is not checked: 0 <= y < height.
    const std::uint8_t* row(std::int32_t y) const;

private:
    void writeHeaders();
    void writeRows(const BitmapImpl<Rgb>& image);

    Pixel m_size;
    Array<std::uint8_t> m_file;
    bool m_grey = true;
};

} // namespace Nolvex
