// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/WindowHandle.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxDialog;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// Returns the window to be the native owner of a dialog for which the caller has named the living window
/// `owner`, or null for none. GTK needs a top-level window, and gets the active one in place of null: the
/// window manager may hide a dialog without an owner, or leave it without the focus.
WindowHandle dialogOwner(WindowHandle owner);

/// True if wxWidgets can make a dialog whose parent is `wrapper`. wxGTK needs its native window.
bool isPossibleParent(const wxWindow& wrapper);

/// Cancels the dialogs of GTK that `dialog` owns, such as its question whether to overwrite a file. Returns
/// true if such dialogs were on the screen. Windows destroys such windows together with the owner of
/// `dialog`.
bool cancelOwnedDialogs(const wxWindow& dialog);

/// Answers a modal dialog as if the user had closed the frame. The dialog may refuse. Does nothing if the
/// dialog is not on the screen or, on Windows, is a dialog of the system.
void cancelDialog(wxDialog& dialog);

} // namespace Nolvex::Platform
