// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/defs.h>

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// While an object of this class lives, a window gets wxEVT_MAGNIFY for pinches, which wxWidgets sends on
/// macOS only. When a pinch on a touch pad or a touch screen has ended, one event tells by how much the
/// fingers have magnified in all (0.5 for half as large again), unless that is 0, and another event with a
/// magnification of 0 closes the gesture. A pinch that the system cancels sends nothing.
///
/// On Windows the class does nothing: Windows turns pinches into turns of the wheel with the Ctrl key.
///
/// The window may be destroyed before the object, and a handler of the events may destroy both.
class PinchGesture : private Noncopyable
{
public:
    explicit PinchGesture(wxWindow& window);
    ~PinchGesture();

private:
    class Source;
    std::unique_ptr<Source> m_source;
};

} // namespace Nolvex::Platform
