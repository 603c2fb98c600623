// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TooltipWindow.h"

namespace Nolvex {

Wx::TooltipWindow::TooltipWindow(wxWindow* window) : m_window(window) {}

Wx::TooltipWindow::~TooltipWindow() = default;

void Wx::TooltipWindow::setTooltip(const String& text)
{
    if (m_tooltip)
        m_tooltip->setText(text);
    else
        m_tooltip = new Tooltip(m_window, text);
}

} // namespace Nolvex
