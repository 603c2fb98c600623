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

/// Raises pixels to a power and makes bytes of them: for every float, and for every exponent, the bytes are
/// those of powf followed by the colour rule (see Conversions.h). Most exponents take a table instead of
/// powf.
///
/// Any number of threads may use one encoder.
class NOLVEXLIBIMAGE_EXPORT GammaEncoder
{
public:
    /// `pixelCount` is how many pixels will be encoded in all. A table costs as much as about four thousand
    /// pixels through powf, so it is made for larger numbers only.
    explicit GammaEncoder(float exponent, std::size_t pixelCount = std::numeric_limits<std::size_t>::max());
    ~GammaEncoder();
    GammaEncoder(GammaEncoder&& other) noexcept;
    GammaEncoder& operator=(GammaEncoder&& other) noexcept;
    GammaEncoder(const GammaEncoder&) = delete;
    GammaEncoder& operator=(const GammaEncoder&) = delete;

    /// Three bytes a pixel go to `rgb`; alpha, treated like the colours, goes to `alphaOrNull`, one byte a
    /// pixel, unless that is null.
    void encode(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alphaOrNull, std::size_t count) const;

    /// Whether a table stands in for powf.
    bool hasTable() const noexcept { return m_table != nullptr; }

private:
    float m_exponent;
    std::unique_ptr<const GammaTable> m_table;
};

} // namespace Nolvex::Pixels
