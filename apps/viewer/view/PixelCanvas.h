// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/bitmap.h>
#include <wx/rawbmp.h>

#include <cstdint>

namespace Nolvex::Viewer {

/// The memory of a bitmap without alpha while pixels are written to it: straight into the memory that the
/// system draws from. Several threads may write at once to different rows.
class PixelCanvas : private Noncopyable
{
public:
    static constexpr int COLOUR_BYTES = 3;

    /// Makes a bitmap with undefined pixels, which is invalid if it is too large or memory has run out.
    static wxBitmap makeBitmap(const wxSize& size);

    explicit PixelCanvas(wxBitmap& bitmap) : m_size(bitmap.GetSize()), m_data(bitmap) {}

    bool isOk() const { return static_cast<bool>(const_cast<wxNativePixelData&>(m_data)); }

    wxSize size() const { return m_size; }

    /// The memory of a row, three bytes for each pixel in the order of the system.
    std::uint8_t* row(int y);

    /// Puts the colours of some pixels, red first, into the order of the bitmap, or back.
    static void swapToNativeOrder(std::uint8_t* colours, int count);

private:
    wxSize m_size;
    wxNativePixelData m_data;
};

} // namespace Nolvex::Viewer
