// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/NativeWindow.h"

#include "NolvexLib/Stack.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <memory>

namespace Nolvex {

namespace {

struct ListDeleter
{
    void operator()(GList* list) const { g_list_free(list); }
};

using List = std::unique_ptr<GList, ListDeleter>;

void collect(GtkWidget* widget, gpointer widgets)
{
    static_cast<Stack<GtkWidget*>*>(widgets)->push_back(widget);
}

Stack<GtkWidget*> topLevels()
{
    Stack<GtkWidget*> widgets;
    const List list(gtk_window_list_toplevels());
    for (const GList* item = list.get(); item != nullptr; item = item->next)
        widgets.push_back(static_cast<GtkWidget*>(item->data));
    return widgets;
}

// Returns the window of the handle, or null. A handle may outlive its widget, so it is only compared with the
// windows that exist, and never dereferenced.
GtkWindow* findTopLevel(WindowHandle handle)
{
    const Stack<GtkWidget*> windows = topLevels();
    const auto found = std::find(windows.begin(), windows.end(), handle.native);
    return found == windows.end() || gtk_widget_in_destruction(*found) ? nullptr : GTK_WINDOW(*found);
}

GtkWidget* findWidget(WindowHandle handle)
{
    Stack<GtkWidget*> open = topLevels();
    while (handle && !open.empty()) {
        GtkWidget* const widget = open.back();
        open.pop_back();
        if (widget == handle.native)
            return gtk_widget_in_destruction(widget) ? nullptr : widget;
        if (GTK_IS_CONTAINER(widget))
            gtk_container_forall(GTK_CONTAINER(widget), collect, &open);
    }
    return nullptr;
}

Bucket toBucket(const GdkRectangle& rect)
{
    return {{rect.x, rect.y}, {rect.x + rect.width, rect.y + rect.height}};
}

// A widget has its own GdkWindow, or draws at an offset into the GdkWindow of its parent.
Bucket widgetRegion(GtkWidget* widget)
{
    GdkRectangle rect;
    gtk_widget_get_allocation(widget, &rect);
    int x = 0;
    int y = 0;
    gdk_window_get_origin(gtk_widget_get_window(widget), &x, &y);
    rect.x = gtk_widget_get_has_window(widget) ? x : x + rect.x;
    rect.y = gtk_widget_get_has_window(widget) ? y : y + rect.y;
    return toBucket(rect);
}

// While a window is not on the screen, GTK knows only its last position and its size without the frame.
Bucket topLevelRegion(GtkWindow* window)
{
    GdkRectangle rect;
    if (gtk_widget_get_mapped(GTK_WIDGET(window))) {
        gdk_window_get_frame_extents(gtk_widget_get_window(GTK_WIDGET(window)), &rect);
    } else {
        gtk_window_get_position(window, &rect.x, &rect.y);
        gtk_window_get_size(window, &rect.width, &rect.height);
    }
    return toBucket(rect);
}

} // namespace

bool Platform::isWindow(WindowHandle window)
{
    return findWidget(window) != nullptr;
}

WindowHandle Platform::topLevelWindow(WindowHandle window)
{
    GtkWidget* const widget = findWidget(window);
    if (widget == nullptr)
        return {};
    GtkWidget* const topLevel = gtk_widget_get_toplevel(widget);
    return {gtk_widget_is_toplevel(topLevel) ? topLevel : nullptr};
}

Bucket Platform::windowRegion(WindowHandle window)
{
    GtkWidget* const widget = findWidget(window);
    if (widget == nullptr || !gtk_widget_get_realized(widget))
        return {};
    return gtk_widget_is_toplevel(widget) ? topLevelRegion(GTK_WINDOW(widget)) : widgetRegion(widget);
}

WindowHandle Platform::windowOwner(WindowHandle window)
{
    GtkWindow* const topLevel = findTopLevel(window);
    return {topLevel == nullptr ? nullptr : gtk_window_get_transient_for(topLevel)};
}

void Platform::setWindowOwner(WindowHandle window, WindowHandle owner)
{
    GtkWindow* const topLevel = findTopLevel(window);
    GtkWindow* const ownerTopLevel = findTopLevel(owner);
    if (topLevel != nullptr && (ownerTopLevel != nullptr || !owner))
        gtk_window_set_transient_for(topLevel, ownerTopLevel);
}

} // namespace Nolvex
