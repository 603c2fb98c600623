// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/RowEncoder.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/HalfFloat.h"

#include <cmath>
#include <cstring>

namespace Nolvex::Viewer {

namespace {

constexpr float DISPLAY_GAMMA = 2.2f;
constexpr std::size_t COLOURS = 3;

float power(float value, float exponent)
{
    return exponent == 1.0f ? value : std::copysign(std::pow(std::fabs(value), exponent), value);
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

RowEncoder::RowEncoder(const Image& image, ColorFormat format, bool alpha)
    : m_image(image),
      m_format(format == ColorFormat::DEFAULT ? ColorFormat::UINT8_RGB : format),
      m_alpha(alpha),
      m_gamma(1.0f / image.descriptor().gamma, static_cast<std::size_t>(image.descriptor().width) *
                                                   static_cast<std::size_t>(image.descriptor().height)),
      m_row(static_cast<std::size_t>(image.descriptor().width))
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
    const ImageDescriptor& descriptor = m_image.descriptor();
    m_image.readRow(descriptor.height - 1 - rowFromTop, m_row.data());
    switch (m_format) {
    case ColorFormat::DEFAULT:
    case ColorFormat::UINT8_RGB:
        return encodeBytes(destination);
    case ColorFormat::UINT16_RGB:
        return encodeNumbers<std::uint16_t>(destination, 1.0f / descriptor.gamma, toWord);
    case ColorFormat::FLT16_LINEAR_RGB:
        return encodeNumbers<std::uint16_t>(destination, DISPLAY_GAMMA / descriptor.gamma, toHalf);
    case ColorFormat::FLT32_LINEAR_RGB:
        return encodeNumbers<float>(destination, DISPLAY_GAMMA / descriptor.gamma,
                                    [](float value) { return value; });
    }
}

void RowEncoder::encodeBytes(std::byte* destination)
{
    if (m_image.descriptor().gamma == 1.0f)
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
void RowEncoder::encodeNumbers(std::byte* destination, float exponent, Convert convert) const
{
    const auto write = [&](float value) {
        const Number number = convert(value);
        std::memcpy(destination, &number, sizeof(Number));
        destination += sizeof(Number);
    };
    for (const Rgb& pixel : m_row) {
        write(power(pixel.r, exponent));
        write(power(pixel.g, exponent));
        write(power(pixel.b, exponent));
        if (m_alpha)
            write(pixel.a);
    }
}

} // namespace Nolvex::Viewer
