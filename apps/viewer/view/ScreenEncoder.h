// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"
#include "NolvexLibImage/pixels/GammaEncoder.h"
#include "apps/viewer/view/ScreenCurve.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace Nolvex::Viewer {

/// Makes bytes of rows of pixels by a curve and the colour rule of Conversions.h. Any number of threads may
/// use one encoder.
class ScreenEncoder
{
public:
    /// `pixelCount` is the number of pixels that the encoder will encode in all.
    ScreenEncoder(const ScreenCurve& curve, std::size_t pixelCount);

    /// Writes three bytes for each pixel to `colours`.
    void encode(const Rgb* pixels, std::uint8_t* colours, std::size_t count) const;

private:
    // Finds the byte of a value by the leading bits of the float, and by the values at which the bytes begin.
    struct SrgbTable
    {
        static constexpr int SHIFT = 15; // leaves the exponent and eight bits of the fraction
        static constexpr std::size_t SIZE = (0x3f800000u >> SHIFT) + 1;

        explicit SrgbTable(const ScreenCurve& curve);

        std::uint8_t byteOf(float value) const;

        std::array<float, 257> begins{};
        std::array<std::uint8_t, SIZE> bytes{};
    };

    void encodeSrgb(const Rgb* pixels, std::uint8_t* colours, std::size_t count) const;

    bool m_isPower;
    Pixels::GammaEncoder m_power;
    std::shared_ptr<const SrgbTable> m_srgb; // null without the curve of sRGB
};

} // namespace Nolvex::Viewer
