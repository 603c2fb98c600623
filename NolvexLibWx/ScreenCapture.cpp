// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScreenCapture.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/detail/ScreenRegion.h"
#include "NolvexLibWx/platform/ScreenPixels.h"

#include <wx/app.h>
#include <wx/display.h>

namespace Nolvex {

namespace {

Array<Bucket> displayGeometries()
{
    // Without an application object wxWidgets knows no display.
    Array<Bucket> displays;
    const unsigned count = wxAppConsoleBase::GetInstance() == nullptr ? 0 : wxDisplay::GetCount();
    for (unsigned index = 0; index < count; ++index)
        displays.push_back(Wx::toBucket(wxDisplay(index).GetGeometry()));
    return displays;
}

} // namespace

BitmapImpl<Rgb> Wx::getScreenRegionColors(Bucket region)
{
    const Array<Bucket> displays = displayGeometries();
    return Detail::composeScreenRegion(region, displays, Platform::readScreen);
}

} // namespace Nolvex
