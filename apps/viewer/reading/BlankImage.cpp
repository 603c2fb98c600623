// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/BlankImage.h"

#include "apps/viewer/platform/AvailableMemory.h"

#include <string>

namespace Nolvex::Viewer {

bool fitsIntoMemory(std::int32_t width, std::int32_t height, PixelFormat format, std::uint64_t available)
{
    // A header may claim a size whose product is too large for an integer.
    return double(width) * height * static_cast<double>(Image::getPixelFormatByteCount(format)) <=
           static_cast<double>(available);
}

Expected<Image, String> blankImage(std::int32_t width, std::int32_t height, PixelFormat format, float gamma)
{
    constexpr std::uint64_t SURELY_AVAILABLE = std::uint64_t(64)
                                               << 20; // asking takes longer than making them
    if (!fitsIntoMemory(width, height, format, SURELY_AVAILABLE) &&
        !fitsIntoMemory(width, height, format, Platform::availableMemory()))
        return Unexpected{L"its " + String(std::to_wstring(width)) + L" \u00D7 " +
                          String(std::to_wstring(height)) +
                          L" pixels do not fit into the memory that is left"};
    return Image::create(width, height, format, gamma);
}

} // namespace Nolvex::Viewer
