// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/NativePaint.h"

#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <wx/dcgraph.h>
#include <wx/graphics.h>

#include <utility>

namespace Nolvex {

// wxWidgets sends native widgets no wxEVT_PAINT, so this class listens to the "draw" signal of GTK.
class Platform::NativePaint::Connection : private Noncopyable
{
public:
    Connection(wxWindow& control, std::function<void(wxDC&)> paint)
        : m_control(control), m_paint(std::move(paint)), m_widget(textWidget(control))
    {
        g_object_ref(m_widget);
        m_handler = g_signal_connect(m_widget, "draw", G_CALLBACK(&Connection::onDraw), this);
    }

    ~Connection()
    {
        // GTK has already removed the handler if the widget has been destroyed.
        if (g_signal_handler_is_connected(m_widget, m_handler))
            g_signal_handler_disconnect(m_widget, m_handler);
        g_object_unref(m_widget);
    }

private:
    static gboolean onDraw(GtkWidget* /*widget*/, cairo_t* context, gpointer connection) noexcept
    {
        return static_cast<Connection*>(connection)->draw(context);
    }

    gboolean draw(cairo_t* context) noexcept
    {
        // The function does not paint a frozen control.
        if (m_control.IsEnabled() || m_control.IsFrozen())
            return FALSE;
        drawBackground(context);
        // GTK draws the frame inside the widget's window. The origin of the DC must lie inside the frame.
        const GtkBorder frame = frameWidths();
        cairo_translate(context, frame.left, frame.top);
        try {
            wxGCDC dc(wxGraphicsContext::CreateFromNative(context));
            dc.SetFont(m_control.GetFont());
            m_paint(dc);
        } catch (...) {
            wxEvtHandler::WXConsumeException();
        }
        return TRUE;
    }

    GtkBorder frameWidths() const
    {
        GtkStyleContext* const style = gtk_widget_get_style_context(m_widget);
        GtkBorder widths;
        gtk_style_context_get_border(style, gtk_style_context_get_state(style), &widths);
        return widths;
    }

    void drawBackground(cairo_t* context) const
    {
        GtkStyleContext* const style = gtk_widget_get_style_context(m_widget);
        const int width = gtk_widget_get_allocated_width(m_widget);
        const int height = gtk_widget_get_allocated_height(m_widget);
        gtk_render_background(style, context, 0, 0, width, height);
        gtk_render_frame(style, context, 0, 0, width, height);
    }

    wxWindow& m_control;
    std::function<void(wxDC&)> m_paint;
    GtkWidget* m_widget;
    gulong m_handler = 0;
};

Platform::NativePaint::NativePaint(wxWindow& control, std::function<void(wxDC&)> paint)
    : m_connection(std::make_unique<Connection>(control, std::move(paint)))
{}

Platform::NativePaint::~NativePaint() = default;

} // namespace Nolvex
