// SPDX-License-Identifier: MIT
#pragma once

#include <wx/checkbox.h>

namespace Nolvex::Platform {

/// What a control is to somebody who cannot see it.
enum class AccessibleRole
{
    PUSH_BUTTON,
    TOGGLE_BUTTON,
    DROPDOWN_BUTTON,
    CHECK_BOX,
    LABEL,
    LINK,
    DISCLOSURE, ///< folds something away and shows it again
    GROUP,
};

/// Tells assistive technology what the control is, which no system finds out of a window that paints itself.
/// Its name is its label, and if its role is a clickable one, it can be clicked from there. From when the
/// control's window has been created; the last role counts.
void describeControl(wxWindow& control, AccessibleRole role);

/// The label is another one now.
void renameControl(wxWindow& control);

/// The control is on or off now: pressed to stay so, checked, or unfolded. Called when it has been described;
/// it is off to begin with. A check box is asked for its value instead: this only makes the change known.
void switchControl(wxWindow& control, bool on);

/// The label as it is painted. Only check boxes take "&" for a mnemonic.
inline wxString accessibleName(const wxWindow& control)
{
    const auto* checkBox = dynamic_cast<const wxCheckBoxBase*>(&control);
    return checkBox != nullptr ? checkBox->GetLabelText() : control.GetLabel();
}

inline bool isClickable(AccessibleRole role)
{
    return role != AccessibleRole::LABEL && role != AccessibleRole::GROUP;
}

/// Whether the mouse could click it now.
inline bool canBeClicked(const wxWindow& control)
{
    return control.IsEnabled() && control.IsShownOnScreen();
}

} // namespace Nolvex::Platform
