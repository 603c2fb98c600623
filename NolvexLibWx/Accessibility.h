// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/AccessibleControl.h"

#include <wx/defs.h>

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Wx {

/// Makes the account of one control. A plain function costs a control nothing until its account is asked for.
using AccessibleMaker = std::unique_ptr<AccessibleControl> (*)(wxWindow& control);

/// Tells assistive technology about the control from now on by the account that `maker` makes. Called in the
/// constructor, after the window has been created; of several calls the last one counts.
NOLVEXLIBWX_EXPORT void describeControl(wxWindow& control, AccessibleMaker maker);

/// Describes the control by an account of type `Account`, which is constructed from the control and
/// `ARGUMENTS`.
template<class Account, auto... ARGUMENTS, class Control>
void describeAs(Control& control)
{
    describeControl(control, [](wxWindow& window) -> std::unique_ptr<AccessibleControl> {
        return std::make_unique<Account>(static_cast<Control&>(window), ARGUMENTS...);
    });
}

/// Compares the control's account with the last announced state and announces the differences. A control
/// calls this function after each change of something that its account tells.
NOLVEXLIBWX_EXPORT void updateAccessible(wxWindow& control);

/// Names a window that shows no label, such as a picture, a text area or a button with nothing but an icon.
/// Works for every window, also for those of wxWidgets. An empty name gives the control its own name back.
NOLVEXLIBWX_EXPORT void setAccessibleName(wxWindow& window, const String& name);

/// Says more about a window than its name does. Tooltips call this function with their text.
NOLVEXLIBWX_EXPORT void setAccessibleDescription(wxWindow& window, const String& description);

} // namespace Nolvex::Wx
