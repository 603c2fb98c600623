// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxDialog;

/// The dialogs of wxWidgets that the main thread shows modally at present, in the order in which they were
/// shown. Their event loops must end in the opposite order.
namespace Nolvex::ModalDialogs {

/// Called by the first `LibWx::startup`, before the application may show dialogs.
void install();

/// Called by the last `LibWx::shutdown`, when wxWidgets is gone.
void uninstall();

/// True while the library can show dialogs, on any thread: between install() and uninstall().
bool arePossible();

/// True from the beginning of ShowModal until ShowModal returns.
bool isOpen(const wxDialog& dialog);

/// Returns the last dialog that was shown, or null if none is open.
wxDialog* front();

} // namespace Nolvex::ModalDialogs
