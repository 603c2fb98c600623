// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Press.h"

#include <wx/window.h>

#include <utility>

namespace Nolvex {

Wx::Press::Press(wxWindow* control, WhenDisabled whenDisabled)
    : m_control(control), m_capture(control, whenDisabled)
{}

Wx::Press::~Press() = default;

void Wx::Press::begin(Means means)
{
    m_held = true;
    m_means = means;
    if (means == Means::MOUSE)
        m_capture.begin();
    else
        m_capture.end();
}

Wx::Press::Outcome Wx::Press::release(const wxPoint& position)
{
    if (!isHeldBy(Means::MOUSE))
        return Outcome::NONE;
    m_capture.end();
    m_held = false;
    return m_control->GetClientRect().Contains(position) ? Outcome::COMPLETED : Outcome::CANCELLED;
}

Wx::Press::Outcome Wx::Press::releaseKey()
{
    if (!isHeldBy(Means::KEYBOARD))
        return Outcome::NONE;
    m_held = false;
    return Outcome::COMPLETED;
}

bool Wx::Press::cancel()
{
    m_capture.end();
    return std::exchange(m_held, false);
}

void Wx::Press::freeMouse()
{
    m_capture.end();
}

void Wx::Press::captureAgain()
{
    if (isHeldBy(Means::MOUSE))
        m_capture.begin();
}

} // namespace Nolvex
