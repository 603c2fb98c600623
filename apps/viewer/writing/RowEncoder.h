// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ColorFormat.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibImage/Image.h"
#include "NolvexLibImage/pixels/GammaEncoder.h"
#include "apps/viewer/AlphaKind.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/writing/FileRows.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// Makes the rows of a file out of the rows of a picture, as numbers of the colour format.
///
/// Colours are encoded for display in the formats of integers, and are linear light in the formats of floats.
/// Integers are clamped and rounded to the nearest; floats keep negative values, infinities and NaN. Alpha is
/// never encoded.
///
/// Colours are divided by alpha or multiplied by alpha if the file wants the other kind of alpha. Where an
/// associated alpha is 0, straight colours are those of the picture.
class RowEncoder : public FileRows
{
public:
    /// The picture must outlive the encoder. DEFAULT stands for UINT8_RGB. `alpha` is the kind of alpha that
    /// the file wants, or nullopt to leave alpha out. The formats of integers have straight alpha only.
    RowEncoder(const Picture& picture, ColorFormat format, Optional<AlphaKind> alpha);

    wxSize size() const override { return {m_image.descriptor().width, m_image.descriptor().height}; }

    int channelCount() const override { return m_alpha ? 4 : 3; }

    std::size_t channelBytes() const override;

    void encode(std::int32_t rowFromTop, std::byte* destination) override;

private:
    void encodeBytes(std::byte* destination);
    template<class Number, class Convert>
    void encodeNumbers(std::byte* destination, Convert convert) const;

    const Image& m_image;
    ColorFormat m_format;
    bool m_alpha;
    float m_exponent;
    bool m_divided;
    bool m_multiplied;
    Pixels::GammaEncoder m_gamma;
    Array<Rgb> m_row;
    Array<std::uint8_t> m_colours;
};

} // namespace Nolvex::Viewer
