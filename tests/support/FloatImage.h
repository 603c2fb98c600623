// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"
#include "NolvexLibImage/Image.h"

#include <cstring>
#include <initializer_list>

namespace Nolvex::Tests {

inline void setPixel(Image& image, std::int32_t x, std::int32_t y, const Rgb& pixel)
{
    std::memcpy(image.row(y).data() + static_cast<std::size_t>(x) * sizeof(Rgb), &pixel, sizeof(Rgb));
}

/// Returns an image of one row with these pixels.
inline Image rowOfFloats(std::initializer_list<Rgb> pixels, float gamma)
{
    Image image =
        *Image::create(static_cast<std::int32_t>(pixels.size()), 1, PixelFormat::FLOAT32_RGBA, gamma);
    std::int32_t x = 0;
    for (const Rgb& pixel : pixels)
        setPixel(image, x++, 0, pixel);
    return image;
}

/// Returns an image whose pixels tell their place, counted from the top: red is x / 64 and green is y / 64,
/// blue is a half, and alpha is three quarters.
inline Image placesAsFloats(std::int32_t width, std::int32_t height, float gamma)
{
    Image image = *Image::create(width, height, PixelFormat::FLOAT32_RGBA, gamma);
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x)
            setPixel(image, x, height - 1 - y,
                     {static_cast<float>(x) / 64.0f, static_cast<float>(y) / 64.0f, 0.5f, 0.75f});
    }
    return image;
}

} // namespace Nolvex::Tests
