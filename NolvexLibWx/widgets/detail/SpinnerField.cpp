// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/SpinnerField.h"

#include "NolvexLibWx/paint/PerScale.h"

#include <wx/app.h>

namespace Nolvex {

namespace {

constexpr long STYLE = wxBORDER_NONE | wxTE_PROCESS_ENTER | wxTE_NO_VSCROLL;
// These values were found by eye with the fonts of each scale.
constexpr PerScale<int> HEIGHT{14, 16, 20};

} // namespace

Wx::Detail::SpinnerField::Event::Event(SpinnerField& field, wxWindow* spinner)
    : m_field(field), m_spinner(spinner)
{
    ++m_field.m_events;
}

Wx::Detail::SpinnerField::Event::~Event()
{
    // The spinner owns the object that counts.
    if (m_spinner)
        --m_field.m_events;
}

Wx::TextControl* Wx::Detail::SpinnerField::make(wxWindow* border, int width)
{
    m_control = new TextControl(border, wxID_ANY, String(), STYLE, {}, wxSize(width, atScreenScale(HEIGHT)));
    m_control->applySkin(GuiSkin::DEFAULT());
    return m_control;
}

void Wx::Detail::SpinnerField::showValue(const wxString& text)
{
    m_shownValue = text;
    // SetValue sends wxEVT_TEXT, whose handlers may destroy the spinner and this object.
    if (m_control)
        m_control->SetValue(text);
}

bool Wx::Detail::SpinnerField::isEdited() const
{
    return m_control && m_control->GetValue() != m_shownValue;
}

void Wx::Detail::SpinnerField::selectAll() const
{
    if (m_control)
        m_control->SetSelection(-1, -1);
}

void Wx::Detail::SpinnerField::release(wxWindow* parent) const
{
    if (!m_control || m_events == 0)
        return;
    // After the handlers of a key, wxWidgets and GTK go on using the field that received the key.
    while (parent->IsBeingDeleted() && !parent->IsTopLevel())
        parent = parent->GetParent();
    m_control->Hide();
    m_control->Reparent(parent);
    wxTheApp->ScheduleForDestruction(m_control);
}

} // namespace Nolvex
