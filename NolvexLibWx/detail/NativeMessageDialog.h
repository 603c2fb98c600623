// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/String.h"
#include "NolvexLib/WaitingCalls.h"
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/MessageDialogControl.h"
#include "NolvexLibWx/MessageDialogIcon.h"

/// Message dialogs of threads other than the main thread, which are the system's own.
namespace Nolvex::NativeMessageDialog {

/// Shows the dialog and returns the identifier of the control that ended the dialog. Returns that of
/// FRAME_CLOSE if there is no loop that could show the dialog, or if the program ends the dialog.
int show(WindowHandle owner, const String& title, const String& message, Wx::MessageDialogIcon icon,
         ArrayView<const Wx::MessageDialogControl* const> controls);

/// Ends the dialog that the main thread shows for another thread, as if the frame had been closed. Called on
/// the main thread.
void cancelShown();

/// The dialogs that the main thread shows for other threads, where the system allows windows on the main
/// thread only.
WaitingCalls& mainThreadCalls();

} // namespace Nolvex::NativeMessageDialog
