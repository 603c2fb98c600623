// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/stattext.h>

namespace Nolvex::Platform {

/// The toolkit's label, which has a window of its own here, measured as it is painted: the toolkit would
/// leave no room for a "&", and the system would leave it out when it tells the label to others.
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
