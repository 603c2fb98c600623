// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/bitmap.h>
#include <wx/panel.h>

namespace Nolvex::Wx {

/// A panel that shows one bitmap at its top-left corner and is as large as the bitmap it is made with. It
/// takes no focus from the keyboard. An invalid bitmap shows nothing.
class NOLVEXLIBWX_EXPORT StaticBitmap : public wxPanel
{
public:
    StaticBitmap(wxWindow* parent, int id, const wxBitmap& bitmap);
    ~StaticBitmap() override;

    /// Shows another bitmap, cut off where it is larger than the panel, whose size stays.
    void setBitmap(const wxBitmap& bitmap);

    const wxBitmap& bitmap() const { return m_bitmap; }

    bool AcceptsFocusFromKeyboard() const override { return false; }

private:
    void onPaint(wxPaintEvent& event);

    wxBitmap m_bitmap;
};

} // namespace Nolvex::Wx
