// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CaptureWatch.h"

#include <wx/weakref.h>

#include <utility>
#include <vector>

namespace Nolvex {

bool Platform::canCaptureMouse(const wxWindow& window)
{
    return window.IsShownOnScreen();
}

// Windows ends the capture of a disabled window, and a window that gets another parent can keep the capture.
// But a hidden window keeps it too, and the user would click a button that cannot be seen.
class Platform::CaptureWatch::Signals : private Noncopyable
{
public:
    Signals(wxWindow& window, std::function<void()> onUseless)
        : m_window(window), m_onUseless(std::move(onUseless))
    {
        for (wxWindow* ancestor = &window; ancestor != nullptr;
             ancestor = ancestor->IsTopLevel() ? nullptr : ancestor->GetParent()) {
            ancestor->Bind(wxEVT_SHOW, &Signals::onShow, this);
            m_watched.emplace_back(ancestor);
        }
    }

    ~Signals()
    {
        for (const wxWeakRef<wxWindow>& ancestor : m_watched) {
            if (ancestor)
                ancestor->Unbind(wxEVT_SHOW, &Signals::onShow, this);
        }
    }

private:
    void onShow(wxShowEvent& event)
    {
        event.Skip();
        if (event.IsShown() || !isWindowOrAncestor(event.GetEventObject()))
            return;
        // The copy is needed because the function destroys this object, and with it the original.
        const std::function<void()> onUseless = m_onUseless;
        onUseless();
    }

    // False for an ancestor of old when the window has got another parent since the capture began.
    bool isWindowOrAncestor(const wxObject* hidden) const
    {
        const wxWindow* ancestor = &m_window;
        while (ancestor != hidden && ancestor != nullptr && !ancestor->IsTopLevel())
            ancestor = ancestor->GetParent();
        return ancestor == hidden;
    }

    wxWindow& m_window;
    std::function<void()> m_onUseless;
    std::vector<wxWeakRef<wxWindow>> m_watched;
};

Platform::CaptureWatch::CaptureWatch(wxWindow& window, bool /*staysWhenDisabled*/,
                                     std::function<void()> onUseless)
    : m_signals(std::make_unique<Signals>(window, std::move(onUseless)))
{}

Platform::CaptureWatch::~CaptureWatch() = default;

} // namespace Nolvex
