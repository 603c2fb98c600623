// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/widgets/TooltipWindow.h"
#include "apps/viewer/DisplaySettings.h"
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

    /// Shows the picture with other settings, and keeps them for the pictures to come. Only the part that can
    /// be seen is developed, so that a change is on the screen with the next frame.
    void setDisplay(const DisplaySettings& settings);

    const DisplaySettings& display() const { return m_display; }

    /// Sets the colour around the picture.
    void setSurround(const RgbBytes& color);

    /// Returns the bitmap of the picture, or an invalid bitmap if there is no picture.
    const wxBitmap& bitmap() const;

    /// Returns the size of the whole picture on the screen, in pixels of wxWidgets. Each pixel of the picture
    /// is one pixel of the device.
    wxSize shownSize() const;

    /// Returns the pixel of the picture that is shown at a position of the client area, or nullopt beside the
    /// picture. Counts from the top left pixel.
    Optional<Pixel> pixelAt(const wxPoint& position) const;

    /// True once a picture has been painted.
    bool wasPainted() const { return m_painted; }

    /// True while the line along the edges shows that the keyboard is directed here.
    bool hasFocusMark() const { return m_focusMark; }

private:
    int FilterEvent(wxEvent& event) override;

    void onPaint(wxPaintEvent& event);
    void onFocus(wxFocusEvent& event);
    wxBitmap visibleBitmap(const wxRect& area);
    const wxBitmap& developedBitmap(const wxRect& part);
    void onSized(wxSizeEvent& event);
    int pixelsPerUnit() const;
    wxPoint bitmapOrigin() const;

    SharedPicture m_picture;
    DisplaySettings m_display;
    wxBitmap m_developed; // what was painted last, if that was not the picture's own bitmap
    wxRect m_developedPart;
    bool m_painted = false;
    bool m_tabPressed = false;
    bool m_focusMark = false;
};

} // namespace Nolvex::Viewer
