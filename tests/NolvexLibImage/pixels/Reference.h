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

/// Returns the byte of `value` raised to `exponent` by powf.
std::uint8_t powerByte(float value, float exponent);

float halfToFloat(std::uint16_t half);

/// Reads one pixel of an image.
Rgb pixel(PixelFormat format, const std::byte* bytes);

std::size_t pixelBytes(PixelFormat format);

/// Returns NaNs of all kinds, infinities, zeros, denormals, huge and ordinary numbers.
std::vector<float> specialFloats();

/// Returns the floats up to `steps` floats below and above each of `centres`, which are positive.
std::vector<float> neighbours(const std::vector<float>& centres, int steps);

/// Returns floats of random bits: every float may come. The floats are the same in each run.
std::vector<float> randomFloats(std::size_t count);

/// Returns random floats of [0, 1), evenly spread.
std::vector<float> randomFractions(std::size_t count);

/// Returns as many pixels as there are values. Each value comes once in each channel.
std::vector<Rgb> pixelsOf(const std::vector<float>& values);

/// Compares the pixels bit by bit: -0 is not 0, and a NaN equals itself.
bool haveSameBits(const Rgb& a, const Rgb& b);

} // namespace Nolvex::Pixels::Reference
