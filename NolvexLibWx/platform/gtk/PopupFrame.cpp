// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/PopupFrame.h"

#include "NolvexLibWx/detail/HeldShowEvent.h"
#include "NolvexLibWx/platform/gtk/UngrabbedMouse.h"

#include <gdk/gdkwayland.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <optional>

namespace Nolvex {

namespace {

void disconnect(GtkWidget* widget, const char* signal, gpointer data)
{
    constexpr auto BY_SIGNAL_AND_DATA =
        static_cast<GSignalMatchType>(G_SIGNAL_MATCH_ID | G_SIGNAL_MATCH_DATA);
    g_signal_handlers_disconnect_matched(widget, BY_SIGNAL_AND_DATA, g_signal_lookup(signal, GTK_TYPE_WIDGET),
                                         0, nullptr, nullptr, data);
}

bool isOnWayland(GtkWidget* widget)
{
    return GDK_IS_WAYLAND_DISPLAY(gtk_widget_get_display(widget));
}

// Paints a black line of one pixel at the edges, which separates the frame from a panel of the same colour.
gboolean paintBorder(GtkWidget* widget, cairo_t* context, gpointer /*data*/) noexcept
{
    cairo_set_source_rgb(context, 0, 0, 0);
    cairo_set_line_width(context, 1);
    cairo_rectangle(context, 0.5, 0.5, gtk_widget_get_allocated_width(widget) - 1,
                    gtk_widget_get_allocated_height(widget) - 1);
    cairo_stroke(context);
    return FALSE;
}

} // namespace

Platform::PopupFrame::PopupFrame(wxWindow* parent, long style, const wxString& name)
{
    // If a widget exists before Create, wxWidgets keeps it. Otherwise wxWidgets would make a top level.
    m_widget = gtk_window_new(GTK_WINDOW_POPUP);
    g_object_ref(m_widget);
    // On Wayland, a window of this type could not be moved while it is shown.
    if (!isOnWayland(m_widget))
        gtk_window_set_type_hint(GTK_WINDOW(m_widget), GDK_WINDOW_TYPE_HINT_COMBO);
    Create(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style, name);
    // On Wayland, GTK would add a shadow, which moves the content.
    gtk_window_set_decorated(GTK_WINDOW(m_widget), FALSE);
    if (borderWidth() > 0)
        addBorder();
    stopWaitingForTheServer();
}

Platform::PopupFrame::~PopupFrame() = default;

int Platform::PopupFrame::borderWidth() const
{
    return HasFlag(wxBORDER_SIMPLE) ? 1 : 0;
}

void Platform::PopupFrame::addBorder()
{
    gtk_container_set_border_width(GTK_CONTAINER(m_widget), static_cast<guint>(borderWidth()));
    g_signal_connect_after(m_widget, "draw", G_CALLBACK(paintBorder), nullptr);
}

void Platform::PopupFrame::DoGetClientSize(int* width, int* height) const
{
    wxFrame::DoGetClientSize(width, height);
    // The size that wxWidgets has cached is the size inside the border.
    if (m_useCachedClientSize)
        return;
    for (int* const length : {width, height}) {
        if (length != nullptr)
            *length = std::max(*length - 2 * borderWidth(), 0);
    }
}

void Platform::PopupFrame::DoGetPosition(int* x, int* y) const
{
    if (isOnWayland(m_widget) && gtk_widget_get_mapped(m_widget))
        gdk_window_get_origin(gtk_widget_get_window(m_widget), x, y);
    else
        wxFrame::DoGetPosition(x, y);
}

void Platform::PopupFrame::stopWaitingForTheServer()
{
    // The answer to an earlier Show can arrive after Hide, and wxFrame would count the hidden frame as shown
    // from then on.
    disconnect(m_widget, "map-event", this);
    // wxFrame would delay the first Show until a window manager has told the size of the decorations, which a
    // popup does not have.
    disconnect(m_widget, "property-notify-event", this);
}

void Platform::PopupFrame::Raise()
{
    if (GdkWindow* const window = gtk_widget_get_window(m_widget))
        gdk_window_raise(window);
}

bool Platform::PopupFrame::Show(bool show)
{
    if (show)
        followTopLevelOfParent();
    return Wx::Detail::showAndHoldEvent(*this, show, m_holdsShowEvent, [this](bool shown) {
        // A handler of wxEVT_SHOW, which is sent afterwards, must find the mouse captured as before. The
        // handler may end the capture.
        std::optional<UngrabbedMouse> ungrabbed;
        if (shown && isOnWayland(m_widget))
            ungrabbed.emplace();
        return wxFrame::Show(shown);
    });
}

bool Platform::PopupFrame::TryBefore(wxEvent& event)
{
    return Wx::Detail::isHeldShowEvent(*this, m_holdsShowEvent, event) || wxFrame::TryBefore(event);
}

// Wayland places a popup relative to another window. The parent may have been moved to another frame since
// the popup was last shown.
void Platform::PopupFrame::followTopLevelOfParent()
{
    const wxWindow* const parent = GetParent();
    GtkWidget* const topLevel = parent == nullptr ? nullptr : gtk_widget_get_toplevel(parent->m_widget);
    gtk_window_set_transient_for(GTK_WINDOW(m_widget),
                                 GTK_IS_WINDOW(topLevel) ? GTK_WINDOW(topLevel) : nullptr);
}

} // namespace Nolvex
