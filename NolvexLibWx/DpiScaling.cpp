// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"

#include "NolvexLibWx/platform/DesktopScale.h"

#include <wx/image.h>

namespace Nolvex {

int Wx::scaleByDpi(int value)
{
    return Platform::scaleToDesktop(value);
}

Pixel Wx::scaleByDpi(Pixel value)
{
    return {scaleByDpi(value.x), scaleByDpi(value.y)};
}

wxSize Wx::scaleByDpi(wxSize value)
{
    const auto scaled = [](int dimension) {
        return dimension == wxDefaultCoord ? wxDefaultCoord : scaleByDpi(dimension);
    };
    return {scaled(value.GetWidth()), scaled(value.GetHeight())};
}

wxBitmap Wx::scaleByDpi(const wxBitmap& bitmap)
{
    if (!bitmap.IsOk())
        return bitmap;
    const int factor = scaleByDpi(1);
    if (factor <= 1)
        return bitmap;
    const wxImage image = bitmap.ConvertToImage().Scale(bitmap.GetWidth() * factor,
                                                        bitmap.GetHeight() * factor, wxIMAGE_QUALITY_NORMAL);
    return {image, wxBITMAP_SCREEN_DEPTH, bitmap.GetScaleFactor()};
}

} // namespace Nolvex
