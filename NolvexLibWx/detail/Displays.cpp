// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/Displays.h"

#include "NolvexLibWx/GeometryConversions.h"

#include <wx/app.h>
#include <wx/display.h>

namespace Nolvex {

Array<Bucket> Wx::Detail::displayGeometries()
{
    Array<Bucket> displays;
    const unsigned count = wxAppConsoleBase::GetInstance() == nullptr ? 0 : wxDisplay::GetCount();
    for (unsigned index = 0; index < count; ++index)
        displays.push_back(toBucket(wxDisplay(index).GetGeometry()));
    return displays;
}

} // namespace Nolvex
