// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OwnWindowCheckBox.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/paint/CheckBoxExtent.h"

#include <wx/msw/private.h>

namespace Nolvex {

Platform::OwnWindowCheckBox::~OwnWindowCheckBox() = default;

bool Platform::OwnWindowCheckBox::Create(wxWindow* parent, wxWindowID id, const wxString& label,
                                         const wxPoint& pos, const wxSize& size, long style,
                                         const wxValidator& validator, const wxString& name)
{
    if (!wxCheckBox::Create(parent, id, label, pos, size, style, validator, name))
        return false;
    OwnWindowCheckBox::SetForegroundColour(GetForegroundColour());
    return true;
}

bool Platform::OwnWindowCheckBox::SetForegroundColour(const wxColour& colour)
{
    // wxWidgets makes the button owner-drawn only if it has a colour.
    return wxCheckBox::SetForegroundColour(colour.IsOk() ? colour : GetDefaultAttributes().colFg);
}

void Platform::OwnWindowCheckBox::SetLabel(const wxString& label)
{
    wxCheckBox::SetLabel(label);
    Wx::updateAccessible(*this);
    Refresh();
}

bool Platform::OwnWindowCheckBox::MSWOnDraw(WXDRAWITEMSTRUCT* /*item*/)
{
    Refresh();
    return true;
}

WXLRESULT Platform::OwnWindowCheckBox::MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam)
{
    const WXLRESULT result = wxCheckBox::MSWWindowProc(message, wParam, lParam);
    // The parent would move the focus when Tab is pressed, unless the check box asks for the key.
    return message == WM_GETDLGCODE ? result | DLGC_WANTTAB : result;
}

void Platform::OwnWindowCheckBox::DoSet3StateValue(wxCheckBoxState value)
{
    wxCheckBox::DoSet3StateValue(value);
    Wx::updateAccessible(*this);
}

wxSize Platform::OwnWindowCheckBox::DoGetBestClientSize() const
{
    return checkBoxExtent(*this);
}

} // namespace Nolvex
