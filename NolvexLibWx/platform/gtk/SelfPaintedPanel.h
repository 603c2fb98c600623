// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/panel.h>

namespace Nolvex::Platform {

/// A panel whose font and colours are for its own painting. wxWidgets would write a style sheet for each of
/// them for GTK to read, which takes longer than creating the window; this panel only remembers them, and
/// paints its background itself. The panel also receives enter and leave events when it is enabled or
/// disabled under the mouse.
class NOLVEXLIBWX_EXPORT SelfPaintedPanel : public wxPanel
{
public:
    SelfPaintedPanel(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size, long style,
                     const wxString& name);
    ~SelfPaintedPanel() override;

    bool SetFont(const wxFont& font) override;
    bool SetBackgroundColour(const wxColour& colour) override;
    bool SetForegroundColour(const wxColour& colour) override;

protected:
    bool TryBefore(wxEvent& event) override;
    bool TryAfter(wxEvent& event) override;

private:
    bool m_hoverWatched = false;
};

} // namespace Nolvex::Platform
