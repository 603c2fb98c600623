// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ScreenEncoder.h"

#include "NolvexLibImage/pixels/Conversions.h"

#include <bit>
#include <cmath>
#include <limits>

namespace Nolvex::Viewer {

namespace {

constexpr std::uint32_t ONE = 0x3f800000u; // the bits of 1.0f
constexpr int BYTES = 256;

int byteByCurve(const ScreenCurve& curve, float value)
{
    return static_cast<int>(std::nearbyint(std::fmin(curve.at(value), 1.0f) * 255.0f));
}

// Returns the smallest positive float that the curve and the colour rule turn into the byte or a larger one.
float beginOf(int byte, const ScreenCurve& curve)
{
    std::uint32_t below = 0;
    std::uint32_t reached = ONE;
    while (reached - below > 1) {
        const std::uint32_t between = below + (reached - below) / 2;
        (byteByCurve(curve, std::bit_cast<float>(between)) >= byte ? reached : below) = between;
    }
    return std::bit_cast<float>(reached);
}

} // namespace

ScreenEncoder::SrgbTable::SrgbTable(const ScreenCurve& curve)
{
    for (int byte = 1; byte < BYTES; ++byte)
        begins[static_cast<std::size_t>(byte)] = beginOf(byte, curve);
    begins[BYTES] = std::numeric_limits<float>::infinity();
    std::size_t byte = 0;
    for (std::size_t i = 0; i < SIZE; ++i) {
        const auto first = std::bit_cast<float>(static_cast<std::uint32_t>(i << SHIFT));
        while (byte + 1 < BYTES && begins[byte + 1] <= first)
            ++byte;
        bytes[i] = static_cast<std::uint8_t>(byte);
    }
}

std::uint8_t ScreenEncoder::SrgbTable::byteOf(float value) const
{
    if (!(value > 0.0f))
        return 0;
    if (value >= 1.0f)
        return BYTES - 1;
    std::size_t byte = bytes[std::bit_cast<std::uint32_t>(value) >> SHIFT];
    while (value >= begins[byte + 1])
        ++byte;
    return static_cast<std::uint8_t>(byte);
}

ScreenEncoder::ScreenEncoder(const ScreenCurve& curve, std::size_t pixelCount)
    : m_isPower(curve.exponent != 1.0f),
      m_power(curve.isSrgb ? 1.0f : curve.exponent, curve.isSrgb ? 0 : pixelCount),
      m_srgb(curve.isSrgb ? std::make_shared<const SrgbTable>(curve) : nullptr)
{}

void ScreenEncoder::encode(const Rgb* pixels, std::uint8_t* colours, std::size_t count) const
{
    if (m_srgb)
        encodeSrgb(pixels, colours, count);
    else if (m_isPower)
        m_power.encode(pixels, colours, nullptr, count);
    else
        Pixels::rgbToRgb8(pixels, colours, count);
}

void ScreenEncoder::encodeSrgb(const Rgb* pixels, std::uint8_t* colours, std::size_t count) const
{
    const SrgbTable& table = *m_srgb;
    for (std::size_t i = 0; i < count; ++i) {
        for (const float value : {pixels[i].r, pixels[i].g, pixels[i].b})
            *colours++ = table.byteOf(value);
    }
}

} // namespace Nolvex::Viewer
