// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/TooltipWindow.h"

#include <wx/bitmap.h>
#include <wx/scrolwin.h>

namespace Nolvex::Viewer {

/// Shows a bitmap at its own size: in the middle while there is room, scrolled by bars, wheel and arrow keys
/// when it is larger. An invalid bitmap shows the background only.
class ImageView : public wxScrolledWindow, public Wx::TooltipWindow
{
public:
    ImageView(wxWindow* parent, const wxBitmap& bitmap);

    /// Shows its top left corner.
    void setBitmap(const wxBitmap& bitmap);

    const wxBitmap& bitmap() const { return m_bitmap; }

    /// True once a bitmap has been painted.
    bool wasPainted() const { return m_painted; }

private:
    void onPaint(wxPaintEvent& event);
    wxPoint bitmapOrigin() const;
    wxSize bitmapSize() const;

    wxBitmap m_bitmap;
    bool m_painted = false;
};

} // namespace Nolvex::Viewer
