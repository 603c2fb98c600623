// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/stattext.h>

namespace Nolvex::Platform {

/// A wxStaticText whose best size is that of the label as it is painted, and which tells the label to
/// assistive technology. wxWidgets would leave no room for a "&", and Windows would leave it out of the name.
class NOLVEXLIBWX_EXPORT OwnWindowStaticText : public wxStaticText
{
public:
    OwnWindowStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                        const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                        long style = 0, const wxString& name = wxASCII_STR(wxStaticTextNameStr));
    ~OwnWindowStaticText() override;

    void SetLabel(const wxString& label) override;

protected:
    wxSize DoGetBestClientSize() const override;
};

} // namespace Nolvex::Platform
