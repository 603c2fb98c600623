// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/GammaEncoder.h"

#include "NolvexLibImage/pixels/detail/GammaTable.h"

#include <cmath>

namespace Nolvex::Pixels {

namespace {

/// Encoding as many pixels as this by powf takes about as long as making a table.
constexpr std::size_t MIN_PIXELS_FOR_TABLE = 4096;

void encodeByPower(float exponent, const Rgb& pixel, std::uint8_t* rgb, std::uint8_t* alphaOrNull)
{
    rgb[0] = encodePower(pixel.r, exponent);
    rgb[1] = encodePower(pixel.g, exponent);
    rgb[2] = encodePower(pixel.b, exponent);
    if (alphaOrNull)
        *alphaOrNull = encodePower(pixel.a, exponent);
}

} // namespace

GammaEncoder::GammaEncoder(float exponent, std::size_t pixelCount)
    : m_exponent(exponent), m_table(pixelCount > MIN_PIXELS_FOR_TABLE ? GammaTable::make(exponent) : nullptr)
{}

GammaEncoder::~GammaEncoder() = default;
GammaEncoder::GammaEncoder(GammaEncoder&& other) noexcept = default;
GammaEncoder& GammaEncoder::operator=(GammaEncoder&& other) noexcept = default;

void GammaEncoder::encode(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alphaOrNull,
                          std::size_t count) const
{
    const Detail::ToBytesKernels& kernels = Detail::activeKernels().toBytes;
    if (m_table && alphaOrNull)
        return kernels.gammaToRgb8Alpha8(m_table->lookup, source, rgb, alphaOrNull, count);
    if (m_table)
        return kernels.gammaToRgb8(m_table->lookup, source, rgb, count);
    for (std::size_t i = 0; i < count; ++i)
        encodeByPower(m_exponent, source[i], rgb + 3 * i, alphaOrNull ? alphaOrNull + i : nullptr);
}

} // namespace Nolvex::Pixels
