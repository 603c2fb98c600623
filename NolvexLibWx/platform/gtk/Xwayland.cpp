// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/Xwayland.h"

#include <gdk/gdk.h>
#include <gdk/gdkx.h>

#include <X11/Xlib.h>

#include <algorithm>

namespace Nolvex {

namespace {

constexpr char ANSWER_KEY[] = "nolvex-is-xwayland";

// XWayland has an extension of this name from version 23.1 on.
bool hasXwaylandExtension(Display* display)
{
    int unused = 0;
    return XQueryExtension(display, "XWAYLAND", &unused, &unused, &unused) != False;
}

bool hasXwaylandOutput(GdkDisplay* display)
{
    for (int i = 0; i < gdk_display_get_n_monitors(display); ++i) {
        const char* const name = gdk_monitor_get_model(gdk_display_get_monitor(display, i));
        if (name != nullptr && Platform::isXwaylandOutput(name))
            return true;
    }
    return false;
}

} // namespace

bool Platform::isXwayland(GdkDisplay* display)
{
    gpointer answer = g_object_get_data(G_OBJECT(display), ANSWER_KEY);
    if (answer == nullptr) {
        const bool found =
            hasXwaylandExtension(gdk_x11_display_get_xdisplay(display)) || hasXwaylandOutput(display);
        answer = GINT_TO_POINTER(found ? 1 : -1);
        g_object_set_data(G_OBJECT(display), ANSWER_KEY, answer);
    }
    return GPOINTER_TO_INT(answer) > 0;
}

bool Platform::isXwaylandOutput(std::string_view name)
{
    constexpr std::string_view PREFIX = "XWAYLAND";
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return name.size() > PREFIX.size() && name.starts_with(PREFIX) &&
           std::ranges::all_of(name.substr(PREFIX.size()), isDigit);
}

} // namespace Nolvex
