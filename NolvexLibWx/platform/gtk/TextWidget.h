// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

#include <gtk/gtk.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// The widget in which a text control shows its text: the control's own, or what it scrolls.
GtkWidget* textWidget(const wxWindow& text);

} // namespace Nolvex::Platform
