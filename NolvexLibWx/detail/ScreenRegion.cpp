// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/ScreenRegion.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibWx/ScreenCapture.h"

#include <cstddef>
#include <new>

namespace Nolvex {

namespace {

constexpr std::size_t BYTES_PER_PIXEL = 4;
constexpr std::size_t ALPHA = 3;
constexpr std::uint8_t OPAQUE_ALPHA = 255;

// Returns an empty image for no pixels or too many. The corners may lie further apart than 32 bits can count.
BitmapImpl<Rgb> transparentImage(const Bucket& region)
{
    if (region.isEmpty())
        return {};
    const std::int64_t width = std::int64_t(region.max.x) - region.min.x;
    const std::int64_t height = std::int64_t(region.max.y) - region.min.y;
    if (width > Wx::MAX_SCREEN_REGION_PIXELS / height)
        return {};
    try {
        return {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
    } catch (const std::bad_alloc&) {
        return {};
    }
}

void writeOpaqueRow(std::uint8_t* bgrx, Rgb* destination, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        bgrx[i * BYTES_PER_PIXEL + ALPHA] = OPAQUE_ALPHA;
    Pixels::bgra8ToRgb(bgrx, destination, count);
}

} // namespace

BitmapImpl<Rgb> Wx::Detail::composeScreenRegion(const Bucket& region, ArrayView<const Bucket> displays,
                                                const ReadScreen& read)
{
    BitmapImpl<Rgb> image = transparentImage(region);
    if (image.isEmpty())
        return image;
    const Platform::TakeScreenRow take = [&](Pixel start, std::uint8_t* bgrx, std::int32_t count) {
        const Pixel place = start - region.min;
        writeOpaqueRow(bgrx, image.row(place.y) + place.x, static_cast<std::size_t>(count));
    };
    for (const Bucket& display : displays) {
        const Bucket area = display.intersected(region);
        if (!area.isEmpty())
            read(area, take);
    }
    return image;
}

} // namespace Nolvex
