// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

#include <memory>
#include <vector>

class WXDLLIMPEXP_FWD_CORE wxMouseEvent;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex {

/// A second base class for views that scroll or zoom when the wheel is turned or two fingers are pinched.
/// Both end up in one function of the view, onScrollOrZoom.
///
/// The view and the windows whose input it uses may be destroyed in any order.
class NOLVEXLIBWX_EXPORT ZoomableScrollable : private Noncopyable
{
public:
    ZoomableScrollable();
    virtual ~ZoomableScrollable();

    /// Called for each turn of the wheel, with the rotation as wxWidgets reports it: a multiple of the
    /// wheel's delta (usually 120), positive away from the user. Rotations of a wheel that is turned sideways
    /// come here, too; the event tells the axis.
    ///
    /// Called once for a whole pinch, with 1 if the fingers have moved apart in all and -1 otherwise. The
    /// event is then of type wxEVT_MAGNIFY.
    ///
    /// Other handlers of the window see the event only if the function skips the event. The function may
    /// destroy the view.
    virtual void onScrollOrZoom(wxMouseEvent& event, int amount) = 0;

protected:
    /// Begins to use the input of a window: the view itself, or a child that gets the input in place of the
    /// view. May be called for any number of windows; further calls for the same window have no effect, so
    /// that the view hears of each turn of the wheel once.
    void bindScrollAndZoomEvents(wxWindow* window);

private:
    class Binding;

    void onWheel(wxMouseEvent& event);
    void onMagnify(wxMouseEvent& event);

    std::vector<std::unique_ptr<Binding>> m_bindings;
    float m_magnifyAccumulator = 0.0f; // of the pinch that has begun
};

} // namespace Nolvex
