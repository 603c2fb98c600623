// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextPositions.h"

#include "NolvexLibWx/platform/gtk/TextWidget.h"

#include <wx/textctrl.h>

namespace Nolvex {

namespace {

// Returns the character at the point, and sets `trailing` if the position after it is nearer.
GtkTextIter characterAt(GtkTextView* view, const wxPoint& point, int* trailing)
{
    int x = 0;
    int y = 0;
    gtk_text_view_window_to_buffer_coords(view, GTK_TEXT_WINDOW_TEXT, point.x, point.y, &x, &y);
    GtkTextIter place;
    gtk_text_view_get_iter_at_position(view, &place, trailing, x, y);
    return place;
}

int indexInView(GtkTextView* view, const wxPoint& point)
{
    int trailing = 0;
    const GtkTextIter place = characterAt(view, point, &trailing);
    return gtk_text_iter_get_offset(&place) + trailing;
}

// GTK tells the layout's offset in the entry, but the point is relative to the entry's text area.
int indexInEntry(GtkEntry* entry, const wxPoint& point)
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
    return static_cast<int>(g_utf8_pointer_to_offset(shown, shown + textByte)) + trailing;
}

constexpr const char* SCROLLING = "nolvex-scrolling";
constexpr const char* SHOWN_POSITION = "nolvex-shown-position";

gboolean scrollNow(gpointer widget) noexcept
{
    // A call of scrollToPosition in the meantime removes the mark and cancels this scrolling.
    const bool wanted = g_object_get_data(G_OBJECT(widget), SCROLLING) != nullptr;
    g_object_set_data(G_OBJECT(widget), SCROLLING, nullptr);
    if (!wanted || gtk_widget_get_realized(GTK_WIDGET(widget)) == FALSE)
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

int Platform::textIndexAt(const wxTextCtrl& text, const wxPoint& point)
{
    GtkWidget* const widget = textWidget(text);
    return GTK_IS_TEXT_VIEW(widget) ? indexInView(GTK_TEXT_VIEW(widget), point)
                                    : indexInEntry(GTK_ENTRY(widget), point);
}

Platform::TextLine Platform::textLineAt(const wxTextCtrl& text, const wxPoint& point)
{
    GtkWidget* const widget = textWidget(text);
    if (!GTK_IS_TEXT_VIEW(widget))
        return {0, text.GetLastPosition()};
    GtkTextView* const view = GTK_TEXT_VIEW(widget);
    // Starts from the character, as the nearest position at the end of a wrapped line is on the next line.
    GtkTextIter start = characterAt(view, point, nullptr);
    gtk_text_view_backward_display_line_start(view, &start);
    GtkTextIter end = start;
    // In a wrapped line, GTK stops before the last character, as Windows does.
    gtk_text_view_forward_display_line_end(view, &end);
    return {gtk_text_iter_get_offset(&start), gtk_text_iter_get_offset(&end)};
}

void Platform::scrollToEnd(const wxTextCtrl& text)
{
    GtkWidget* const widget = textWidget(text);
    if (!GTK_IS_TEXT_VIEW(widget))
        return;
    // Lines have no height before the view has laid them out, which it does in idle time.
    if (g_object_get_data(G_OBJECT(widget), SCROLLING) != nullptr)
        return;
    g_object_set_data(G_OBJECT(widget), SCROLLING, widget);
    g_idle_add_full(GTK_TEXT_VIEW_PRIORITY_VALIDATE + 1, scrollNow, g_object_ref(widget), g_object_unref);
}

// wxTextCtrl would store the position of a frozen control for its own DoThaw, which TextCtrl does not call.
void Platform::scrollToPosition(wxTextCtrl& text, long position)
{
    GtkWidget* const widget = textWidget(text);
    if (!GTK_IS_TEXT_VIEW(widget)) {
        text.wxTextCtrl::ShowPosition(position);
        return;
    }
    g_object_set_data(G_OBJECT(widget), SCROLLING, nullptr);
    GtkTextView* const view = GTK_TEXT_VIEW(widget);
    GtkTextBuffer* const buffer = gtk_text_view_get_buffer(view);
    GtkTextIter place;
    gtk_text_buffer_get_iter_at_offset(buffer, &place, static_cast<gint>(position));
    // The mark is kept, because the view scrolls to it after it has laid out the lines.
    GtkTextMark* mark = gtk_text_buffer_get_mark(buffer, SHOWN_POSITION);
    if (mark == nullptr)
        mark = gtk_text_buffer_create_mark(buffer, SHOWN_POSITION, &place, TRUE);
    gtk_text_buffer_move_mark(buffer, mark, &place);
    gtk_text_view_scroll_mark_onscreen(view, mark);
}

Platform::TextView Platform::visiblePart(const wxTextCtrl& /*text*/)
{
    return {0, 0};
}

void Platform::scrollBackTo(const wxTextCtrl& /*text*/, const TextView& /*view*/) {}

} // namespace Nolvex
