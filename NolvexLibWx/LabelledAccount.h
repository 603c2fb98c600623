// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/AccessibleControl.h"
#include "NolvexLibWx/StringConversions.h"

#include <wx/window.h>

namespace Nolvex::Wx {

/// The account of a window that does nothing and has its label for its name, if it has a label.
class LabelledAccount : public AccessibleControl
{
public:
    LabelledAccount(const wxWindow& window, AccessibleRole role) : m_window(window), m_role(role) {}

    AccessibleRole role() const override { return m_role; }

    String name() const override { return toString(m_window.GetLabel()); }

private:
    const wxWindow& m_window;
    AccessibleRole m_role;
};

} // namespace Nolvex::Wx
