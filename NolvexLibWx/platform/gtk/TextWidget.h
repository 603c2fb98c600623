// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

#include <gtk/gtk.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Platform {

/// Returns the widget that shows the text: the control's own widget, or the one inside its scrolled window.
GtkWidget* textWidget(const wxWindow& text);

} // namespace Nolvex::Platform
