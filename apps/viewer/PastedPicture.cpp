// SPDX-License-Identifier: MIT
#include "apps/viewer/PastedPicture.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/reading/WxImagePixels.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/image.h>

#include <utility>

namespace Nolvex::Viewer {

namespace {

Expected<PastedContent, String> takeFiles()
{
    wxFileDataObject files;
    PastedContent content;
    if (wxTheClipboard->GetData(files)) {
        for (const wxString& name : files.GetFilenames())
            content.files.emplace_back(Wx::toString(name));
    }
    if (content.files.empty())
        return Unexpected{String(L"The files on the clipboard cannot be read.")};
    return content;
}

Expected<PastedContent, String> takePicture()
{
    wxBitmapDataObject bitmap;
    if (!wxTheClipboard->GetData(bitmap) || !bitmap.GetBitmap().IsOk())
        return Unexpected{String(L"The picture on the clipboard cannot be read.")};
    Expected<Image, String> image = toImage(bitmap.GetBitmap().ConvertToImage());
    if (!image)
        return Unexpected{image.error()};
    return PastedContent{{}, std::make_shared<const Picture>(L"Pasted picture", std::move(*image))};
}

} // namespace

Expected<PastedContent, String> pasteFromClipboard()
{
    const wxClipboardLocker lock;
    if (!lock)
        return Unexpected{String(L"Nothing was pasted: another program is using the clipboard.")};
    if (wxTheClipboard->IsSupported(wxDF_FILENAME))
        return takeFiles();
    if (wxTheClipboard->IsSupported(wxDF_BITMAP))
        return takePicture();
    return Unexpected{String(L"There is no picture on the clipboard.")};
}

} // namespace Nolvex::Viewer
