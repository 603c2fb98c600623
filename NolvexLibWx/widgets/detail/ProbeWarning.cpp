// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/ProbeWarning.h"

#include <cmath>

namespace Nolvex {

namespace {

const wxColour& red()
{
    static const wxColour RED(144, 20, 20);
    return RED;
}

double distanceToRed(const wxColour& colour)
{
    return std::abs(colour.GetLuminance() - red().GetLuminance());
}

} // namespace

Wx::Detail::ProbeWarning::ProbeWarning(wxWindow* parent, const String& text)
    : StaticText(parent, wxID_ANY, text),
      m_skinBackground(StaticText::GetBackgroundColour()),
      m_skinText(StaticText::GetForegroundColour())
{
    showReadably();
}

Wx::Detail::ProbeWarning::~ProbeWarning() = default;

bool Wx::Detail::ProbeWarning::SetBackgroundColour(const wxColour& colour)
{
    m_skinBackground = colour;
    return showReadably();
}

bool Wx::Detail::ProbeWarning::SetForegroundColour(const wxColour& colour)
{
    m_skinText = colour;
    return showReadably();
}

bool Wx::Detail::ProbeWarning::showReadably()
{
    const bool onText = distanceToRed(m_skinText) > distanceToRed(m_skinBackground);
    const bool textChanged = StaticText::SetForegroundColour(red());
    const bool backgroundChanged = StaticText::SetBackgroundColour(onText ? m_skinText : m_skinBackground);
    return textChanged || backgroundChanged;
}

} // namespace Nolvex
