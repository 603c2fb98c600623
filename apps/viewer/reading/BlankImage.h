// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"

#include <cstdint>

namespace Nolvex::Viewer {

/// Returns whether the pixels of an image take no more than the bytes that are available.
bool fitsIntoMemory(std::int32_t width, std::int32_t height, PixelFormat format, std::uint64_t available);

/// Makes the image that a reader fills, like Image::create, but only if the system has the memory for its
/// pixels. Otherwise Linux would give the memory, and end the program when the pixels are written.
Expected<Image, String> blankImage(std::int32_t width, std::int32_t height, PixelFormat format, float gamma);

} // namespace Nolvex::Viewer
