// SPDX-License-Identifier: MIT
#include "apps/program/WindowPicture.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileOutputStream.h"
#include "NolvexLibWx/BitmapConversions.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "apps/program/CapturedPixels.h"

#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/window.h>

#include <algorithm>

namespace Nolvex::Program {

namespace {

wxRect clientAreaOnScreen(const wxWindow& window)
{
    const wxSize size = window.GetClientSize();
    const wxPoint origin = window.ClientToScreen(wxPoint(0, 0));
    // In a layout from right to left, the origin is the upper right corner.
    const int opposite = window.ClientToScreen(wxPoint(size.x, 0)).x;
    return {wxPoint(std::min(origin.x, opposite), origin.y), size};
}

} // namespace

BitmapImpl<Rgb> captureWindow(const wxWindow& window)
{
    const wxRect area = clientAreaOnScreen(window);
    BitmapImpl<Rgb> captured = Wx::getScreenRegionColors(Wx::toBucket(area));
    return wasRead(captured) ? captured : BitmapImpl<Rgb>();
}

String writeWindowPicture(const wxWindow& window, const Io::Path& file)
{
    const BitmapImpl<Rgb> captured = captureWindow(window);
    const wxBitmap bitmap = captured.isEmpty() ? wxBitmap() : Wx::toWxBitmap(captured, false);
    if (!bitmap.IsOk())
        return L"The window cannot be read from the screen.";
    wxMemoryOutputStream encoded;
    if (!bitmap.ConvertToImage().SaveFile(encoded, wxBITMAP_TYPE_PNG))
        return L"The picture of the window cannot be encoded.";
    try {
        Io::FileOutputStream stream(file, Io::Open::TRUNCATE);
        stream.write(encoded.GetOutputStreamBuffer()->GetBufferStart(),
                     static_cast<std::int64_t>(encoded.GetSize()));
        stream.close();
    } catch (const Exception& failure) {
        return String::fromUtf8(failure.what());
    }
    return {};
}

} // namespace Nolvex::Program
