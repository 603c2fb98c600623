// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/AccessibleControl.h"
#include "NolvexLibWx/StringConversions.h"

#include <wx/window.h>

namespace Nolvex::Wx {

/// The account of a window that the user cannot operate. The name of a label or group is its text; other
/// windows have no name.
class LabelledAccount : public AccessibleControl
{
public:
    LabelledAccount(const wxWindow& window, AccessibleRole role) : m_window(window), m_role(role) {}

    AccessibleRole role() const override { return m_role; }

    String name() const override
    {
        // On Windows the label of a panel without a text is the name that wxWidgets knows the panel by.
        const bool showsLabel = m_role == AccessibleRole::LABEL || m_role == AccessibleRole::GROUP;
        return showsLabel ? toString(m_window.GetLabel()) : String();
    }

private:
    const wxWindow& m_window;
    AccessibleRole m_role;
};

} // namespace Nolvex::Wx
