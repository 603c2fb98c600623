// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/AccessibleControl.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Button.h"

namespace Nolvex::Wx {

/// The account of a push or toggle button, and the base of those of other buttons.
class ButtonAccount : public AccessibleControl
{
public:
    ButtonAccount(Button& button, AccessibleRole role) : m_button(button), m_role(role) {}

    AccessibleRole role() const override { return m_role; }

    String name() const override { return toString(m_button.GetLabel()); }

    Flags<AccessibleState> states() const override
    {
        return toggleStates(m_role == AccessibleRole::TOGGLE_BUTTON);
    }

    Array<String> actions() const override { return {L"click"}; }

    void doAction(int /*index*/) override
    {
        const wxSize size = m_button.GetClientSize();
        m_button.doClick(wxPoint(size.x / 2, size.y / 2));
    }

protected:
    Flags<AccessibleState> toggleStates(bool isToggle) const
    {
        Flags<AccessibleState> states;
        states.set(AccessibleState::CHECKABLE, isToggle);
        states.set(AccessibleState::CHECKED, isToggle && m_button.isToggled());
        return states;
    }

private:
    Button& m_button;
    AccessibleRole m_role;
};

} // namespace Nolvex::Wx
