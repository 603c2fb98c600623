// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/PopupPlacement.h"

#include "NolvexLibWx/platform/gtk/UngrabbedMouse.h"

#include <wx/gdicmn.h>
#include <wx/window.h>

#include <gdk/gdkwayland.h>
#include <gtk/gtk.h>

#include <memory>

namespace Nolvex {

namespace {

// What the compositor is asked for.
struct Placement
{
    GdkWindow* parent;
    GdkRectangle anchor; // relative to the parent
    GdkGravity corner;   // of the anchor, at which the top left corner of the popup should be
    GdkAnchorHints adjustments;
    wxSize size; // of the popup

    bool operator==(const Placement& other) const
    {
        return parent == other.parent && gdk_rectangle_equal(&anchor, &other.anchor) != FALSE &&
               corner == other.corner && adjustments == other.adjustments && size == other.size;
    }
};

constexpr const char* PLACEMENT_KEY = "nolvex-placement";

void deletePlacement(gpointer placement)
{
    delete static_cast<Placement*>(placement);
}

// Remembers the placement of the popup. Returns false if the popup already had the same placement.
bool rememberPlacement(GtkWidget* popup, const Placement& placement)
{
    const auto* const last = static_cast<Placement*>(g_object_get_data(G_OBJECT(popup), PLACEMENT_KEY));
    if (last != nullptr && *last == placement)
        return false;
    g_object_set_data_full(G_OBJECT(popup), PLACEMENT_KEY, new Placement(placement), &deletePlacement);
    return true;
}

// Wayland places a popup when the popup appears.
void place(GtkWidget* popup, const Placement& placement)
{
    gtk_widget_realize(popup);
    GdkWindow* const window = gtk_widget_get_window(popup);
    const bool isShown = gdk_window_is_visible(window) != FALSE;
    if (!rememberPlacement(popup, placement) && isShown)
        return;
    const Platform::UngrabbedMouse ungrabbed;
    if (isShown)
        gdk_window_hide(window);
    gdk_window_resize(window, placement.size.x, placement.size.y);
    gdk_window_move_to_rect(window, &placement.anchor, placement.corner, GDK_GRAVITY_NORTH_WEST,
                            placement.adjustments, 0, 0);
    if (isShown)
        gdk_window_show(window);
}

// Returns the top level of the owner, or null if the popup is not on Wayland or the owner not on the screen.
GtkWidget* waylandTopLevel(const wxWindow& popup, const wxWindow& owner)
{
    GtkWidget* const widget = popup.GetHandle();
    GtkWidget* const topLevel = gtk_widget_get_toplevel(owner.GetHandle());
    const bool canPlace = GDK_IS_WAYLAND_DISPLAY(gtk_widget_get_display(widget)) && GTK_IS_WINDOW(topLevel) &&
                          gtk_widget_get_mapped(topLevel) != FALSE;
    if (!canPlace)
        return nullptr;
    gtk_window_set_transient_for(GTK_WINDOW(widget), GTK_WINDOW(topLevel));
    return topLevel;
}

} // namespace

bool Platform::placeBeside(wxWindow& popup, const wxWindow& owner)
{
    GtkWidget* const topLevel = waylandTopLevel(popup, owner);
    if (topLevel == nullptr)
        return false;
    const wxSize size = owner.GetSize();
    GdkRectangle anchor{0, 0, size.x, size.y};
    if (!gtk_widget_translate_coordinates(owner.GetHandle(), topLevel, 0, 0, &anchor.x, &anchor.y))
        return false;
    place(popup.GetHandle(), {gtk_widget_get_window(topLevel), anchor, GDK_GRAVITY_SOUTH_WEST,
                              GDK_ANCHOR_FLIP_Y, popup.GetSize()});
    return true;
}

bool Platform::placeAt(wxWindow& popup, const wxWindow& owner, const wxPoint& corner)
{
    GtkWidget* const topLevel = waylandTopLevel(popup, owner);
    if (topLevel == nullptr)
        return false;
    GdkWindow* const parent = gtk_widget_get_window(topLevel);
    // Wayland does not tell where a window is on the screen. GTK takes (0, 0) for the origin of a window with
    // a title bar, and counts the origin of a popup from there.
    wxPoint origin;
    gdk_window_get_origin(parent, &origin.x, &origin.y);
    const wxPoint inParent = corner - origin;
    place(popup.GetHandle(),
          {parent, GdkRectangle{inParent.x, inParent.y, 1, 1}, GDK_GRAVITY_NORTH_WEST,
           static_cast<GdkAnchorHints>(GDK_ANCHOR_SLIDE_X | GDK_ANCHOR_SLIDE_Y), popup.GetSize()});
    return true;
}

} // namespace Nolvex
