// SPDX-License-Identifier: MIT
#include "support/NativeDialog.h"

#include "support/Events.h"

#include <wx/uiaction.h>

#include <gtk/gtk.h>

#include <algorithm>
#include <filesystem>

namespace Nolvex {

namespace {

Array<GtkWidget*> shownWindows()
{
    Array<GtkWidget*> shown;
    GList* const windows = gtk_window_list_toplevels();
    for (const GList* item = windows; item != nullptr; item = item->next) {
        if (gtk_widget_get_mapped(GTK_WIDGET(item->data)) != 0)
            shown.push_back(GTK_WIDGET(item->data));
    }
    g_list_free(windows);
    return shown;
}

template<class Predicate>
WindowHandle activeWindow(Predicate isWanted)
{
    for (GtkWidget* const window : shownWindows()) {
        if (gtk_window_is_active(GTK_WINDOW(window)) != 0 && isWanted(window))
            return {window};
    }
    return {};
}

void collectLists(GtkWidget* widget, gpointer lists)
{
    if (GTK_IS_TREE_VIEW(widget) && gtk_widget_get_mapped(widget) != 0)
        static_cast<Array<GtkWidget*>*>(lists)->push_back(widget);
    if (GTK_IS_CONTAINER(widget))
        gtk_container_forall(GTK_CONTAINER(widget), collectLists, lists);
}

// The names are in the text column of the list.
String nameAt(GtkTreeModel* model, GtkTreeIter* row)
{
    for (int column = 0; column < gtk_tree_model_get_n_columns(model); ++column) {
        if (gtk_tree_model_get_column_type(model, column) != G_TYPE_STRING)
            continue;
        char* text = nullptr;
        gtk_tree_model_get(model, row, column, &text, -1);
        const String name = text == nullptr ? String() : String::fromUtf8(text);
        g_free(text);
        return name;
    }
    return {};
}

void appendRows(GtkTreeModel* model, Array<String>& names)
{
    GtkTreeIter row;
    // A list that GTK is still making has no model.
    if (model == nullptr || gtk_tree_model_get_iter_first(model, &row) == 0)
        return;
    do
        names.push_back(nameAt(model, &row));
    while (gtk_tree_model_iter_next(model, &row) != 0);
}

} // namespace

WindowHandle Tests::activeFileDialog()
{
    return activeWindow([](GtkWidget* window) { return GTK_IS_FILE_CHOOSER_DIALOG(window) != 0; });
}

WindowHandle Tests::activeMessageBox()
{
    return activeWindow([](GtkWidget* window) { return GTK_IS_MESSAGE_DIALOG(window) != 0; });
}

String Tests::titleOf(WindowHandle dialog)
{
    return String::fromUtf8(gtk_window_get_title(GTK_WINDOW(dialog.native)));
}

Array<String> Tests::fileTypesOf(WindowHandle dialog)
{
    Array<String> types;
    GSList* const filters = gtk_file_chooser_list_filters(GTK_FILE_CHOOSER(dialog.native));
    for (const GSList* filter = filters; filter != nullptr; filter = filter->next)
        types.push_back(String::fromUtf8(gtk_file_filter_get_name(GTK_FILE_FILTER(filter->data))));
    g_slist_free(filters);
    return types;
}

Io::Path Tests::shownFolder(WindowHandle dialog)
{
    char* const folder = gtk_file_chooser_get_current_folder(GTK_FILE_CHOOSER(dialog.native));
    const Io::Path path(std::filesystem::path(folder == nullptr ? "" : folder));
    g_free(folder);
    return path;
}

Array<String> Tests::listedFiles(WindowHandle dialog)
{
    Array<GtkWidget*> lists;
    collectLists(GTK_WIDGET(dialog.native), &lists);
    Array<String> names;
    for (GtkWidget* const list : lists)
        appendRows(gtk_tree_view_get_model(GTK_TREE_VIEW(list)), names);
    std::sort(names.begin(), names.end());
    return names;
}

void Tests::goToNameField()
{
    wxUIActionSimulator simulator;
    simulator.Char('L', wxMOD_CONTROL);
    pumpEvents(100);
    simulator.Char('A', wxMOD_CONTROL);
    pumpEvents(50);
}

String Tests::focusedFieldText()
{
    const WindowHandle dialog = activeFileDialog();
    GtkWidget* const focus = dialog ? gtk_window_get_focus(GTK_WINDOW(dialog.native)) : nullptr;
    return GTK_IS_ENTRY(focus) ? String::fromUtf8(gtk_entry_get_text(GTK_ENTRY(focus))) : String();
}

void Tests::selectFiles(const Array<String>& /*names*/)
{
    wxUIActionSimulator().Char('A', wxMOD_CONTROL);
    pumpEvents(100);
}

// GTK offers to replace the file as the answer for Return.
void Tests::answerQuestion(bool yes)
{
    wxUIActionSimulator().Char(yes ? WXK_RETURN : WXK_ESCAPE);
}

WindowHandle Tests::activeNativeDialog()
{
    return activeWindow([](GtkWidget* window) { return GTK_IS_DIALOG(window) != 0; });
}

void Tests::endNativeDialogs()
{
    for (GtkWidget* const window : shownWindows()) {
        if (GTK_IS_DIALOG(window))
            gtk_dialog_response(GTK_DIALOG(window), GTK_RESPONSE_CANCEL);
    }
}

} // namespace Nolvex
