// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MouseCapture.h"

#include "NolvexLib/Array.h"

#include <wx/window.h>

namespace Nolvex {

Wx::MouseCapture::~MouseCapture()
{
    end();
}

void Wx::MouseCapture::begin()
{
    if (!m_begun && !isHeld())
        m_window->CaptureMouse();
    m_begun = true;
}

void Wx::MouseCapture::end()
{
    // The toolkit stacks captures and gives the mouse back to the one below: those above this one step aside
    // for a moment.
    Array<wxWindow*> above;
    for (wxWindow* top = wxWindow::GetCapture(); m_begun && top != nullptr && top != m_window;
         top = wxWindow::GetCapture()) {
        above.push_back(top);
        top->ReleaseMouse();
    }
    if (isHeld())
        m_window->ReleaseMouse();
    m_begun = false;
    for (; !above.empty(); above.pop_back())
        above.back()->CaptureMouse();
}

void Wx::MouseCapture::lost()
{
    m_begun = false;
    // Told so by somebody who is wrong, the window would keep the mouse for ever.
    if (isHeld())
        m_window->ReleaseMouse();
}

bool Wx::MouseCapture::isHeld() const
{
    return wxWindow::GetCapture() == m_window;
}

} // namespace Nolvex
