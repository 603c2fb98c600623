// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/panel.h>

namespace Nolvex::Platform {

/// A panel whose font and colours are for its own painting. The toolkit would write a style sheet for each
/// and have GTK read it, which takes longer than making the window; this one only remembers them, and paints
/// its background itself.
///
/// Disabled while it has the mouse, it keeps it until it lets go: GTK sends nothing to what is disabled, and
/// the release would never come. When a parent is disabled, the mouse is taken from it, as told by
/// wxEVT_MOUSE_CAPTURE_LOST; and in either case the mouse is said to have left it, which GTK does not say.
class NOLVEXLIBWX_EXPORT SelfPaintedPanel : public wxPanel
{
public:
    SelfPaintedPanel(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size, long style,
                     const wxString& name);
    ~SelfPaintedPanel() override;

    bool SetFont(const wxFont& font) override;
    bool SetBackgroundColour(const wxColour& colour) override;
    bool SetForegroundColour(const wxColour& colour) override;

    void OnInternalIdle() override;

protected:
    void DoEnable(bool enable) override;
    bool TryBefore(wxEvent& event) override;
    bool TryAfter(wxEvent& event) override;

private:
    bool m_isDisabledLater = false;
    bool m_isWatched = false;
};

} // namespace Nolvex::Platform
