// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx::Detail {

/// The vertical motion of the mouse that is dragged from an arrow of a Spinner. At the top or the bottom of
/// the monitor, the pointer is moved to the other end, so that a drag never runs out of room. Where the
/// system refuses to move the pointer, the drag ends at the edge.
///
/// All positions are those of the arrow's mouse events.
class SpinnerDrag
{
public:
    /// Remembers where the pointer was before a drag.
    void hover(const wxPoint& position) { m_lastY = position.y; }

    void begin(const wxWindow& arrow, const wxPoint& position);

    /// Returns false for an event that tells of no motion. Windows sends such events when a window under the
    /// pointer appears, disappears or moves.
    bool isMotion(const wxWindow& arrow, const wxPoint& position);

    /// Returns the number of pixels that the pointer has moved down since the last event, or nullopt for an
    /// event that must not count. The pointer is moved by a call of WarpPointer of `spinner`. The motion that
    /// makes the pointer move counts in the other direction.
    Optional<int> move(wxWindow& spinner, const wxWindow& arrow, const wxPoint& position);

private:
    // A movement of the pointer by this class, in screen coordinates.
    struct Wrap
    {
        wxPoint from;
        wxPoint to;
    };

    bool isOutdated(const wxPoint& now);
    static Optional<Wrap> wrap(wxWindow& spinner, int distance);

    int m_lastY = 0;
    wxPoint m_lastScreenPosition{-1, -1};
    Optional<Wrap> m_wrap; // until the first motion after the wrap
};

} // namespace Nolvex::Wx::Detail
