// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/TooltipWindow.h"
#include "apps/viewer/Picture.h"

#include <wx/bitmap.h>
#include <wx/eventfilter.h>
#include <wx/scrolwin.h>

namespace Nolvex::Viewer {

/// Shows a picture at its own size: in the middle while there is room, scrolled by bars, wheel and keys when
/// it is larger. Without a picture it shows the background only. When Tab brings the focus here, a dotted
/// line along the edges shows it.
class ImageView : public wxScrolledWindow, public Wx::TooltipWindow, private wxEventFilter
{
public:
    ImageView(wxWindow* parent, SharedPicture picture);
    ~ImageView() override;

    /// Shows the top left corner of another picture.
    void setPicture(SharedPicture picture);

    const SharedPicture& picture() const { return m_picture; }

    /// Returns the bitmap of the picture, or an invalid bitmap if there is no picture.
    const wxBitmap& bitmap() const;

    /// True once a picture has been painted.
    bool wasPainted() const { return m_painted; }

    /// True while the line along the edges shows that the keyboard is directed here.
    bool hasFocusMark() const { return m_focusMark; }

private:
    int FilterEvent(wxEvent& event) override;

    void onPaint(wxPaintEvent& event);
    void onFocus(wxFocusEvent& event);
    wxPoint bitmapOrigin() const;
    wxSize bitmapSize() const;

    SharedPicture m_picture;
    bool m_painted = false;
    bool m_tabPressed = false;
    bool m_focusMark = false;
};

} // namespace Nolvex::Viewer
