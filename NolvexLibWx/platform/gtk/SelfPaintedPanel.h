// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/panel.h>

namespace Nolvex::Platform {

/// A panel whose font and colours are for its own painting. The toolkit would write a style sheet for each
/// and have GTK read it, which takes longer than making the window; this one only remembers them, and paints
/// its background itself.
class NOLVEXLIBWX_EXPORT SelfPaintedPanel : public wxPanel
{
public:
    SelfPaintedPanel(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size, long style,
                     const wxString& name);
    ~SelfPaintedPanel() override;

    bool SetFont(const wxFont& font) override;
    bool SetBackgroundColour(const wxColour& colour) override;
    bool SetForegroundColour(const wxColour& colour) override;

private:
    void onErase(wxEraseEvent& event);
};

} // namespace Nolvex::Platform
