// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/stattext.h>

namespace Nolvex::Platform {

/// A label that receives wxEVT_PAINT and the events of the mouse. The label of wxWidgets is a GtkLabel, which
/// has no window to receive them. This label has a window of its own and no GtkLabel, so the derived class
/// paints the text.
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

    // The overrides of all functions that would use the GtkLabel.
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
