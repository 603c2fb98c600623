// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/checkbox.h>

namespace Nolvex::Platform {

/// A wxCheckBox whose window Windows never paints. Windows would paint it whenever a key, the mouse or the
/// program changes its state, and not only in wxEVT_PAINT.
class NOLVEXLIBWX_EXPORT OwnWindowCheckBox : public wxCheckBox
{
public:
    OwnWindowCheckBox() = default;
    ~OwnWindowCheckBox() override;

    /// Must be called once, like wxCheckBox::Create.
    bool Create(wxWindow* parent, wxWindowID id, const wxString& label,
                const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxCheckBoxNameStr));

    bool SetForegroundColour(const wxColour& colour) override;
    void SetLabel(const wxString& label) override;

    bool MSWOnDraw(WXDRAWITEMSTRUCT* item) override;
    WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) override;

protected:
    void DoSet3StateValue(wxCheckBoxState value) override;
    wxSize DoGetBestClientSize() const override;
};

} // namespace Nolvex::Platform
