// SPDX-License-Identifier: MIT
#include "support/Screen.h"

#include "NolvexLibWx/detail/ScreenPlaces.h"
#include "support/ScreenSource.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>

#include <ostream>

namespace Nolvex {

wxImage Tests::captureClientArea(wxWindow* window)
{
    const wxRect area = Wx::Detail::clientRectOnScreen(*window);
    wxBitmap bitmap(area.GetSize(), 24);
    {
        wxMemoryDC memory(bitmap);
        wxScreenDC screen;
        refreshScreenSource(screen);
        memory.Blit(wxPoint(0, 0), area.GetSize(), &screen, area.GetTopLeft());
    }
    return bitmap.ConvertToImage();
}

void PrintTo(const RgbBytes& colour, std::ostream* out)
{
    *out << '(' << int(colour.r) << ", " << int(colour.g) << ", " << int(colour.b) << ')';
}

RgbBytes Tests::pixelAt(const wxImage& image, int x, int y)
{
    return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
}

} // namespace Nolvex
