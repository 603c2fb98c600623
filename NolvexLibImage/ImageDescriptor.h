// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/PixelFormat.h"

#include <cstdint>

namespace Nolvex {

/// The properties of an image besides its pixels.
struct ImageDescriptor
{
    /// In pixels.
    std::int32_t width = 0;
    std::int32_t height = 0;
    PixelFormat format = PixelFormat::UINT8_RGB;

    /// 1.0 if the values are encoded for display already, 2.2 if they are linear light, which is displayed
    /// raised to 1/2.2. Any number is allowed. The image only carries the number; it does not change the
    /// pixels.
    float gamma = 1.0f;

    friend bool operator==(const ImageDescriptor&, const ImageDescriptor&) = default;
};

} // namespace Nolvex
