// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/PixelFormat.h"

#include <cstdint>

namespace Nolvex {

/// What an image says about itself besides its pixels.
struct ImageDescriptor
{
    /// In pixels.
    std::int32_t width = 0;
    std::int32_t height = 0;
    PixelFormat format = PixelFormat::UINT8_RGB;

    /// 1.0: the values are encoded for display already; 2.2: linear light, shown raised to 1/2.2. The image
    /// carries the number only, and any number: its pixels are never changed by it.
    float gamma = 1.0f;

    friend bool operator==(const ImageDescriptor&, const ImageDescriptor&) = default;
};

} // namespace Nolvex
