// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/widgets/PixelProbe.h"

#include <wx/event.h>
#include <wx/weakref.h>

namespace Nolvex::Viewer {

class ImageView;

/// Shows the values of a pixel of a view's picture in a frame beside the pixel: as light, and as the view's
/// settings put them on the screen. The pixel is the one under the mouse, or the one that the keyboard has
/// chosen until the mouse moves again. The frame is hidden while there is no such pixel, and while the view's
/// window is not the active one. A pixel that the keyboard chooses switches the tool on by the command
/// PIXEL_PROBE.
class ProbeTool : private Noncopyable
{
public:
    /// The view must outlive the tool. The tool is off at first.
    explicit ProbeTool(ImageView& view);
    ~ProbeTool();

    void setActive(bool active);

    bool isActive() const { return m_active; }

    /// Returns null until the tool has been switched on.
    const Wx::PixelProbe* frame() const { return m_frame; }

private:
    void onMoved(wxMouseEvent& event);
    void onPressed(wxMouseEvent& event);
    void onLeft(wxMouseEvent& event);
    void onCursor();
    void onActivated(wxActivateEvent& event);
    void onPainted(wxPaintEvent& event);
    void onIdle(wxIdleEvent& event);
    void follow();
    bool hasPixel() const;
    wxPoint place() const;
    Wx::PixelProbe::ProbedPixel probe(const Pixel& screenPosition) const;

    ImageView& m_view;
    wxWeakRef<wxWindow> m_topLevel;
    wxWeakRef<Wx::PixelProbe> m_frame; // child of the view
    wxPoint m_mouse;                   // in the view
    bool m_active = false;
    bool m_mouseInside = false;
    bool m_windowActive = true;
    bool m_outdated = false; // the view has been painted since
};

} // namespace Nolvex::Viewer
