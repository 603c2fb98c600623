// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenPicture.h"

#include "NolvexLib/Array.h"
#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "apps/program/CapturedPixels.h"

#include <wx/display.h>

#include <algorithm>

namespace Nolvex::Viewer {

namespace {

// Bytes lose nothing here, since the screen has bytes, too. An image stores its bottom row first.
Optional<Image> toImage(const BitmapImpl<Rgb>& captured)
{
    Expected<Image, String> image =
        Image::create(captured.width(), captured.height(), PixelFormat::UINT8_RGBA, 1.0f);
    if (!image)
        return {};
    for (std::int32_t y = 0; y < captured.height(); ++y)
        Pixels::rgbToRgba8(captured.row(captured.height() - 1 - y),
                           reinterpret_cast<std::uint8_t*>(image->row(y).data()),
                           static_cast<std::size_t>(captured.width()));
    return std::move(*image);
}

} // namespace

Optional<Image> captureDisplays(ArrayView<const Bucket> displays)
{
    if (displays.empty())
        return {};
    Bucket whole = displays.front();
    for (const Bucket& display : displays) {
        whole.min = {std::min(whole.min.x, display.min.x), std::min(whole.min.y, display.min.y)};
        whole.max = {std::max(whole.max.x, display.max.x), std::max(whole.max.y, display.max.y)};
    }
    const BitmapImpl<Rgb> captured = Wx::getScreenRegionColors(whole);
    return Program::wasRead(captured) ? toImage(captured) : Optional<Image>();
}

Optional<Image> captureDisplays()
{
    Array<Bucket> displays;
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
        displays.push_back(Wx::toBucket(wxDisplay(index).GetGeometry()));
    return captureDisplays(displays);
}

} // namespace Nolvex::Viewer
