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

// Windows itself takes the capture from a window that is disabled, and keeps it for one that gets another
// parent. For one that is hidden it keeps it too: a click on a button that cannot be seen would be the
// result.
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
        // The function destroys this object, and itself with it.
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
