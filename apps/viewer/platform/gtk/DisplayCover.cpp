// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/DisplayCover.h"

#include <wx/display.h>
#include <wx/toplevel.h>

#include <gtk/gtk.h>

namespace Nolvex::Viewer::Platform {

// A program has no say in the place of a window on Wayland, but may ask for a monitor. The size is for X11
// without a window manager, where nothing else gives the window the size of the monitor.
void showOverDisplay(wxTopLevelWindow& window, unsigned display)
{
    window.SetSize(wxDisplay(display).GetGeometry());
    auto* const native = GTK_WINDOW(window.m_widget);
    gtk_window_fullscreen_on_monitor(native, gtk_window_get_screen(native), static_cast<gint>(display));
    window.Show();
    window.Raise();
}

} // namespace Nolvex::Viewer::Platform
