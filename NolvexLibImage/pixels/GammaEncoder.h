// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/Export.h"

#include "NolvexLib/Rgb.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace Nolvex::Pixels {

struct GammaTable;

/// Raises the channels of pixels to a power and makes bytes of the results. For every float and every
/// exponent the bytes are those that powf and the colour rule (see Conversions.h) give. For most exponents
/// the encoder uses a table instead of powf.
///
/// Any number of threads may use one encoder.
class NOLVEXLIBIMAGE_EXPORT GammaEncoder
{
public:
    /// `pixelCount` is the number of pixels that the encoder will encode in all. Making the table takes as
    /// long as encoding about four thousand pixels by powf, so that smaller numbers of pixels get no table.
    explicit GammaEncoder(float exponent, std::size_t pixelCount = std::numeric_limits<std::size_t>::max());
    ~GammaEncoder();
    GammaEncoder(GammaEncoder&& other) noexcept;
    GammaEncoder& operator=(GammaEncoder&& other) noexcept;
    GammaEncoder(const GammaEncoder&) = delete;
    GammaEncoder& operator=(const GammaEncoder&) = delete;

    /// Writes three bytes for each pixel to `rgb`. Alpha is treated like a colour and written to
    /// `alphaOrNull`, one byte for each pixel, unless that is null.
    void encode(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alphaOrNull, std::size_t count) const;

    /// True if the encoder uses a table instead of powf.
    bool hasTable() const noexcept { return m_table != nullptr; }

private:
    float m_exponent;
    std::unique_ptr<const GammaTable> m_table;
};

} // namespace Nolvex::Pixels
