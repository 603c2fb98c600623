// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/WindowHandle.h"

class wxDialog;

namespace Nolvex::Platform {

/// Makes `owner` the native owner of a dialog that has been created but not yet shown. Without an owner, or
/// if the owner does not exist, the dialog is owned by the window that wxWidgets chooses for modal dialogs.
///
/// The owner stays the same when the dialog is shown modally, and takes no input meanwhile. If the owner is
/// destroyed before the dialog, `onOwnerDestroyed` is called, which should end the dialog: Windows goes on to
/// destroy the native window of the dialog, too. Alt+F4 closes the dialog even if it has no close box.
void attachOwner(wxDialog& dialog, WindowHandle owner, Function<void()> onOwnerDestroyed);

/// Gives a dialog that has no children for the keyboard the focus itself, so that the dialog receives the
/// keys.
void takeKeys(wxDialog& dialog);

/// Tells assistive technology that the dialog is a message that wants an answer.
void markAsAlert(wxDialog& dialog);

} // namespace Nolvex::Platform
