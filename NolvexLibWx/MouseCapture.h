// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

/// The mouse capture of a control that is pressed: a member of it. Begun and ended any number of times, in
/// any order, it keeps the toolkit's books right, where capturing twice, releasing what is not held and being
/// destroyed while captured are all errors.
///
/// The control calls `end` before it calls anybody's code, and `lost` when the toolkit says so.
class NOLVEXLIBWX_EXPORT MouseCapture : private Noncopyable
{
public:
    /// `window` is the control itself.
    explicit MouseCapture(wxWindow* window) : m_window(window) {}

    /// Ends it.
    ~MouseCapture();

    /// Does nothing when the window has the capture already.
    void begin();

    /// Does nothing when the window does not have the capture. Windows that captured the mouse since then
    /// keep it.
    void end();

    /// Answers wxEVT_MOUSE_CAPTURE_LOST: nobody has the mouse any more.
    void lost();

    bool isHeld() const;

private:
    wxWindow* m_window;
    bool m_begun = false;
};

} // namespace Nolvex::Wx
