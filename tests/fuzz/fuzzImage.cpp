// SPDX-License-Identifier: MIT
// Fuzzes the decoding of images by wxWidgets' decoders after the library's own checks. The decoders are not
// instrumented: their defects show as signals and through the sanitizer's allocator.
#include "Fuzz.h"

#include "NolvexLibWx/MemoryImages.h"

#include <wx/imagbmp.h>
#include <wx/imaggif.h>
#include <wx/imagjpeg.h>
#include <wx/imagpng.h>
#include <wx/imagtga.h>
#include <wx/imagtiff.h>
#include <wx/init.h>

using Nolvex::Fuzz::require;

namespace {

// The handlers that the library registers, in its order.
void addHandlers()
{
    static const wxInitializer TOOLKIT;
    wxImage::AddHandler(new wxPNGHandler);
    wxImage::AddHandler(new wxJPEGHandler);
    wxImage::AddHandler(new wxICOHandler);
    wxImage::AddHandler(new wxBMPHandler);
    wxImage::AddHandler(new wxGIFHandler);
    wxImage::AddHandler(new wxTIFFHandler);
    wxImage::AddHandler(new wxTGAHandler);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool READY = (addHandlers(), true);
    require(READY);
    const wxImage image = Nolvex::Wx::convertMemoryToImage(reinterpret_cast<const unsigned*>(data),
                                                           static_cast<int>(size), wxBITMAP_TYPE_ANY);
    const auto whole = Nolvex::Wx::decodeWholeImage({reinterpret_cast<const std::byte*>(data), size});
    // If decodeWholeImage succeeds, convertMemoryToImage must succeed, too, with the same size. An error is a
    // part of a sentence.
    if (whole)
        require(image.IsOk() && image.GetSize() == whole->GetSize());
    else
        require(whole.error().find(L"it ") == 0 || whole.error().find(L"there ") == 0);
    return 0;
}
