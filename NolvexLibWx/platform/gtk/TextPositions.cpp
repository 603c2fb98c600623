// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextPositions.h"

#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <wx/textctrl.h>

namespace Nolvex {

namespace {

Platform::TextPlace placeInView(GtkTextView* view, const wxPoint& point)
{
    int x = 0;
    int y = 0;
    gtk_text_view_window_to_buffer_coords(view, GTK_TEXT_WINDOW_TEXT, point.x, point.y, &x, &y);
    GtkTextIter place;
    gtk_text_view_get_iter_at_location(view, &place, x, y);
    return {gtk_text_iter_get_offset(&place), gtk_text_iter_get_line(&place)};
}

// The layout's place is told in the entry, the point in the part of it that holds the text.
Platform::TextPlace placeInEntry(GtkEntry* entry, const wxPoint& point)
{
    int left = 0;
    gtk_entry_get_layout_offsets(entry, &left, nullptr);
    GdkRectangle area;
    gtk_entry_get_text_area(entry, &area);
    PangoLayout* const layout = gtk_entry_get_layout(entry);
    int byte = 0;
    int trailing = 0;
    pango_layout_xy_to_index(layout, (point.x + area.x - left) * PANGO_SCALE, 0, &byte, &trailing);
    const char* const shown = pango_layout_get_text(layout);
    const int textByte = gtk_entry_layout_index_to_text_index(entry, byte);
    return {static_cast<int>(g_utf8_pointer_to_offset(shown, shown + textByte)) + trailing, 0};
}

constexpr const char* SCROLLING = "nolvex-scrolling";

gboolean scrollNow(gpointer widget) noexcept
{
    g_object_set_data(G_OBJECT(widget), SCROLLING, nullptr);
    if (gtk_widget_get_realized(GTK_WIDGET(widget)) == FALSE)
        return G_SOURCE_REMOVE;
    GtkTextView* const view = GTK_TEXT_VIEW(widget);
    GtkTextBuffer* const buffer = gtk_text_view_get_buffer(view);
    GtkTextIter end;
    gtk_text_buffer_get_end_iter(buffer, &end);
    GtkTextMark* const mark = gtk_text_buffer_create_mark(buffer, nullptr, &end, FALSE);
    gtk_text_view_scroll_to_mark(view, mark, 0, FALSE, 0, 0);
    gtk_text_buffer_delete_mark(buffer, mark);
    return G_SOURCE_REMOVE;
}

} // namespace

Platform::TextPlace Platform::textPlaceAt(const wxTextCtrl& text, const wxPoint& point)
{
    GtkWidget* const widget = textWidget(text);
    return GTK_IS_TEXT_VIEW(widget) ? placeInView(GTK_TEXT_VIEW(widget), point)
                                    : placeInEntry(GTK_ENTRY(widget), point);
}

int Platform::firstIndexOfLine(const wxTextCtrl& text, int line)
{
    GtkWidget* const widget = textWidget(text);
    if (!GTK_IS_TEXT_VIEW(widget))
        return line == 0 ? 0 : -1;
    GtkTextBuffer* const buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(widget));
    if (line >= gtk_text_buffer_get_line_count(buffer))
        return -1;
    GtkTextIter start;
    gtk_text_buffer_get_iter_at_line(buffer, &start, line);
    return gtk_text_iter_get_offset(&start);
}

void Platform::scrollToEnd(const wxTextCtrl& text)
{
    GtkWidget* const widget = textWidget(text);
    if (!GTK_IS_TEXT_VIEW(widget))
        return;
    // Lines have no height before the view has laid them out, which it does when there is nothing else to do.
    if (g_object_get_data(G_OBJECT(widget), SCROLLING) != nullptr)
        return;
    g_object_set_data(G_OBJECT(widget), SCROLLING, widget);
    g_idle_add_full(GTK_TEXT_VIEW_PRIORITY_VALIDATE + 1, scrollNow, g_object_ref(widget), g_object_unref);
}

int Platform::firstVisibleLine(const wxTextCtrl& /*text*/)
{
    return 0;
}

void Platform::scrollBackTo(const wxTextCtrl& /*text*/, int /*line*/) {}

} // namespace Nolvex
