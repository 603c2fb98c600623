// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/widgets/PixelProbe.h"

#include <wx/event.h>
#include <wx/weakref.h>

namespace Nolvex::Viewer {

class ImageView;

/// Shows the values of the pixel under the mouse in a frame that follows the mouse over a view's picture: as
/// light, and as the view's settings put them on the screen. The frame is hidden while the mouse is not over
/// the picture, and while the view's window is not the active one.
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
    void onLeft(wxMouseEvent& event);
    void onActivated(wxActivateEvent& event);
    void onPainted(wxPaintEvent& event);
    void onIdle(wxIdleEvent& event);
    void follow();
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
