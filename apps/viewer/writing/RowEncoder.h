// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/ColorFormat.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibImage/Image.h"
#include "NolvexLibImage/pixels/GammaEncoder.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// Makes the rows of a file out of the rows of an image: three colours for each pixel, and alpha if wanted,
/// as numbers of the colour format in the byte order of this machine.
///
/// Colours are encoded for display in the formats of integers, and are linear light in the formats of floats.
/// Integers are clamped and rounded to the nearest; floats keep negative values, infinities and NaN. Alpha is
/// never encoded.
class RowEncoder
{
public:
    /// The image must outlive the encoder. DEFAULT stands for UINT8_RGB.
    RowEncoder(const Image& image, ColorFormat format, bool alpha);

    int channelCount() const { return m_alpha ? 4 : 3; }

    std::size_t channelBytes() const;

    std::size_t rowBytes() const;

    /// Writes the row, counted from the top, to `destination`, which has room for rowBytes().
    void encode(std::int32_t rowFromTop, std::byte* destination);

private:
    void encodeBytes(std::byte* destination);
    template<class Number, class Convert>
    void encodeNumbers(std::byte* destination, float exponent, Convert convert) const;

    const Image& m_image;
    ColorFormat m_format;
    bool m_alpha;
    Pixels::GammaEncoder m_gamma;
    Array<Rgb> m_row;
    Array<std::uint8_t> m_colours;
};

} // namespace Nolvex::Viewer
