// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CaptureWatch.h"

#include <wx/app.h>
#include <wx/weakref.h>

#include <utility>
#include <vector>

namespace Nolvex {

bool Platform::canCaptureMouse(const wxWindow& window)
{
    return window.IsShownOnScreen();
}

namespace {

using Ancestors = std::vector<wxWeakRef<wxWindow>>;

// The window and its parents, up to the top-level window.
Ancestors ancestorsOf(wxWindow& window)
{
    Ancestors ancestors;
    for (wxWindow* ancestor = &window; ancestor != nullptr;
         ancestor = ancestor->IsTopLevel() ? nullptr : ancestor->GetParent())
        ancestors.emplace_back(ancestor);
    return ancestors;
}

} // namespace

// Windows itself takes the capture from a window that is disabled. A window that is hidden keeps the capture:
// a click on a button that cannot be seen would be the result. A window that gets another parent keeps the
// capture too, and wxWidgets sends no event then, so the watch compares the parents after each round of
// events.
class Platform::CaptureWatch::Signals : private Noncopyable
{
public:
    Signals(wxWindow& window, std::function<void()> onUseless)
        : m_window(window), m_ancestors(ancestorsOf(window)), m_onUseless(std::move(onUseless))
    {
        for (const wxWeakRef<wxWindow>& ancestor : m_ancestors)
            ancestor->Bind(wxEVT_SHOW, &Signals::onShow, this);
        wxTheApp->Bind(wxEVT_IDLE, &Signals::onIdle, this);
    }

    ~Signals()
    {
        if (wxTheApp != nullptr)
            wxTheApp->Unbind(wxEVT_IDLE, &Signals::onIdle, this);
        for (const wxWeakRef<wxWindow>& ancestor : m_ancestors) {
            if (ancestor)
                ancestor->Unbind(wxEVT_SHOW, &Signals::onShow, this);
        }
    }

private:
    void onShow(wxShowEvent& event)
    {
        event.Skip();
        if (!event.IsShown())
            tell();
    }

    void onIdle(wxIdleEvent& event)
    {
        event.Skip();
        if (ancestorsOf(m_window) != m_ancestors)
            tell();
    }

    void tell() const
    {
        // The function destroys this object, and itself with it.
        const std::function<void()> onUseless = m_onUseless;
        onUseless();
    }

    wxWindow& m_window;
    Ancestors m_ancestors;
    std::function<void()> m_onUseless;
};

Platform::CaptureWatch::CaptureWatch(wxWindow& window, bool /*staysWhenDisabled*/,
                                     std::function<void()> onUseless)
    : m_signals(std::make_unique<Signals>(window, std::move(onUseless)))
{}

Platform::CaptureWatch::~CaptureWatch() = default;

} // namespace Nolvex
