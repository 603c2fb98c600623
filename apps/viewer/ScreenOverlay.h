// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLibWx/MouseCapture.h"
#include "apps/viewer/platform/PixelCanvas.h"

#include <wx/window.h>

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxFrame;

namespace Nolvex::Viewer {

class ScreenRegionChoice;

/// Fills a frame over one display, shows the part of the picture there, and turns the user's input into
/// changes of the region. A part of ScreenRegionChoice.
class ScreenOverlay : public wxWindow
{
public:
    /// `part` are the pixels of the picture that the display shows.
    ScreenOverlay(wxFrame& frame, ScreenRegionChoice& choice, const wxRect& part);

    /// Shows the region of the choice, which has changed.
    void showRegion();

    /// Hides and destroys the frame, and calls the choice no more.
    void remove();

    /// The region of the choice.
    Optional<wxRect> region() const;

    /// Returns the pixel of the picture at a position of the client area or beside it.
    Pixel pixelAt(const wxPoint& position) const;

private:
    void onPaint(wxPaintEvent& event);
    void onPressed(wxMouseEvent& event);
    void onMoved(wxMouseEvent& event);
    void onReleased(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void onKey(wxKeyEvent& event);
    void cancel();
    void moveRegion(const Pixel& direction, int modifiers);
    int pixelsPerUnit() const;
    double scale() const;
    wxRect deviceRect(const wxRect& pixels) const;
    bool drawPicture(wxDC& dc);
    void drawRegion(wxDC& dc, const wxRect& region) const;
    void drawHint(wxDC& dc) const;
    void drawLabel(wxDC& dc, const wxString& text, const wxPoint& corner) const;

    ScreenRegionChoice* m_choice; // null after remove()
    wxRect m_part;
    Wx::MouseCapture m_capture{this};
    std::unique_ptr<Platform::PixelCanvas> m_bright; // the part of the picture
    std::unique_ptr<Platform::PixelCanvas> m_canvas; // with what lies beside the region dimmed
    wxPoint m_pressed;
    bool m_dragging = false;
    bool m_moved = false; // since the button was pressed
};

} // namespace Nolvex::Viewer
