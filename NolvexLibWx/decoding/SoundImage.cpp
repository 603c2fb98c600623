// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include <limits>

namespace Nolvex {

namespace {

constexpr std::uint64_t COLOUR_BYTES = 3;
constexpr std::uint64_t MAX_UNCHECKED_PIXELS = std::uint64_t(1) << 26;

// Deflate turns at most 1032 bytes into one, each of which may hold eight black or white pixels.
constexpr std::uint64_t MAX_PIXELS_PER_BYTE = std::uint64_t(1032) * 8;

} // namespace

bool Decoding::fitsWxImage(std::uint64_t width, std::uint64_t height)
{
    constexpr std::uint64_t MAX_PIXELS = std::numeric_limits<std::int32_t>::max() / COLOUR_BYTES;
    return width > 0 && height > 0 && width <= MAX_PIXELS / height;
}

bool Decoding::isPlausible(std::uint64_t pixels, std::size_t fileSize)
{
    return pixels <= MAX_UNCHECKED_PIXELS || pixels / MAX_PIXELS_PER_BYTE <= fileSize;
}

} // namespace Nolvex
