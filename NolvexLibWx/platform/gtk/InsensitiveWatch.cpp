// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/InsensitiveWatch.h"

#include <wx/event.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

void onStateChanged(GtkWidget* widget, GtkStateFlags previous, gpointer data) noexcept
{
    if (gtk_widget_is_sensitive(widget) || (previous & GTK_STATE_FLAG_INSENSITIVE) != 0)
        return;
    auto* const window = static_cast<wxWindow*>(data);
    if (window->HasCapture())
        window->GTKReleaseMouseAndNotify();
    wxMouseEvent left(wxEVT_LEAVE_WINDOW);
    left.SetId(window->GetId());
    left.SetEventObject(window);
    window->HandleWindowEvent(left);
}

} // namespace

void Platform::watchSensitivity(wxWindow& window)
{
    // The toolkit takes the handlers that have the window for their data away with the window.
    g_signal_connect(window.GetHandle(), "state-flags-changed", G_CALLBACK(&onStateChanged), &window);
}

} // namespace Nolvex
