// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/RowEncoder.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/HalfFloat.h"
#include "apps/viewer/Light.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Nolvex::Viewer {

namespace {

constexpr std::size_t COLOURS = 3;

bool isOfLight(ColorFormat format)
{
    return format == ColorFormat::FLT16_LINEAR_RGB || format == ColorFormat::FLT32_LINEAR_RGB;
}

template<class Integer>
Integer toInteger(float value, float most)
{
    const float clamped = value > 0.0f ? std::fmin(value, 1.0f) : 0.0f; // NaN becomes 0
    return static_cast<Integer>(std::lrint(clamped * most));
}

std::uint8_t toByte(float value)
{
    return toInteger<std::uint8_t>(value, 255.0f);
}

std::uint16_t toWord(float value)
{
    return toInteger<std::uint16_t>(value, 65535.0f);
}

} // namespace

RowEncoder::RowEncoder(const Picture& picture, ColorFormat format, Optional<AlphaKind> alpha)
    : m_image(picture.image()),
      m_format(format == ColorFormat::DEFAULT ? ColorFormat::UINT8_RGB : format),
      m_alpha(alpha.has_value()),
      m_exponent(isOfLight(m_format) ? lightExponent(m_image.descriptor().gamma)
                                     : 1.0f / m_image.descriptor().gamma),
      // Only straight colours can be raised to a power.
      m_divided(alpha && picture.hasAlpha() && picture.alpha() == AlphaKind::ASSOCIATED &&
                (alpha == AlphaKind::STRAIGHT || m_exponent != 1.0f)),
      m_multiplied(alpha == AlphaKind::ASSOCIATED && picture.hasAlpha() &&
                   (m_divided || picture.alpha() == AlphaKind::STRAIGHT)),
      m_gamma(m_exponent, static_cast<std::size_t>(m_image.descriptor().width) *
                              static_cast<std::size_t>(m_image.descriptor().height)),
      m_row(static_cast<std::size_t>(m_image.descriptor().width))
{
    if (m_format == ColorFormat::UINT8_RGB)
        m_colours.resize(m_row.size() * COLOURS);
}

std::size_t RowEncoder::channelBytes() const
{
    switch (m_format) {
    case ColorFormat::DEFAULT:
    case ColorFormat::UINT8_RGB:
        return sizeof(std::uint8_t);
    case ColorFormat::UINT16_RGB:
    case ColorFormat::FLT16_LINEAR_RGB:
        return sizeof(std::uint16_t);
    case ColorFormat::FLT32_LINEAR_RGB:
        return sizeof(float);
    }
    Detail::throwStopException("writing/RowEncoder", __LINE__);
}

void RowEncoder::encode(std::int32_t rowFromTop, std::byte* destination)
{
    m_image.readRow(m_image.descriptor().height - 1 - rowFromTop, m_row.data());
    if (m_divided)
        std::transform(m_row.begin(), m_row.end(), m_row.begin(), dividedByAlpha);
    switch (m_format) {
    case ColorFormat::DEFAULT:
    case ColorFormat::UINT8_RGB:
        return encodeBytes(destination);
    case ColorFormat::UINT16_RGB:
        return encodeNumbers<std::uint16_t>(destination, toWord);
    case ColorFormat::FLT16_LINEAR_RGB:
        return encodeNumbers<std::uint16_t>(destination, toHalf);
    case ColorFormat::FLT32_LINEAR_RGB:
        return encodeNumbers<float>(destination, [](float value) { return value; });
    }
}

void RowEncoder::encodeBytes(std::byte* destination)
{
    if (m_exponent == 1.0f)
        Pixels::rgbToRgb8(m_row.data(), m_colours.data(), m_row.size());
    else
        m_gamma.encode(m_row.data(), m_colours.data(), nullptr, m_row.size());
    if (!m_alpha) {
        std::memcpy(destination, m_colours.data(), m_colours.size());
        return;
    }
    const std::uint8_t* colours = m_colours.data();
    for (const Rgb& pixel : m_row) {
        std::memcpy(destination, colours, COLOURS);
        destination[COLOURS] = static_cast<std::byte>(toByte(pixel.a));
        colours += COLOURS;
        destination += COLOURS + 1;
    }
}

template<class Number, class Convert>
void RowEncoder::encodeNumbers(std::byte* destination, Convert convert) const
{
    const auto write = [&](float value) {
        const Number number = convert(value);
        std::memcpy(destination, &number, sizeof(Number));
        destination += sizeof(Number);
    };
    for (const Rgb& stored : m_row) {
        Rgb pixel{signedPower(stored.r, m_exponent), signedPower(stored.g, m_exponent),
                  signedPower(stored.b, m_exponent), stored.a};
        // What was not divided is not multiplied, so that light without alpha stays.
        if (m_multiplied && !(m_divided && pixel.a == 0.0f))
            pixel = multipliedByAlpha(pixel);
        write(pixel.r);
        write(pixel.g);
        write(pixel.b);
        if (m_alpha)
            write(pixel.a);
    }
}

} // namespace Nolvex::Viewer
