// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MouseCapture.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/platform/CaptureWatch.h"

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <utility>

namespace Nolvex {

// Ends the capture when the window can no longer use it.
class Wx::MouseCapture::Watch : private Noncopyable
{
public:
    explicit Watch(MouseCapture& capture)
        : m_capture(capture),
          m_window(capture.m_window),
          m_topLevel(wxGetTopLevelParent(m_window)),
          m_platformWatch(*m_window, capture.m_whenDisabled == WhenDisabled::STAYS, [this] { giveUp(); })
    {
        if (m_topLevel)
            m_topLevel->Bind(wxEVT_ICONIZE, &Watch::onIconized, this);
    }

    ~Watch()
    {
        if (m_topLevel)
            m_topLevel->Unbind(wxEVT_ICONIZE, &Watch::onIconized, this);
    }

private:
    void onIconized(wxIconizeEvent& event)
    {
        event.Skip();
        // On Windows the window keeps the capture when it moves to another top level.
        if (event.IsIconized() && wxGetTopLevelParent(m_window) == m_topLevel)
            giveUp();
    }

    // Destroys the watch.
    void giveUp()
    {
        wxWindow* const window = m_window;
        m_capture.end();
        // The event is sent later, because wxWidgets is still hiding, disabling or moving the window, and a
        // handler might destroy the window.
        wxMouseCaptureLostEvent event(window->GetId());
        event.SetEventObject(window);
        window->GetEventHandler()->AddPendingEvent(event);
    }

    MouseCapture& m_capture;
    wxWindow* m_window;
    wxWeakRef<wxWindow> m_topLevel;
    Platform::CaptureWatch m_platformWatch;
};

Wx::MouseCapture::MouseCapture(wxWindow* window, WhenDisabled whenDisabled)
    : m_window(window), m_whenDisabled(whenDisabled)
{}

Wx::MouseCapture::~MouseCapture()
{
    end();
    if (m_begunEver && m_window != nullptr)
        m_window->Unbind(wxEVT_DESTROY, &MouseCapture::onDestroyed, this);
}

void Wx::MouseCapture::begin()
{
    if (m_window == nullptr || !Platform::canCaptureMouse(*m_window))
        return;
    if (!std::exchange(m_begunEver, true))
        m_window->Bind(wxEVT_DESTROY, &MouseCapture::onDestroyed, this);
    const wxWindow* const holder = wxWindow::GetCapture();
    const bool waitsForAnother = m_watch && holder != nullptr;
    if (holder != m_window && !waitsForAnother)
        m_window->CaptureMouse();
    if (!m_watch)
        m_watch = std::make_unique<Watch>(*this);
}

void Wx::MouseCapture::end()
{
    // wxWidgets keeps a stack of captures and releases only the topmost, so the windows above this window
    // release the mouse and capture it again afterwards.
    Array<wxWindow*> above;
    for (wxWindow* top = wxWindow::GetCapture(); m_watch && top != nullptr && top != m_window;
         top = wxWindow::GetCapture()) {
        above.push_back(top);
        top->ReleaseMouse();
    }
    if (isHeld())
        m_window->ReleaseMouse();
    m_watch.reset();
    for (; !above.empty(); above.pop_back())
        above.back()->CaptureMouse();
}

bool Wx::MouseCapture::isHeld() const
{
    return m_window != nullptr && wxWindow::GetCapture() == m_window;
}

void Wx::MouseCapture::onDestroyed(wxWindowDestroyEvent& event)
{
    event.Skip();
    // The destroy events of child windows arrive here, too.
    if (event.GetEventObject() != m_window)
        return;
    end();
    m_window = nullptr;
}

} // namespace Nolvex
