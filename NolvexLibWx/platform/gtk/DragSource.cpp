// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DragSource.h"

#include "NolvexLib/Noncopyable.h"

#include <wx/dnd.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

// Ends a drag when its widget is destroyed. Without this class wxWidgets would wait for ever for a signal of
// the widget, and then use the widget.
class WidgetWatch : private Noncopyable
{
public:
    explicit WidgetWatch(wxDropSource& source)
        : m_source(source), m_widget(GTK_WIDGET(g_object_ref(source.m_widget)))
    {
        m_source.m_dragContext = nullptr; // wxWidgets leaves the member uninitialised
        g_signal_connect(m_widget, "destroy", G_CALLBACK(&WidgetWatch::onDestroyed), this);
    }

    ~WidgetWatch()
    {
        g_signal_handlers_disconnect_by_data(m_widget, this);
        g_object_unref(m_widget);
    }

private:
    static void onDestroyed(GtkWidget* /*widget*/, WidgetWatch* self) noexcept
    {
        self->m_source.m_waiting = false;
        // GTK sends this signal itself when the user presses Escape. gtk_drag_cancel would keep the mouse
        // grabbed until the end of an animation.
        if (self->m_source.m_dragContext != nullptr)
            g_signal_emit_by_name(self->m_source.m_dragContext, "cancel", GDK_DRAG_CANCEL_ERROR);
    }

    wxDropSource& m_source;
    GtkWidget* m_widget;
};

} // namespace

void Platform::dragFrom(wxWindow& window, wxDataObject& data)
{
    wxDropSource source(data, &window);
    const WidgetWatch watch(source);
    source.DoDragDrop(wxDrag_CopyOnly);
}

} // namespace Nolvex
