// SPDX-License-Identifier: MIT
#include "Reference.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace Nolvex::Pixels {

namespace {

float fromBits(std::uint32_t bits)
{
    return std::bit_cast<float>(bits);
}

template<class T>
T read(const std::byte* bytes)
{
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

enum class Number
{
    UINT8,
    UINT16,
    FLOAT16,
    FLOAT32
};

Number numberOf(PixelFormat format)
{
    return static_cast<Number>(static_cast<int>(format) / 3);
}

std::size_t channelsOf(PixelFormat format)
{
    constexpr std::size_t CHANNELS[] = {1, 3, 4};
    return CHANNELS[static_cast<int>(format) % 3];
}

std::size_t channelBytes(Number number)
{
    constexpr std::size_t BYTES[] = {1, 2, 2, 4};
    return BYTES[static_cast<int>(number)];
}

float channel(Number number, const std::byte* bytes)
{
    switch (number) {
    case Number::UINT8:
        return static_cast<float>(read<std::uint8_t>(bytes)) * fromBits(0x3B808081);
    case Number::UINT16:
        return static_cast<float>(read<std::uint16_t>(bytes)) * fromBits(0x37800080);
    case Number::FLOAT16:
        return Reference::halfToFloat(read<std::uint16_t>(bytes));
    case Number::FLOAT32:
        break;
    }
    return read<float>(bytes);
}

} // namespace

std::uint8_t Reference::colourByte(float value)
{
    if (std::isnan(value))
        return 0;
    const float clamped = value < 0.0f ? 0.0f : (value > 1.0f ? 1.0f : value);
    const float scaled = clamped * 255.0f;
    const int below = static_cast<int>(scaled);
    const float rest = scaled - static_cast<float>(below);
    const bool up = rest > 0.5f || (rest == 0.5f && below % 2 == 1);
    return static_cast<std::uint8_t>(up ? below + 1 : below);
}

std::uint8_t Reference::alphaByte(float alpha)
{
    const float scaled = alpha * 255.0f;
    if (std::isnan(scaled) || scaled < 0.0f)
        return 0;
    return static_cast<std::uint8_t>(scaled >= 255.0f ? 255.0f : scaled);
}

std::uint8_t Reference::powerByte(float value, float exponent)
{
    return colourByte(std::pow(value, exponent));
}

float Reference::halfToFloat(std::uint16_t half)
{
    const std::uint32_t sign = static_cast<std::uint32_t>(half & 0x8000) << 16;
    const std::uint32_t fraction = half & 0x3ff;
    const int exponent = half >> 10 & 31;
    if (exponent == 31 && fraction != 0)
        return fromBits(sign | 0x7fc0'0000 | fraction << 13);
    if (exponent == 31)
        return fromBits(sign | 0x7f80'0000);
    const float magnitude = exponent == 0 ? std::ldexp(static_cast<float>(fraction), -24)
                                          : std::ldexp(static_cast<float>(fraction + 1024), exponent - 25);
    return sign == 0 ? magnitude : -magnitude;
}

Rgb Reference::pixel(PixelFormat format, const std::byte* bytes)
{
    const Number number = numberOf(format);
    const std::size_t step = channelBytes(number);
    const std::size_t channels = channelsOf(format);
    const float first = channel(number, bytes);
    if (channels == 1)
        return {first, first, first, 1.0f};
    return {first, channel(number, bytes + step), channel(number, bytes + 2 * step),
            channels == 4 ? channel(number, bytes + 3 * step) : 1.0f};
}

std::size_t Reference::pixelBytes(PixelFormat format)
{
    return channelsOf(format) * channelBytes(numberOf(format));
}

std::vector<float> Reference::specialFloats()
{
    using Limits = std::numeric_limits<float>;
    std::vector<float> values = {0.0f,
                                 1.0f,
                                 0.5f,
                                 0.999f,
                                 1.2f,
                                 0.1f,
                                 2.0f,
                                 8421504.0f,
                                 8421505.0f,
                                 1e10f,
                                 Limits::max(),
                                 Limits::infinity(),
                                 Limits::min(),
                                 Limits::denorm_min(),
                                 fromBits(0x007f'ffff),
                                 fromBits(0x7fc0'0000),
                                 fromBits(0x7fff'ffff),
                                 fromBits(0x7f80'0001),
                                 fromBits(0x7fbf'ffff)};
    const std::size_t count = values.size();
    for (std::size_t i = 0; i < count; ++i)
        values.push_back(fromBits(std::bit_cast<std::uint32_t>(values[i]) ^ 0x8000'0000));
    return values;
}

std::vector<float> Reference::neighbours(const std::vector<float>& centres, int steps)
{
    std::vector<float> values;
    for (const float centre : centres) {
        const int bits = std::bit_cast<int>(centre);
        for (int i = -steps; i <= steps; ++i) {
            if (bits + i >= 0)
                values.push_back(std::bit_cast<float>(bits + i));
        }
    }
    return values;
}

std::vector<float> Reference::randomFloats(std::size_t count)
{
    std::mt19937 random; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers every time
    std::vector<float> values(count);
    for (float& value : values)
        value = fromBits(static_cast<std::uint32_t>(random()));
    return values;
}

std::vector<float> Reference::randomFractions(std::size_t count)
{
    std::mt19937 random; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers every time
    std::vector<float> values(count);
    for (float& value : values)
        value = static_cast<float>(random() >> 8) * 0x1p-24f;
    return values;
}

std::vector<Rgb> Reference::pixelsOf(const std::vector<float>& values)
{
    const std::size_t count = values.size();
    std::vector<Rgb> pixels(count);
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = {values[i], values[(i + 1) % count], values[(i + 2) % count], values[(i + 3) % count]};
    return pixels;
}

bool Reference::haveSameBits(const Rgb& a, const Rgb& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0; // NOLINT(bugprone-suspicious-memory-comparison,cert-*): bits
}

} // namespace Nolvex::Pixels
