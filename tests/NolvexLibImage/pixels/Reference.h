// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/PixelFormat.h"

#include "NolvexLib/Rgb.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// The rules of the conversions written down as plainly as possible, and numbers to try them with.
namespace Nolvex::Pixels::Reference {

std::uint8_t colourByte(float value);
std::uint8_t alphaByte(float alpha);

/// The byte of `value` raised to `exponent` by powf.
std::uint8_t powerByte(float value, float exponent);

float halfToFloat(std::uint16_t half);

/// One pixel of an image.
Rgb pixel(PixelFormat format, const std::byte* bytes);

std::size_t pixelBytes(PixelFormat format);

/// NaNs of all kinds, infinities, zeros, denormals, huge and ordinary numbers.
std::vector<float> specialFloats();

/// What lies up to `steps` floats below and above each of `centres`, which are positive.
std::vector<float> neighbours(const std::vector<float>& centres, int steps);

/// Random bits: every float may come, the same ones each time.
std::vector<float> randomFloats(std::size_t count);

/// Random floats of [0, 1), evenly spread.
std::vector<float> randomFractions(std::size_t count);

/// As many pixels as there are values; each value comes once in each channel.
std::vector<Rgb> pixelsOf(const std::vector<float>& values);

/// Equal bit by bit: -0 is not 0, and a NaN equals itself.
bool haveSameBits(const Rgb& a, const Rgb& b);

} // namespace Nolvex::Pixels::Reference
