// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OwnWindowCheckBox.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/CheckBoxExtent.h"

#include <wx/weakref.h>

#include <gtk/gtk.h>

#include <utility>

// The calls of wxControl and wxWindow pass wxCheckBox over, whose functions are about the GtkCheckButton.
// NOLINTBEGIN(bugprone-parent-virtual-call)

namespace Nolvex {

Platform::OwnWindowCheckBox::~OwnWindowCheckBox()
{
    if (m_widget != nullptr)
        g_signal_handlers_disconnect_by_func(m_widget, reinterpret_cast<gpointer>(&onStateChanged), this);
    m_capture.end();
}

bool Platform::OwnWindowCheckBox::Create(wxWindow* parent, wxWindowID id, const wxString& label,
                                         const wxPoint& pos, const wxSize& size, long style,
                                         const wxValidator& validator, const wxString& name)
{
    WXValidateStyle(&style);
    // The best size is asked for while the window is created.
    m_labelOrig = label;
    const long windowStyle = style | wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE;
    if (!wxControl::Create(parent, id, pos, size, windowStyle, validator, name))
        return false;
    // As on Windows, where the toolkit sets the font while it makes the window.
    SetFont(GetFont());
    SetInitialSize(size);
    bindEvents();
    // Also told when a parent is disabled, which the toolkit says to nobody.
    g_signal_connect(m_widget, "state-flags-changed", G_CALLBACK(onStateChanged), this);
    return true;
}

void Platform::OwnWindowCheckBox::bindEvents()
{
    Bind(wxEVT_LEFT_DOWN, &OwnWindowCheckBox::onMouseDown, this);
    Bind(wxEVT_LEFT_DCLICK, &OwnWindowCheckBox::onMouseDown, this);
    Bind(wxEVT_LEFT_UP, &OwnWindowCheckBox::onMouseUp, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &OwnWindowCheckBox::onCaptureLost, this);
    Bind(wxEVT_KEY_DOWN, &OwnWindowCheckBox::onKeyDown, this);
    Bind(wxEVT_KEY_UP, &OwnWindowCheckBox::onKeyUp, this);
    Bind(wxEVT_CHAR, &OwnWindowCheckBox::onChar, this);
    Bind(wxEVT_SET_FOCUS, &OwnWindowCheckBox::onFocusChanged, this);
    Bind(wxEVT_KILL_FOCUS, &OwnWindowCheckBox::onFocusChanged, this);
}

void Platform::OwnWindowCheckBox::SetValue(bool value)
{
    DoSet3StateValue(value ? wxCHK_CHECKED : wxCHK_UNCHECKED);
}

void Platform::OwnWindowCheckBox::DoSet3StateValue(wxCheckBoxState value)
{
    m_value = value;
    Wx::updateAccessible(*this);
    Refresh();
}

void Platform::OwnWindowCheckBox::SetLabel(const wxString& label)
{
    wxControlBase::SetLabel(label);
    m_labelOrig = label;
    InvalidateBestSize();
    Wx::updateAccessible(*this);
    Refresh();
}

wxSize Platform::OwnWindowCheckBox::DoGetBestSize() const
{
    return checkBoxExtent(*this);
}

bool Platform::OwnWindowCheckBox::DoSetLabelMarkup(const wxString& markup)
{
    SetLabel(RemoveMarkup(markup));
    return true;
}

bool Platform::OwnWindowCheckBox::GTKWidgetNeedsMnemonic() const
{
    return false;
}

void Platform::OwnWindowCheckBox::GTKWidgetDoSetMnemonic(GtkWidget* /*widget*/) {}

void Platform::OwnWindowCheckBox::DoEnable(bool enable)
{
    wxControl::DoEnable(enable);
    Refresh();
}

void Platform::OwnWindowCheckBox::DoApplyWidgetStyle(GtkRcStyle* style)
{
    wxControl::DoApplyWidgetStyle(style);
}

GdkWindow* Platform::OwnWindowCheckBox::GTKGetWindow(wxArrayGdkWindows& windows) const
{
    return wxControl::GTKGetWindow(windows);
}

void Platform::OwnWindowCheckBox::onMouseDown(wxMouseEvent& event)
{
    event.Skip();
    m_mousePressed = true;
    m_capture.begin();
    const wxWeakRef<wxWindow> self(this);
    SetFocus();
    // Whoever saw the focus move may have destroyed it; then there is nobody to look for further handlers.
    if (!self)
        event.Skip(false);
}

void Platform::OwnWindowCheckBox::onMouseUp(wxMouseEvent& event)
{
    m_capture.end();
    if (!std::exchange(m_mousePressed, false) || !GetClientRect().Contains(event.GetPosition())) {
        event.Skip();
        return;
    }
    // Not skipped: after it the check box may be gone.
    toggle();
}

void Platform::OwnWindowCheckBox::onCaptureLost(wxMouseCaptureLostEvent& /*event*/)
{
    m_capture.lost();
    m_mousePressed = false;
}

void Platform::OwnWindowCheckBox::onStateChanged(GtkWidget* widget, unsigned int /*before*/,
                                                 OwnWindowCheckBox* checkBox) noexcept
{
    if (gtk_widget_is_sensitive(widget))
        return;
    // No release comes to what is disabled: it would keep the mouse for ever.
    checkBox->m_mousePressed = checkBox->m_spacePressed = false;
    checkBox->m_capture.end();
}

void Platform::OwnWindowCheckBox::onFocusChanged(wxFocusEvent& event)
{
    event.Skip();
    m_spacePressed = false;
    Refresh();
}

void Platform::OwnWindowCheckBox::onKeyDown(wxKeyEvent& event)
{
    event.Skip();
    m_spacePressed = event.GetKeyCode() == WXK_SPACE;
}

void Platform::OwnWindowCheckBox::onKeyUp(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_SPACE && std::exchange(m_spacePressed, false))
        toggle();
    else
        event.Skip();
}

void Platform::OwnWindowCheckBox::onChar(wxKeyEvent& event)
{
    // The toolkit would move the focus when it is pressed.
    if (event.GetKeyCode() != WXK_TAB)
        event.Skip();
}

void Platform::OwnWindowCheckBox::toggle()
{
    const bool mayBeUndetermined = Is3State() && Is3rdStateAllowedForUser();
    if (m_value == wxCHK_CHECKED)
        DoSet3StateValue(mayBeUndetermined ? wxCHK_UNDETERMINED : wxCHK_UNCHECKED);
    else
        DoSet3StateValue(m_value == wxCHK_UNCHECKED ? wxCHK_CHECKED : wxCHK_UNCHECKED);
    wxCommandEvent event(wxEVT_CHECKBOX, GetId());
    event.SetInt(m_value);
    event.SetEventObject(this);
    HandleWindowEvent(event);
}

} // namespace Nolvex

// NOLINTEND(bugprone-parent-virtual-call)
