// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/FileChooser.h"

#include "NolvexLibWx/StringConversions.h"

#include <wx/arrstr.h>
#include <wx/filedlg.h>
#include <wx/tokenzr.h>

#include <gtk/gtk.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace Nolvex {

namespace {

// GTK matches letters by their case, so that each letter becomes a set of both cases: "*.[pP][nN][gG]". A
// pattern with sets of its own stays as it is.
wxString withBothCases(const wxString& pattern)
{
    if (pattern.find_first_of(L"[\\") != wxString::npos)
        return pattern;
    wxString widened;
    for (const wxUniChar character : pattern) {
        const wxUniChar lower = g_unichar_tolower(character.GetValue());
        const wxUniChar upper = g_unichar_toupper(character.GetValue());
        if (lower == upper)
            widened << character;
        else
            widened << '[' << lower << upper << ']';
    }
    return widened;
}

void widenFilter(GtkFileFilter* filter, const wxString& patterns)
{
    for (const wxString& pattern : wxStringTokenize(patterns, ";")) {
        const wxString widened = pattern == "*.*" ? wxString("*") : withBothCases(pattern);
        gtk_file_filter_add_pattern(filter, widened.utf8_str());
    }
}

// Returns an empty path if `folder` is empty.
std::filesystem::path nearestExistingFolder(const std::filesystem::path& folder)
{
    std::error_code ignored;
    std::filesystem::path nearest = std::filesystem::absolute(folder, ignored);
    while (!std::filesystem::is_directory(nearest, ignored) && nearest.has_relative_path())
        nearest = nearest.parent_path();
    return nearest;
}

Stack<Io::Path> nativePaths(GtkFileChooser* chooser)
{
    Stack<Io::Path> paths;
    GSList* const names = gtk_file_chooser_get_filenames(chooser);
    for (const GSList* name = names; name != nullptr; name = name->next)
        paths.push_back(std::filesystem::path(static_cast<const char*>(name->data)));
    g_slist_free_full(names, g_free);
    return paths;
}

} // namespace

void Platform::widenFilters(wxFileDialog& dialog)
{
    wxArrayString descriptions;
    wxArrayString patterns;
    wxParseCommonDialogsFilter(dialog.GetWildcard(), descriptions, patterns);
    GSList* const filters = gtk_file_chooser_list_filters(GTK_FILE_CHOOSER(dialog.GetHandle()));
    const GSList* filter = filters;
    for (const wxString& list : patterns) {
        if (filter == nullptr)
            break;
        widenFilter(GTK_FILE_FILTER(filter->data), list);
        filter = filter->next;
    }
    g_slist_free(filters);
}

void Platform::startInExistingFolder(wxDialog& dialog, const Io::Path& folder)
{
    const std::filesystem::path nearest = nearestExistingFolder(folder.native());
    if (!nearest.empty() && nearest != folder.native())
        gtk_file_chooser_set_current_folder(GTK_FILE_CHOOSER(dialog.GetHandle()), nearest.c_str());
}

Stack<Io::Path> Platform::chosenPaths(const wxDialog& dialog, const wxArrayString& paths)
{
    // wxWidgets reports a name that is not UTF-8 as an empty text.
    if (std::any_of(paths.begin(), paths.end(), [](const wxString& path) { return path.empty(); }))
        return nativePaths(GTK_FILE_CHOOSER(dialog.GetHandle()));
    Stack<Io::Path> chosen;
    for (const wxString& path : paths)
        chosen.push_back(Io::Path(Wx::toString(path)));
    return chosen;
}

} // namespace Nolvex
