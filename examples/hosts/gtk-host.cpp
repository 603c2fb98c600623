// SPDX-License-Identifier: MIT
// A GTK program with a main loop of its own that opens a window of the library. With a number of milliseconds
// on the command line, the program ends by itself.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "examples/hosts/LibraryWindow.h"

#include <gtk/gtk.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr guint EVENTS_INTERVAL_MS = 20;

gboolean processEvents(void* /*data*/)
{
    // GTK's loop has dispatched what windows need; what the library has queued waits here.
    Nolvex::LibWx::processAllPendingEvents();
    return G_SOURCE_CONTINUE;
}

gboolean endLoop(void* /*data*/)
{
    gtk_main_quit();
    return G_SOURCE_REMOVE;
}

void runHost(unsigned endAfterMs)
{
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* button = gtk_button_new_with_label("Open a window of the library");
    gtk_container_add(GTK_CONTAINER(window), button);
    g_signal_connect(button, "clicked", G_CALLBACK(openLibraryWindow), nullptr);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    const guint events = g_timeout_add(EVENTS_INTERVAL_MS, processEvents, nullptr);
    if (endAfterMs > 0) {
        openLibraryWindow();
        g_timeout_add(endAfterMs, endLoop, nullptr);
    }
    gtk_main();
    g_source_remove(events);
}

} // namespace

int main(int argc, char** argv)
{
    gtk_init(&argc, &argv);
    try {
        Nolvex::LibWx::startup(Nolvex::LibWx::ApplicationType::PLUGIN);
    } catch (const Nolvex::Exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
    runHost(argc > 1 ? static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10)) : 0);
    closeLibraryWindow();
    Nolvex::LibWx::shutdown();
    return EXIT_SUCCESS;
}
