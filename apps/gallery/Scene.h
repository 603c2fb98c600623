// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"

class wxWindow;

namespace Nolvex::Gallery {

/// A state of a control that only the user's hand brings about, such as pressed or open, and that the gallery
/// takes a picture of. The gallery makes real input, which reaches the control through the system.
struct Scene
{
    struct Step
    {
        /// Moves or presses the mouse or the keys.
        Function<void(wxWindow& page)> act;

        /// Returns true when the step has had its effect. The condition of the last step must still hold
        /// after the picture was taken. May be empty if the control tells nothing; the gallery then waits a
        /// moment.
        Function<bool(wxWindow& page)> isReached = {};
    };

    String title;
    Array<Step> steps; ///< begin at a new page, with the mouse elsewhere
};

} // namespace Nolvex::Gallery
