// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/MessageDialogIcon.h"
#include "NolvexLibWx/detail/MessageDialogControls.h"

/// The controls and icons of message dialogs in terms of wxMessageDialog.
namespace Nolvex::NativeDialogMapping {

/// Returns the style of the wxMessageDialog. SUCCESS and values outside the enumeration have no native icon
/// and are a StopException.
long style(Wx::MessageDialogIcon icon, MessageDialogControls controls);

/// Returns the identifier of the control that stands for the result of wxMessageDialog::ShowModal. Any other
/// result than those of the buttons is a StopException.
int controlId(int result);

} // namespace Nolvex::NativeDialogMapping
