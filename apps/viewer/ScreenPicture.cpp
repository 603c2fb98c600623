// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenPicture.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/BitmapConversions.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "apps/program/CapturedPixels.h"

#include <wx/display.h>

#include <algorithm>

namespace Nolvex::Viewer {

wxBitmap screenPicture(ArrayView<const Bucket> displays)
{
    if (displays.empty())
        return {};
    Bucket whole = displays.front();
    for (const Bucket& display : displays) {
        whole.min = {std::min(whole.min.x, display.min.x), std::min(whole.min.y, display.min.y)};
        whole.max = {std::max(whole.max.x, display.max.x), std::max(whole.max.y, display.max.y)};
    }
    const BitmapImpl<Rgb> captured = Wx::getScreenRegionColors(whole);
    return Program::wasRead(captured) ? Wx::toWxBitmap(captured, true) : wxBitmap();
}

wxBitmap screenPicture()
{
    Array<Bucket> displays;
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
        displays.push_back(Wx::toBucket(wxDisplay(index).GetGeometry()));
    return screenPicture(displays);
}

} // namespace Nolvex::Viewer
