// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ZoomableScrollable.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/platform/PinchGesture.h"

#include <wx/event.h>
#include <wx/window.h>

// wx/weakref.h does not include all headers that it needs, and therefore follows wx/window.h.
#include <wx/weakref.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Nolvex {

/// Directs the input of one window to a view.
class ZoomableScrollable::Binding : private Noncopyable
{
public:
    Binding(ZoomableScrollable& view, wxWindow& window) : m_view(view), m_window(&window), m_pinches(window)
    {
        window.Bind(wxEVT_MOUSEWHEEL, &ZoomableScrollable::onWheel, &view);
        window.Bind(wxEVT_MAGNIFY, &ZoomableScrollable::onMagnify, &view);
    }

    ~Binding()
    {
        if (!m_window)
            return;
        m_window->Unbind(wxEVT_MOUSEWHEEL, &ZoomableScrollable::onWheel, &m_view);
        m_window->Unbind(wxEVT_MAGNIFY, &ZoomableScrollable::onMagnify, &m_view);
    }

    const wxWindow* window() const { return m_window; }

private:
    ZoomableScrollable& m_view;
    wxWeakRef<wxWindow> m_window;
    Platform::PinchGesture m_pinches;
};

ZoomableScrollable::ZoomableScrollable() = default;

ZoomableScrollable::~ZoomableScrollable() = default;

void ZoomableScrollable::bindScrollAndZoomEvents(wxWindow* window)
{
    if (window == nullptr)
        Detail::throwStopException("widgets/ZoomableScrollable", __LINE__);
    std::erase_if(m_bindings, [](const auto& binding) { return binding->window() == nullptr; });
    const bool isBound = std::ranges::any_of(
        m_bindings, [window](const auto& binding) { return binding->window() == window; });
    if (!isBound)
        m_bindings.push_back(std::make_unique<Binding>(*this, *window));
}

void ZoomableScrollable::onWheel(wxMouseEvent& event)
{
    onScrollOrZoom(event, event.GetWheelRotation());
}

void ZoomableScrollable::onMagnify(wxMouseEvent& event)
{
    const float magnification = event.GetMagnification();
    // After a NaN or an infinity, the sum would no longer tell in which direction the fingers have moved.
    if (!std::isfinite(magnification))
        return;
    m_magnifyAccumulator += magnification;
    if (magnification != 0.0f)
        return;
    // The sum is taken away first, because the view may destroy itself or throw an exception.
    const float sum = std::exchange(m_magnifyAccumulator, 0.0f);
    onScrollOrZoom(event, sum > 0.0f ? 1 : -1);
}

} // namespace Nolvex
