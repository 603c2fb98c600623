// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/LauncherEntry.h"

#include "NolvexLibWx/platform/gtk/SessionBus.h"

#include <gio/gio.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <system_error>
#include <utility>

namespace Nolvex {

namespace {

using namespace std::chrono_literals;
using Platform::LauncherProgress;

// Docks draw each update, and more of them would look no smoother.
constexpr auto SENDING_INTERVAL = 20ms;
// A bus that hangs may delay the end of an operation by no more than this.
constexpr auto CLOSING_TIME = 50ms;

/// Returns the desktop file with the name of the program. GTK sets that name when it starts.
std::string applicationUri()
{
    const char* const name = g_get_prgname();
    const std::unique_ptr<char, void (*)(gpointer)> valid(
        g_utf8_make_valid(name == nullptr ? program_invocation_short_name : name, -1), g_free);
    return std::string("application://") + valid.get() + ".desktop";
}

std::shared_ptr<GDBusConnection> connectTo(const std::string& address, GCancellable* cancellable)
{
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    // GIO ends the program when its shared connection is lost, but not when this one is.
    return {g_dbus_connection_new_for_address_sync(address.c_str(), FLAGS, nullptr, cancellable, nullptr),
            [](GDBusConnection* connection) {
                if (connection != nullptr)
                    g_object_unref(connection);
            }};
}

GVariant* updateParameters(const std::string& uri, LauncherProgress progress)
{
    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE_VARDICT);
    g_variant_builder_add(&properties, "{sv}", "progress", g_variant_new_double(progress.fraction));
    g_variant_builder_add(&properties, "{sv}", "progress-visible", g_variant_new_boolean(progress.visible));
    g_variant_builder_add(&properties, "{sv}", "urgent", g_variant_new_boolean(FALSE));
    return g_variant_new("(sa{sv})", uri.c_str(), &properties);
}

/// Puts the update into the queue of the connection, which GIO sends from a thread of its own.
bool sendUpdate(GDBusConnection* connection, LauncherProgress progress)
{
    const std::string uri = applicationUri();
    const std::string path = "/com/canonical/unity/launcherentry/" + std::to_string(g_str_hash(uri.c_str()));
    return g_dbus_connection_emit_signal(connection, nullptr, path.c_str(),
                                         "com.canonical.Unity.LauncherEntry", "Update",
                                         updateParameters(uri, progress), nullptr) != FALSE;
}

/// The answers to this thread arrive in an event queue of its own as long as the object lives.
class OwnContext : private Noncopyable
{
public:
    OwnContext() { g_main_context_push_thread_default(m_context); }

    ~OwnContext()
    {
        g_main_context_pop_thread_default(m_context);
        g_main_context_unref(m_context);
    }

private:
    GMainContext* const m_context = g_main_context_new();
};

struct Answer
{
    bool arrived = false;
    bool successful = false;
};

void takeAnswer(GObject* connection, GAsyncResult* result, gpointer data) noexcept
{
    auto* const answer = static_cast<Answer*>(data);
    GError* error = nullptr;
    GVariant* id = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &error);
    answer->arrived = true;
    // An error that the bus sends is an answer, too.
    answer->successful = id != nullptr || g_dbus_error_is_remote_error(error) != FALSE;
    g_clear_pointer(&id, g_variant_unref);
    g_clear_error(&error);
}

/// Asks the bus for its id, and returns whether the bus answered, and has thus read all that was sent before.
/// Flushing the connection would prove less, and GIO cannot cancel the flushing while a bus reads nothing.
bool isAnswered(GDBusConnection* connection, GCancellable* cancellable)
{
    constexpr int NO_TIMEOUT = G_MAXINT;
    Answer answer;
    g_dbus_connection_call(connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus", "GetId", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE,
                           NO_TIMEOUT, cancellable, takeAnswer, &answer);
    // The cancellation arrives like an answer.
    while (!answer.arrived)
        g_main_context_iteration(g_main_context_get_thread_default(), TRUE);
    return answer.successful;
}

} // namespace

std::shared_ptr<Platform::LauncherEntry> Platform::LauncherEntry::ofProgram()
{
    static Mutex mutex;
    static std::weak_ptr<LauncherEntry> existing;
    const std::lock_guard lock(mutex);
    std::shared_ptr<LauncherEntry> entry = existing.lock();
    if (entry)
        return entry;
    std::string address = sessionBusAddress();
    if (address.empty())
        return nullptr;
    try {
        entry = std::make_shared<LauncherEntry>(std::move(address));
    } catch (const std::system_error&) {
        return nullptr; // the system has no thread left
    }
    existing = entry;
    return entry;
}

Platform::LauncherEntry::LauncherEntry(std::string address)
    : m_address(std::move(address)),
      m_cancellable(g_cancellable_new(), g_object_unref),
      m_thread([this] { run(); })
{}

Platform::LauncherEntry::~LauncherEntry()
{
    {
        std::unique_lock lock(m_mutex);
        m_closing = true;
        m_changed.notify_all();
        m_changed.wait_for(lock, CLOSING_TIME, [this] { return !m_connected; });
    }
    g_cancellable_cancel(m_cancellable.get());
    m_thread.join();
}

void Platform::LauncherEntry::show(const void* owner, LauncherProgress progress)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_shown, [owner](const Shown& shown) { return shown.owner == owner; });
    m_shown.push_back({owner, progress});
    update();
}

void Platform::LauncherEntry::remove(const void* owner)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_shown, [owner](const Shown& shown) { return shown.owner == owner; });
    update();
}

LauncherProgress Platform::LauncherEntry::current() const
{
    const auto shown = std::find_if(m_shown.rbegin(), m_shown.rend(),
                                    [](const Shown& candidate) { return candidate.progress.visible; });
    return shown == m_shown.rend() ? LauncherProgress() : shown->progress;
}

void Platform::LauncherEntry::update()
{
    m_next = current();
    m_mustSend = true;
    m_changed.notify_all();
}

void Platform::LauncherEntry::run()
{
    const std::shared_ptr<GDBusConnection> connection = connectTo(m_address, m_cancellable.get());
    if (!connection)
        return;
    const OwnContext context;
    sendUpdates(connection.get());
    const std::lock_guard lock(m_mutex);
    m_connected = false;
    m_changed.notify_all();
}

void Platform::LauncherEntry::sendUpdates(GDBusConnection* connection)
{
    std::unique_lock lock(m_mutex);
    m_connected = true;
    LauncherProgress sent{.visible = true, .fraction = -1}; // no progress that is ever sent
    while (true) {
        m_changed.wait(lock, [this] { return m_mustSend || m_closing; });
        if (!std::exchange(m_mustSend, false))
            return;
        if (m_next == sent)
            continue;
        sent = m_next;
        lock.unlock();
        const bool successful = sendUpdate(connection, sent) && isAnswered(connection, m_cancellable.get());
        lock.lock();
        if (!successful)
            return;
        m_changed.wait_for(lock, SENDING_INTERVAL, [this] { return m_closing; });
    }
}

} // namespace Nolvex
