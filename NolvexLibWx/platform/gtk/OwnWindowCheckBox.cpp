// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OwnWindowCheckBox.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/paint/CheckBoxExtent.h"
#include "NolvexLibWx/platform/FocusTransfer.h"
#include "NolvexLibWx/platform/gtk/InputMethod.h"
#include "NolvexLibWx/platform/gtk/Mnemonic.h"

#include <gtk/gtk.h>

// These calls skip wxCheckBox, whose functions use the GtkCheckButton, and call wxControl and wxWindow.
// NOLINTBEGIN(bugprone-parent-virtual-call)

namespace Nolvex {

Platform::OwnWindowCheckBox::OwnWindowCheckBox() = default;

Platform::OwnWindowCheckBox::~OwnWindowCheckBox() = default;

bool Platform::OwnWindowCheckBox::Create(wxWindow* parent, wxWindowID id, const wxString& label,
                                         const wxPoint& pos, const wxSize& size, long style,
                                         const wxValidator& validator, const wxString& name)
{
    WXValidateStyle(&style);
    // wxWidgets asks for the best size while it creates the window.
    m_labelOrig = label;
    const long windowStyle = style | wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE;
    if (!wxControl::Create(parent, id, pos, size, windowStyle, validator, name))
        return false;
    useNoInputMethod(*this);
    // On Windows wxWidgets does the same while it makes the window.
    SetFont(GetFont());
    SetInitialSize(size);
    bindEvents();
    updateMnemonic();
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
    updateMnemonic();
    InvalidateBestSize();
    Wx::updateAccessible(*this);
    Refresh();
}

void Platform::OwnWindowCheckBox::updateMnemonic()
{
    // The object is created when it is first needed, because few check boxes have a mnemonic.
    const bool marked = FindAccelIndex(m_labelOrig) != wxNOT_FOUND;
    if (marked && !m_mnemonic)
        m_mnemonic = std::make_unique<Mnemonic>(m_widget, [this](bool works) { onMnemonic(works); });
    if (m_mnemonic)
        m_mnemonic->setLabel(m_labelOrig);
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
    m_press.begin(Wx::Press::Means::MOUSE);
    // If the check box is destroyed, no further handlers can be looked for.
    if (!transferFocus(*this))
        event.Skip(false);
}

void Platform::OwnWindowCheckBox::onMouseUp(wxMouseEvent& event)
{
    // The event is not skipped after a toggle, whose handlers may have destroyed the check box.
    if (m_press.release(event.GetPosition()) == Wx::Press::Outcome::COMPLETED)
        toggle();
    else
        event.Skip();
}

void Platform::OwnWindowCheckBox::onCaptureLost(wxMouseCaptureLostEvent& /*event*/)
{
    m_press.cancel();
}

void Platform::OwnWindowCheckBox::onFocusChanged(wxFocusEvent& event)
{
    event.Skip();
    // The release of the key would go to another window.
    m_press.releaseKey();
    Refresh();
}

void Platform::OwnWindowCheckBox::onKeyDown(wxKeyEvent& event)
{
    event.Skip();
    if (event.GetKeyCode() != WXK_SPACE)
        m_press.releaseKey();
    else if (!m_press.isHeld())
        m_press.begin(Wx::Press::Means::KEYBOARD);
}

void Platform::OwnWindowCheckBox::onKeyUp(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_SPACE && m_press.releaseKey() == Wx::Press::Outcome::COMPLETED)
        toggle();
    else
        event.Skip();
}

void Platform::OwnWindowCheckBox::onChar(wxKeyEvent& event)
{
    // wxWidgets would move the focus when Tab is pressed.
    if (event.GetKeyCode() != WXK_TAB)
        event.Skip();
}

void Platform::OwnWindowCheckBox::onMnemonic(bool works)
{
    if (transferFocus(*this) && works)
        toggle();
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
