// SPDX-License-Identifier: MIT
#include "support/ClipboardReading.h"

#include "support/ClipboardCopying.h"
#include "support/Events.h"

#include <wx/mstream.h>
#include <wx/utils.h>

#include <gtk/gtk.h>

#include <chrono>
#include <cstdio>
#include <future>
#include <memory>
#include <sstream>

namespace Nolvex {

namespace {

std::string outputOf(const std::string& command)
{
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, count);
    pclose(pipe);
    return output;
}

// Events are processed meanwhile, because the command asks this process for the clipboard's content.
std::string outputWhilePumping(const std::string& command)
{
    std::future<std::string> output = std::async(std::launch::async, outputOf, command);
    const auto ready = [&] { return output.wait_for(std::chrono::seconds(0)) == std::future_status::ready; };
    Tests::pumpUntil(ready, 30000);
    return output.get();
}

std::string readClipboard(const std::string& target)
{
    return outputWhilePumping("timeout 30 xclip -selection clipboard -o -t " + target + " 2>/dev/null");
}

bool isOffered(const std::string& wanted)
{
    std::istringstream targets(readClipboard("TARGETS"));
    for (std::string target; std::getline(targets, target);) {
        if (target == wanted)
            return true;
    }
    return false;
}

wxImage decoded(const std::string& target, wxBitmapType type)
{
    if (!isOffered(target))
        return {};
    const std::string bytes = readClipboard(target);
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    return {stream, type};
}

// A time just after the X server's start, long before the last copying.
constexpr guint32 LONG_AGO = 1;

struct Call
{
    const std::function<bool()>& function;
    bool result = false;
};

gboolean makeCall(GtkWidget* /*widget*/, GdkEvent* /*event*/, gpointer data)
{
    auto& call = *static_cast<Call*>(data);
    call.result = call.function();
    return TRUE;
}

} // namespace

// On X11 xclip reads the clipboard, so that the second process only copies.
Optional<int> Tests::useClipboardForParent(int argc, char** argv)
{
    if (argc != 3 || std::string(argv[1]) != COPY_ARGUMENT)
        return {};
    return copyAndEnd(argv[2]);
}

Optional<String> Tests::clipboardText()
{
    if (!isOffered("UTF8_STRING"))
        return {};
    return String::fromUtf8(readClipboard("UTF8_STRING"));
}

Array<std::uint8_t> Tests::clipboardBitmap()
{
    constexpr std::size_t FILE_HEADER_SIZE = 14;
    const std::string file = readClipboard("image/bmp");
    if (file.size() < FILE_HEADER_SIZE || !file.starts_with("BM"))
        return {};
    return {file.begin() + FILE_HEADER_SIZE, file.end()};
}

std::map<std::string, wxImage> Tests::clipboardPictures()
{
    return {{"image/bmp", decoded("image/bmp", wxBITMAP_TYPE_BMP)},
            {"image/png", decoded("image/png", wxBITMAP_TYPE_PNG)}};
}

bool Tests::whileClipboardIsTaken(const std::function<bool()>& copy)
{
    // The X server refuses a copy whose time is older than that of the last copy. The event below has such a
    // time.
    outputWhilePumping("echo taken | xclip -selection clipboard -i >/dev/null 2>&1");
    // xclip goes to the background before the X server has heard of its copy.
    constexpr int MAX_LOOKS = 200;
    for (int i = 0; i < MAX_LOOKS && !readClipboard("UTF8_STRING").starts_with("taken"); ++i)
        wxMilliSleep(10);
    GtkWidget* window = gtk_window_new(GTK_WINDOW_POPUP);
    gtk_widget_realize(window);
    Call call{copy};
    g_signal_connect(window, "property-notify-event", G_CALLBACK(makeCall), &call);
    GdkEvent* event = gdk_event_new(GDK_PROPERTY_NOTIFY);
    event->property.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(window)));
    event->property.time = LONG_AGO;
    gtk_main_do_event(event);
    gdk_event_free(event);
    gtk_widget_destroy(window);
    return call.result;
}

bool Tests::whileClipboardOwnerIsSilent(const std::function<bool()>& copy)
{
    GdkWindowAttr attributes{};
    attributes.window_type = GDK_WINDOW_TOPLEVEL;
    attributes.wclass = GDK_INPUT_ONLY;
    attributes.width = attributes.height = 1;
    // GTK drops the requests to this window, because the window belongs to no widget.
    GdkWindow* const owner = gdk_window_new(gdk_get_default_root_window(), &attributes, 0);
    for (const GdkAtom selection :
         {GDK_SELECTION_CLIPBOARD, gdk_atom_intern_static_string("CLIPBOARD_MANAGER")})
        gdk_selection_owner_set(owner, selection, GDK_CURRENT_TIME, FALSE);
    const bool result = copy();
    gdk_window_destroy(owner);
    return result;
}

} // namespace Nolvex
