// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/msw/OwnWindowStaticText.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/detail/LabelledAccount.h"
#include "NolvexLibWx/paint/LabelExtent.h"

namespace Nolvex {

Platform::OwnWindowStaticText::OwnWindowStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                                                   const wxPoint& pos, const wxSize& size, long style,
                                                   const wxString& name)
    : wxStaticText(parent, id, label, pos, size, style, name)
{
    // While the constructor of wxWidgets ran, it asked its own class for the best size, and kept the answer.
    InvalidateBestSize();
    SetInitialSize(size);
    Wx::describeAs<Wx::LabelledAccount, Wx::AccessibleRole::LABEL>(*this);
}

Platform::OwnWindowStaticText::~OwnWindowStaticText() = default;

void Platform::OwnWindowStaticText::SetLabel(const wxString& label)
{
    wxStaticText::SetLabel(label);
    Wx::updateAccessible(*this);
}

wxSize Platform::OwnWindowStaticText::DoGetBestClientSize() const
{
    return labelExtent(*this);
}

} // namespace Nolvex
