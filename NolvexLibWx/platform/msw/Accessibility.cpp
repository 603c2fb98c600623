// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/Accessibility.h"

#include <wx/access.h>
#include <wx/msw/private.h>

#include <utility>

namespace Nolvex {

namespace {

using Platform::AccessibleRole;

wxAccRole systemRole(AccessibleRole role)
{
    using enum AccessibleRole;
    switch (role) {
    case DROPDOWN_BUTTON:
        return wxROLE_SYSTEM_BUTTONDROPDOWN;
    case CHECK_BOX:
        return wxROLE_SYSTEM_CHECKBUTTON;
    case LABEL:
        return wxROLE_SYSTEM_STATICTEXT;
    case LINK:
        return wxROLE_SYSTEM_LINK;
    case GROUP:
        return wxROLE_SYSTEM_GROUPING;
    case PUSH_BUTTON:
    case TOGGLE_BUTTON:
    case DISCLOSURE:
        break;
    }
    return wxROLE_SYSTEM_PUSHBUTTON;
}

// As every window has them.
long windowStates(const wxWindow& control)
{
    long states = 0;
    if (!control.IsEnabled())
        states |= wxACC_STATE_SYSTEM_UNAVAILABLE;
    if (!control.IsShownOnScreen())
        states |= wxACC_STATE_SYSTEM_INVISIBLE;
    if (control.IsFocusable())
        states |= wxACC_STATE_SYSTEM_FOCUSABLE;
    if (control.HasFocus())
        states |= wxACC_STATE_SYSTEM_FOCUSED;
    return states;
}

long checkBoxState(const wxCheckBoxBase& checkBox)
{
    switch (checkBox.Get3StateValue()) {
    case wxCHK_CHECKED:
        return wxACC_STATE_SYSTEM_CHECKED;
    case wxCHK_UNDETERMINED:
        return wxACC_STATE_SYSTEM_MIXED;
    case wxCHK_UNCHECKED:
        break;
    }
    return 0;
}

class Description : public wxAccessible
{
public:
    Description(wxWindow& control, AccessibleRole role) : wxAccessible(&control), m_role(role) {}

    // Whether that is a change.
    bool switchOn(bool on) { return std::exchange(m_on, on) != on; }

    wxAccStatus GetRole(int childId, wxAccRole* role) override
    {
        if (childId != wxACC_SELF)
            return wxACC_NOT_IMPLEMENTED;
        *role = systemRole(m_role);
        return wxACC_OK;
    }

    wxAccStatus GetName(int childId, wxString* name) override
    {
        if (childId != wxACC_SELF)
            return wxACC_NOT_IMPLEMENTED;
        *name = Platform::accessibleName(*GetWindow());
        return wxACC_OK;
    }

    wxAccStatus GetState(int childId, long* state) override
    {
        if (childId != wxACC_SELF)
            return wxACC_NOT_IMPLEMENTED;
        *state = windowStates(*GetWindow()) | switchedState();
        return wxACC_OK;
    }

    wxAccStatus GetDefaultAction(int childId, wxString* action) override
    {
        if (childId != wxACC_SELF || !Platform::isClickable(m_role))
            return wxACC_NOT_IMPLEMENTED;
        *action = wxS("click");
        return wxACC_OK;
    }

    wxAccStatus DoDefaultAction(int childId) override
    {
        if (childId != wxACC_SELF || !Platform::isClickable(m_role))
            return wxACC_NOT_IMPLEMENTED;
        if (!Platform::canBeClicked(*GetWindow()))
            return wxACC_FAIL;
        click();
        return wxACC_OK;
    }

private:
    long switchedState()
    {
        if (const auto* checkBox = dynamic_cast<const wxCheckBoxBase*>(GetWindow()))
            return checkBoxState(*checkBox);
        if (m_role == AccessibleRole::DISCLOSURE)
            return m_on ? wxACC_STATE_SYSTEM_EXPANDED : wxACC_STATE_SYSTEM_COLLAPSED;
        return m_on ? wxACC_STATE_SYSTEM_PRESSED : 0;
    }

    // A press and a release in the middle, as by the mouse. Who asked is waiting for an answer, and a click
    // may open a dialog: hence later.
    void click()
    {
        const HWND window = GetHwndOf(GetWindow());
        const wxSize size = GetWindow()->GetClientSize();
        const LPARAM middle = MAKELPARAM(size.x / 2, size.y / 2);
        ::PostMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
        ::PostMessage(window, WM_LBUTTONUP, 0, middle);
    }

    AccessibleRole m_role;
    bool m_on = false;
};

} // namespace

void Platform::describeControl(wxWindow& control, AccessibleRole role)
{
    // The window owns it, in the place of an earlier one.
    control.SetAccessible(new Description(control, role));
}

void Platform::renameControl(wxWindow& control)
{
    wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_NAMECHANGE, &control, wxOBJID_CLIENT, wxACC_SELF);
}

void Platform::switchControl(wxWindow& control, bool on)
{
    auto* description = dynamic_cast<Description*>(control.GetAccessible());
    if (description != nullptr && description->switchOn(on))
        wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_STATECHANGE, &control, wxOBJID_CLIENT, wxACC_SELF);
}

} // namespace Nolvex
