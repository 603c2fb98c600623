// SPDX-License-Identifier: MIT
#include "support/ClipboardCopying.h"
#include "support/ClipboardReading.h"
#include "support/Events.h"

#include <gtk/gtk.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <map>
#include <string>

namespace Nolvex {

namespace {

constexpr const char* KEPT_TARGETS[] = {"image/bmp", "image/png", "UTF8_STRING"};

// A clipboard manager like those of desktops: on request it fetches the content that a program has copied,
// and offers that content itself after the program has ended.
class ClipboardManager
{
public:
    ClipboardManager()
    {
        const GdkAtom selection = gdk_atom_intern_static_string("CLIPBOARD_MANAGER");
        gtk_widget_realize(m_widget);
        g_signal_connect(m_widget, "selection-request-event", G_CALLBACK(onAsked), this);
        gtk_selection_owner_set(m_widget, selection, GDK_CURRENT_TIME);
    }

    ~ClipboardManager() { gtk_widget_destroy(m_widget); }

    ClipboardManager(const ClipboardManager&) = delete;
    ClipboardManager& operator=(const ClipboardManager&) = delete;

    void offerWhatWasKept()
    {
        GtkTargetList* const list = gtk_target_list_new(nullptr, 0);
        for (const auto& [name, bytes] : m_kept)
            gtk_target_list_add(list, gdk_atom_intern(name.c_str(), FALSE), 0, 0);
        int count = 0;
        GtkTargetEntry* const entries = gtk_target_table_new_from_list(list, &count);
        if (count > 0)
            gtk_clipboard_set_with_data(clipboard(), entries, static_cast<guint>(count), onRead, onLost,
                                        this);
        gtk_target_table_free(entries, count);
        gtk_target_list_unref(list);
    }

    void forget()
    {
        m_kept.clear();
        gtk_clipboard_clear(clipboard());
    }

private:
    static GtkClipboard* clipboard() { return gtk_clipboard_get(GDK_SELECTION_CLIPBOARD); }

    // GTK itself answers the request, so that this handler only has to fetch the content.
    static gboolean onAsked(GtkWidget* /*widget*/, GdkEventSelection* request, gpointer manager)
    {
        if (request->target == gdk_atom_intern_static_string("SAVE_TARGETS"))
            static_cast<ClipboardManager*>(manager)->keep();
        return FALSE;
    }

    static void onRead(GtkClipboard* /*clipboard*/, GtkSelectionData* answer, guint /*info*/,
                       gpointer manager)
    {
        const GdkAtom target = gtk_selection_data_get_target(answer);
        gchar* const name = gdk_atom_name(target);
        const std::string& bytes = static_cast<ClipboardManager*>(manager)->m_kept[name];
        g_free(name);
        gtk_selection_data_set(answer, target, 8, reinterpret_cast<const guchar*>(bytes.data()),
                               static_cast<gint>(bytes.size()));
    }

    static void onLost(GtkClipboard* /*clipboard*/, gpointer /*manager*/) {}

    void keep()
    {
        for (const char* name : KEPT_TARGETS) {
            GtkSelectionData* const content =
                gtk_clipboard_wait_for_contents(clipboard(), gdk_atom_intern(name, FALSE));
            if (content == nullptr)
                continue;
            m_kept[name].assign(reinterpret_cast<const char*>(gtk_selection_data_get_data(content)),
                                static_cast<std::size_t>(gtk_selection_data_get_length(content)));
            gtk_selection_data_free(content);
        }
    }

    GtkWidget* m_widget = gtk_invisible_new();
    std::map<std::string, std::string> m_kept;
};

} // namespace

bool Tests::afterCopyingProgramEnded(const char* what, const std::function<void()>& read)
{
    ClipboardManager manager;
    const std::string command = "timeout 60 '" + std::filesystem::read_symlink("/proc/self/exe").string() +
                                "' " + COPY_ARGUMENT + ' ' + what;
    std::future<int> status = std::async(std::launch::async, [&] { return std::system(command.c_str()); });
    pumpUntil([&] { return status.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }, 60000);
    const bool copied = status.get() == 0;
    manager.offerWhatWasKept();
    read();
    manager.forget();
    return copied;
}

} // namespace Nolvex
