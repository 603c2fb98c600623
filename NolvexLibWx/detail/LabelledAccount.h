// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/AccessibleControl.h"
#include "NolvexLibWx/StringConversions.h"

#include <wx/window.h>

namespace Nolvex::Wx {

/// The account of a window that does nothing. Labels and groups have their label for a name, others have
/// none.
class LabelledAccount : public AccessibleControl
{
public:
    LabelledAccount(const wxWindow& window, AccessibleRole role) : m_window(window), m_role(role) {}

    AccessibleRole role() const override { return m_role; }

    String name() const override
    {
        // On Windows a panel that shows no text has its wxWidgets name for its label.
        const bool showsLabel = m_role == AccessibleRole::LABEL || m_role == AccessibleRole::GROUP;
        return showsLabel ? toString(m_window.GetLabel()) : String();
    }

private:
    const wxWindow& m_window;
    AccessibleRole m_role;
};

} // namespace Nolvex::Wx
