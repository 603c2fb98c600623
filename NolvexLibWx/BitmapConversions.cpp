// SPDX-License-Identifier: MIT
#include "NolvexLibWx/BitmapConversions.h"

#include "NolvexLibImage/pixels/Conversions.h"

#include <wx/rawbmp.h>

#include <cstddef>
#include <cstdint>

namespace Nolvex {

namespace {

constexpr int DEPTH_OPAQUE = 24;
constexpr int DEPTH_ALPHA = 32;

// The raw pixels of wxWidgets have the order of channels that the system draws fastest.
template<class PixelData>
constexpr bool RED_FIRST = PixelData::Iterator::PixelFormat::RED == 0;

// Calls convert(row of the image, row of the bitmap) for every row. The rows of a bitmap may run upwards in
// memory: only the iterator of wxWidgets knows where each begins.
template<class PixelData, class Row, class Convert>
bool forEachRow(wxBitmap& bitmap, std::int32_t height, Row imageRow, Convert convert)
{
    PixelData data(bitmap);
    if (!data)
        return false;
    typename PixelData::Iterator pixel(data);
    for (std::int32_t y = 0; y < height; ++y) {
        pixel.MoveTo(data, 0, y);
        convert(imageRow(y), reinterpret_cast<std::uint8_t*>(pixel.m_ptr));
    }
    return true;
}

} // namespace

wxBitmap Wx::toWxBitmap(const BitmapImpl<Rgb>& image, bool withAlpha)
{
    if (image.isEmpty())
        return {};
    wxBitmap bitmap;
    if (!bitmap.Create(image.width(), image.height(), withAlpha ? DEPTH_ALPHA : DEPTH_OPAQUE))
        return {};

    const auto width = static_cast<std::size_t>(image.width());
    const auto row = [&](std::int32_t y) { return image.row(y); };
    if (!withAlpha) {
        const auto convert = RED_FIRST<wxNativePixelData> ? Pixels::rgbToRgb8 : Pixels::rgbToBgr8;
        const bool written = forEachRow<wxNativePixelData>(
            bitmap, image.height(), row,
            [&](const Rgb* from, std::uint8_t* to) { convert(from, to, width); });
        return written ? bitmap : wxBitmap();
    }
    const auto convert = RED_FIRST<wxAlphaPixelData> ? Pixels::rgbToRgba8 : Pixels::rgbToBgra8;
    if (!forEachRow<wxAlphaPixelData>(bitmap, image.height(), row,
                                      [&](const Rgb* from, std::uint8_t* to) { convert(from, to, width); }))
        return {};
    bitmap.UseAlpha(true);
    return bitmap;
}

Expected<BitmapImpl<Rgb>, String> Wx::toRgbBitmap(wxBitmap& bitmap)
{
    if (!bitmap.IsOk())
        return BitmapImpl<Rgb>();
    const int depth = bitmap.GetDepth();
    if (depth != DEPTH_OPAQUE && depth != DEPTH_ALPHA)
        return Unexpected{String(L"Bitmap has unsupported bit depth.")};

    bool read = false;
    BitmapImpl<Rgb> image(bitmap.GetWidth(), bitmap.GetHeight());
    const auto width = static_cast<std::size_t>(image.width());
    const auto row = [&](std::int32_t y) { return image.row(y); };
    if (depth == DEPTH_ALPHA) {
        const auto convert = RED_FIRST<wxAlphaPixelData> ? Pixels::rgba8ToRgb : Pixels::bgra8ToRgb;
        read =
            forEachRow<wxAlphaPixelData>(bitmap, image.height(), row, [&](Rgb* to, const std::uint8_t* from) {
                convert(from, to, width);
            });
    } else {
        const auto convert = RED_FIRST<wxNativePixelData> ? Pixels::rgb8ToRgb : Pixels::bgr8ToRgb;
        read = forEachRow<wxNativePixelData>(
            bitmap, image.height(), row,
            [&](Rgb* to, const std::uint8_t* from) { convert(from, to, width); });
    }
    if (!read)
        return Unexpected{String(L"Bitmap has unsupported bit depth.")};
    return image;
}

} // namespace Nolvex
