// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OwnWindowStaticText.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/detail/LabelledAccount.h"
#include "NolvexLibWx/paint/LabelExtent.h"
#include "NolvexLibWx/platform/HoverWatch.h"
#include "NolvexLibWx/platform/gtk/InputMethod.h"

#include <utility>

// These calls skip wxStaticText, whose functions use the GtkLabel, and call wxStaticTextBase.
// NOLINTBEGIN(bugprone-parent-virtual-call)

namespace Nolvex {

Platform::OwnWindowStaticText::OwnWindowStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                                                   const wxPoint& pos, const wxSize& size, long style,
                                                   const wxString& name)
{
    // wxWidgets asks for the best size while it creates the window.
    m_labelOrig = label;
    wxControl::Create(parent, id, pos, size, style | wxFULL_REPAINT_ON_RESIZE, wxDefaultValidator, name);
    useNoInputMethod(*this);
    SetInitialSize(size);
    Wx::describeAs<Wx::LabelledAccount, Wx::AccessibleRole::LABEL>(*this);
}

Platform::OwnWindowStaticText::~OwnWindowStaticText() = default;

void Platform::OwnWindowStaticText::SetLabel(const wxString& label)
{
    if (label == m_labelOrig)
        return;
    wxStaticTextBase::SetLabel(label);
    AutoResizeIfNecessary();
    Wx::updateAccessible(*this);
    Refresh();
}

bool Platform::OwnWindowStaticText::SetFont(const wxFont& font)
{
    const bool changed = wxStaticTextBase::SetFont(font);
    AutoResizeIfNecessary();
    return changed;
}

bool Platform::OwnWindowStaticText::TryBefore(wxEvent& event)
{
    // The mouse cannot be over what has never been painted.
    if (event.GetEventType() == wxEVT_PAINT && !std::exchange(m_hoverWatched, true))
        watchHover(*this);
    return wxStaticText::TryBefore(event);
}

wxSize Platform::OwnWindowStaticText::DoGetBestSize() const
{
    return labelExtent(*this);
}

wxString Platform::OwnWindowStaticText::WXGetVisibleLabel() const
{
    return GetLabel();
}

void Platform::OwnWindowStaticText::WXSetVisibleLabel(const wxString& /*label*/)
{
    // The derived class paints GetLabel(), so no other text needs to be stored.
}

bool Platform::OwnWindowStaticText::DoSetLabelMarkup(const wxString& markup)
{
    return wxStaticTextBase::DoSetLabelMarkup(markup);
}

bool Platform::OwnWindowStaticText::GTKWidgetNeedsMnemonic() const
{
    return false;
}

void Platform::OwnWindowStaticText::GTKWidgetDoSetMnemonic(GtkWidget* /*widget*/) {}

} // namespace Nolvex

// NOLINTEND(bugprone-parent-virtual-call)
