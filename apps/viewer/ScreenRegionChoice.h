// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"

#include <wx/gdicmn.h>
#include <wx/weakref.h>

#include <vector>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

class ScreenOverlay;

/// Lets the user choose a region of a picture of all displays. The picture is shown dimmed over each display,
/// with the region bright: a drag chooses and takes the region, which may reach over several displays. By
/// keyboard, the arrows begin a region and move it, the arrows with Shift change its size, both with Ctrl by
/// single pixels, Enter takes the region, or a whole display if there is none yet, and Escape cancels.
class ScreenRegionChoice : private Noncopyable
{
public:
    /// Called once, with the region in pixels of the picture, or nullopt if the user has cancelled. May
    /// destroy the object.
    using Done = Function<void(const Optional<wxRect>&)>;

    /// `owner` is the window that asks.
    ScreenRegionChoice(wxWindow& owner, SharedPicture screen, Done done);

    /// Ends the choice without a call.
    ~ScreenRegionChoice();

    const Picture& screen() const { return *m_screen; }

    const Optional<wxRect>& region() const { return m_region; }

    void setRegion(const Optional<wxRect>& region);

    /// Ends the choice with the region, or without one.
    void end(const Optional<wxRect>& region);

private:
    void showOverlays(wxWindow& owner);
    void removeOverlays();

    SharedPicture m_screen;
    Done m_done;
    Optional<wxRect> m_region;
    std::vector<wxWeakRef<ScreenOverlay>> m_overlays;
};

/// Returns the part of a picture as a picture with the same name. The error is a sentence for the user.
Expected<SharedPicture, String> partOf(const Picture& picture, const wxRect& part);

} // namespace Nolvex::Viewer
