// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MemoryImages.h"

#include <wx/debug.h>
#include <wx/log.h>
#include <wx/mstream.h>

namespace Nolvex {

namespace {

// Some decoders assert on headers that make no sense; a broken file is no defect of the program.
class ScopedSilence
{
public:
    ScopedSilence() : m_assertHandler(wxSetAssertHandler(nullptr)) {}

    ~ScopedSilence() { wxSetAssertHandler(m_assertHandler); }

    ScopedSilence(const ScopedSilence&) = delete;
    ScopedSilence& operator=(const ScopedSilence&) = delete;

private:
    wxLogNull m_noLogging;
    wxAssertHandler_t m_assertHandler;
};

} // namespace

wxImage Wx::convertMemoryToImage(const unsigned* data, int size, wxBitmapType type)
{
    if (data == nullptr || size < 1)
        return {};
    wxMemoryInputStream stream(data, static_cast<std::size_t>(size));
    return convertStreamToImage(stream, type);
}

wxImage Wx::convertStreamToImage(wxInputStream& stream, wxBitmapType type)
{
    const ScopedSilence silence;
    // Some decoders leave what they had read so far in an image that they failed to load.
    wxImage image;
    return image.LoadFile(stream, type) ? image : wxImage();
}

wxBitmap Wx::convertMemoryToBitmap(const unsigned* data, int size, wxBitmapType type)
{
    const wxImage image = convertMemoryToImage(data, size, type);
    return image.IsOk() ? wxBitmap(image, wxBITMAP_SCREEN_DEPTH, 1.0) : wxBitmap();
}

} // namespace Nolvex
