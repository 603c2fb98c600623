// SPDX-License-Identifier: MIT
#include "apps/viewer/WindowPicture.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileOutputStream.h"

#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/toplevel.h>

namespace Nolvex::Viewer {

String writeWindowPicture(const wxTopLevelWindow& window, const Io::Path& file)
{
    const wxRect area(window.ClientToScreen(wxPoint(0, 0)), window.GetClientSize());
    wxBitmap bitmap(area.GetSize(), 24);
    {
        wxMemoryDC memory(bitmap);
        wxScreenDC screen;
        memory.Blit(wxPoint(0, 0), area.GetSize(), &screen, area.GetTopLeft());
    }
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

} // namespace Nolvex::Viewer
