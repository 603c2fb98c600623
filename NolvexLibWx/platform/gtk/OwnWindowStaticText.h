// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/stattext.h>

namespace Nolvex::Platform {

/// A label that is sent wxEVT_PAINT and the events of the mouse. The toolkit's is a GtkLabel, which has no
/// window to get them; this one has a window of its own and no GtkLabel, so whoever derives from it paints
/// the label.
class NOLVEXLIBWX_EXPORT OwnWindowStaticText : public wxStaticText
{
public:
    OwnWindowStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                        const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                        long style = 0, const wxString& name = wxASCII_STR(wxStaticTextNameStr));
    ~OwnWindowStaticText() override;

    void SetLabel(const wxString& label) override;
    bool SetFont(const wxFont& font) override;

protected:
    bool TryBefore(wxEvent& event) override;

    // All that would reach for the GtkLabel.
    wxSize DoGetBestSize() const override;
    wxString WXGetVisibleLabel() const override;
    void WXSetVisibleLabel(const wxString& label) override;
    bool DoSetLabelMarkup(const wxString& markup) override;
    bool GTKWidgetNeedsMnemonic() const override;
    void GTKWidgetDoSetMnemonic(GtkWidget* widget) override;

private:
    bool m_hoverWatched = false;
};

} // namespace Nolvex::Platform
