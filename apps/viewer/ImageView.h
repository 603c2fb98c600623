// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/scrolwin.h>

namespace Nolvex::Viewer {

/// Shows a bitmap at its own size: in the middle while there is room, scrolled by bars, wheel and arrow keys
/// when it is larger.
class ImageView : public wxScrolledWindow
{
public:
    ImageView(wxWindow* parent, const wxBitmap& bitmap);

    /// True once the bitmap has been painted.
    bool wasPainted() const { return m_painted; }

private:
    void onPaint(wxPaintEvent& event);
    wxPoint bitmapOrigin() const;

    wxBitmap m_bitmap;
    bool m_painted = false;
};

} // namespace Nolvex::Viewer
