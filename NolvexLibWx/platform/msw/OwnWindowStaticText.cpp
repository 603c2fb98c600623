// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/msw/OwnWindowStaticText.h"

#include "NolvexLibWx/paint/LabelExtent.h"
#include "NolvexLibWx/platform/Accessibility.h"

namespace Nolvex {

Platform::OwnWindowStaticText::OwnWindowStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                                                   const wxPoint& pos, const wxSize& size, long style,
                                                   const wxString& name)
    : wxStaticText(parent, id, label, pos, size, style, name)
{
    describeControl(*this, AccessibleRole::LABEL);
}

Platform::OwnWindowStaticText::~OwnWindowStaticText() = default;

void Platform::OwnWindowStaticText::SetLabel(const wxString& label)
{
    wxStaticText::SetLabel(label);
    renameControl(*this);
}

wxSize Platform::OwnWindowStaticText::DoGetBestClientSize() const
{
    return labelExtent(*this);
}

} // namespace Nolvex
