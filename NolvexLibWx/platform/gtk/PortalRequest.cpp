// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/PortalRequest.h"

#include <gio/gio.h>

#include <algorithm>
#include <cstddef>

// What the portal says is not trusted: every type is checked, and signals that belong to other questions are
// ignored. An exception must not pass through GLib, which calls the functions below.

namespace Nolvex {

namespace {

using namespace std::chrono_literals;
using Platform::PortalRequest;
using Wx::ScreenCaptureFailure;

constexpr char PORTAL_NAME[] = "org.freedesktop.portal.Desktop";
constexpr char PORTAL_PATH[] = "/org/freedesktop/portal/desktop";
constexpr char REQUEST_INTERFACE[] = "org.freedesktop.portal.Request";
constexpr int NO_TIMEOUT = G_MAXINT;

// A portal that hangs may delay the end of a question by no more than this.
constexpr auto CLOSING_TIME = 100ms;

// No portal answers several questions that it has not been asked.
constexpr std::size_t MAX_EARLY_RESPONSES = 16;

enum ResponseCode : guint32
{
    SUCCESS = 0,
    CANCELLED = 1,
};

struct ErrorDeleter
{
    void operator()(GError* error) const { g_error_free(error); }
};

using ErrorPointer = std::unique_ptr<GError, ErrorDeleter>;

std::shared_ptr<GVariant> owned(GVariant* variant)
{
    return {variant, [](GVariant* held) {
                if (held != nullptr)
                    g_variant_unref(held);
            }};
}

std::shared_ptr<GDBusConnection> owned(GDBusConnection* connection)
{
    return {connection, [](GDBusConnection* held) {
                if (held != nullptr)
                    g_object_unref(held);
            }};
}

std::string newToken()
{
    return "nolvex_" + std::to_string(g_random_int()) + "_" + std::to_string(g_random_int());
}

/// Returns the path of the object that stands for the question, as the portal forms it.
std::string handleOf(GDBusConnection* connection, const std::string& token)
{
    std::string sender = g_dbus_connection_get_unique_name(connection);
    sender.erase(0, 1); // the colon
    std::ranges::replace(sender, '.', '_');
    return PORTAL_PATH + ("/request/" + sender) + "/" + token;
}

GVariant* callParameters(const std::string& token)
{
    GVariantBuilder options;
    g_variant_builder_init(&options, G_VARIANT_TYPE_VARDICT);
    g_variant_builder_add(&options, "{sv}", "handle_token", g_variant_new_string(token.c_str()));
    g_variant_builder_add(&options, "{sv}", "interactive", g_variant_new_boolean(FALSE));
    return g_variant_new("(sa{sv})", "", &options);
}

ScreenCaptureFailure failureOf(const GError& error)
{
    const std::unique_ptr<char, void (*)(gpointer)> name(g_dbus_error_get_remote_error(&error), g_free);
    const std::string remote = name ? name.get() : "";
    constexpr GDBusError MISSING_SERVICE[] = {
        G_DBUS_ERROR_SERVICE_UNKNOWN,    G_DBUS_ERROR_NAME_HAS_NO_OWNER,
        G_DBUS_ERROR_UNKNOWN_METHOD,     G_DBUS_ERROR_UNKNOWN_INTERFACE,
        G_DBUS_ERROR_UNKNOWN_OBJECT,     G_DBUS_ERROR_NOT_SUPPORTED,
        G_DBUS_ERROR_SPAWN_EXEC_FAILED,  G_DBUS_ERROR_SPAWN_FORK_FAILED,
        G_DBUS_ERROR_SPAWN_CHILD_EXITED, G_DBUS_ERROR_SPAWN_CHILD_SIGNALED,
        G_DBUS_ERROR_SPAWN_FAILED,       G_DBUS_ERROR_SPAWN_SERVICE_NOT_FOUND,
    };
    const auto isError = [&error](GDBusError code) {
        return g_error_matches(&error, G_DBUS_ERROR, code) != FALSE;
    };
    if (std::ranges::any_of(MISSING_SERVICE, isError))
        return ScreenCaptureFailure::UNAVAILABLE;
    if (isError(G_DBUS_ERROR_ACCESS_DENIED) || remote == "org.freedesktop.portal.Error.NotAllowed" ||
        remote == "org.freedesktop.portal.Error.Cancelled")
        return ScreenCaptureFailure::REFUSED;
    return ScreenCaptureFailure::FAILED;
}

PortalRequest::Answer answerOf(GVariant* response)
{
    if (g_variant_is_of_type(response, G_VARIANT_TYPE("(ua{sv})")) == FALSE)
        return Unexpected{ScreenCaptureFailure::FAILED};
    guint32 code = 0;
    GVariant* results = nullptr;
    g_variant_get(response, "(u@a{sv})", &code, &results);
    const std::shared_ptr<GVariant> held = owned(results);
    if (code == CANCELLED)
        return Unexpected{ScreenCaptureFailure::REFUSED};
    const char* uri = nullptr;
    if (code != SUCCESS || g_variant_lookup(results, "uri", "&s", &uri) == FALSE)
        return Unexpected{ScreenCaptureFailure::FAILED};
    return std::string(uri);
}

} // namespace

Platform::PortalRequest::PortalRequest(std::chrono::milliseconds limit, GCancellable* withdrawal)
    : m_context(g_main_context_new()), m_calls(g_cancellable_new(), g_object_unref), m_token(newToken())
{
    g_main_context_push_thread_default(m_context);
    const auto wait = std::clamp<std::chrono::milliseconds::rep>(limit.count(), 0, G_MAXINT);
    GSource* const timer = g_timeout_source_new(static_cast<guint>(wait));
    const GSourceFunc onTimeout = [](gpointer self) noexcept -> gboolean {
        static_cast<PortalRequest*>(self)->settle(Unexpected{ScreenCaptureFailure::TIMED_OUT});
        return G_SOURCE_REMOVE;
    };
    g_source_set_callback(timer, onTimeout, this, nullptr);
    watch(timer);
    GSource* const cancelled = g_cancellable_source_new(withdrawal);
    const GCancellableSourceFunc onWithdrawn = [](GCancellable*, gpointer self) noexcept -> gboolean {
        static_cast<PortalRequest*>(self)->settle(Unexpected{ScreenCaptureFailure::FAILED});
        return G_SOURCE_REMOVE;
    };
    g_source_set_callback(cancelled, reinterpret_cast<GSourceFunc>(reinterpret_cast<void*>(onWithdrawn)),
                          this, nullptr);
    watch(cancelled);
}

Platform::PortalRequest::~PortalRequest()
{
    if (m_connection)
        disconnect();
    for (const std::shared_ptr<GSource>& source : m_sources)
        g_source_destroy(source.get());
    // A source still uses its context when it is freed.
    m_sources.clear();
    g_main_context_pop_thread_default(m_context);
    g_main_context_unref(m_context);
}

void Platform::PortalRequest::watch(GSource* source)
{
    m_sources.emplace_back(source, g_source_unref);
    g_source_attach(source, m_context);
}

PortalRequest::Answer Platform::PortalRequest::ask(const std::string& busAddress)
{
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    const GAsyncReadyCallback connected = [](GObject*, GAsyncResult* result, gpointer self) noexcept {
        auto* const request = static_cast<PortalRequest*>(self);
        --request->m_pendingCalls;
        request->attempt(
            [&] { request->onConnected(g_dbus_connection_new_for_address_finish(result, nullptr)); });
    };
    ++m_pendingCalls;
    // GIO ends the program when its shared connection is lost, but not when this one is.
    g_dbus_connection_new_for_address(busAddress.c_str(), FLAGS, nullptr, m_calls.get(), connected, this);
    // Calls that were cancelled still report to this object.
    while (!m_answer || m_pendingCalls > 0)
        g_main_context_iteration(m_context, TRUE);
    if (m_isQuestionOpen)
        closeQuestion();
    return *m_answer;
}

// Only a lack of memory makes a step fail.
template<class Step>
void Platform::PortalRequest::attempt(Step step) noexcept
{
    try {
        step();
    } catch (...) {
        settle(Unexpected{ScreenCaptureFailure::FAILED});
    }
}

void Platform::PortalRequest::settle(Answer answer)
{
    if (m_answer)
        return;
    m_answer = std::move(answer);
    g_cancellable_cancel(m_calls.get());
}

void Platform::PortalRequest::onConnected(GDBusConnection* connection)
{
    m_connection = owned(connection);
    if (connection == nullptr)
        settle(Unexpected{ScreenCaptureFailure::UNAVAILABLE});
    if (m_answer)
        return;
    m_expectedHandle = handleOf(connection, m_token);
    subscribe();
    call();
}

// The portal may answer before it has returned the handle of the question, and old portals choose another
// handle than the expected one. The signals of all handles are therefore received from the beginning.
void Platform::PortalRequest::subscribe()
{
    const GDBusSignalCallback responded = [](GDBusConnection*, const char*, const char* path, const char*,
                                             const char*, GVariant* values, gpointer self) noexcept {
        auto* const request = static_cast<PortalRequest*>(self);
        request->attempt([&] { request->onResponse(path, owned(g_variant_ref(values))); });
    };
    m_subscriptions.push_back(g_dbus_connection_signal_subscribe(
        m_connection.get(), PORTAL_NAME, REQUEST_INTERFACE, "Response", nullptr, nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE, responded, this, nullptr));
    const GDBusSignalCallback ownerChanged = [](GDBusConnection*, const char*, const char*, const char*,
                                                const char*, GVariant* values, gpointer self) noexcept {
        const char* newOwner = nullptr;
        g_variant_get_child(values, 2, "&s", &newOwner);
        if (*newOwner == '\0')
            static_cast<PortalRequest*>(self)->settle(Unexpected{ScreenCaptureFailure::FAILED});
    };
    m_subscriptions.push_back(g_dbus_connection_signal_subscribe(
        m_connection.get(), "org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
        "/org/freedesktop/DBus", PORTAL_NAME, G_DBUS_SIGNAL_FLAGS_NONE, ownerChanged, this, nullptr));
    using OnClosed = void (*)(GDBusConnection*, gboolean, GError*, gpointer);
    const OnClosed closed = [](GDBusConnection*, gboolean, GError*, gpointer self) noexcept {
        static_cast<PortalRequest*>(self)->settle(Unexpected{ScreenCaptureFailure::FAILED});
    };
    m_closedHandler = g_signal_connect(m_connection.get(), "closed", G_CALLBACK(closed), this);
}

void Platform::PortalRequest::call()
{
    const GAsyncReadyCallback returned = [](GObject* connection, GAsyncResult* result,
                                            gpointer self) noexcept {
        auto* const request = static_cast<PortalRequest*>(self);
        --request->m_pendingCalls;
        request->attempt([&] { request->onReturned(G_DBUS_CONNECTION(connection), result); });
    };
    ++m_pendingCalls;
    m_isQuestionOpen = true;
    g_dbus_connection_call(m_connection.get(), PORTAL_NAME, PORTAL_PATH, "org.freedesktop.portal.Screenshot",
                           "Screenshot", callParameters(m_token), G_VARIANT_TYPE("(o)"),
                           G_DBUS_CALL_FLAGS_NONE, NO_TIMEOUT, m_calls.get(), returned, this);
}

void Platform::PortalRequest::onReturned(GDBusConnection* connection, GAsyncResult* result)
{
    GError* error = nullptr;
    const std::shared_ptr<GVariant> reply = owned(g_dbus_connection_call_finish(connection, result, &error));
    const ErrorPointer heldError(error);
    if (error != nullptr) {
        onCallFailed(*error);
        return;
    }
    const char* handle = nullptr;
    g_variant_get(reply.get(), "(&o)", &handle);
    onHandle(handle);
}

void Platform::PortalRequest::onCallFailed(const GError& error)
{
    // A cancelled call may have reached the portal.
    if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_CANCELLED) == FALSE)
        m_isQuestionOpen = false;
    settle(Unexpected{failureOf(error)});
}

void Platform::PortalRequest::onHandle(const std::string& handle)
{
    m_handle = handle;
    for (const auto& [path, response] : m_early) {
        if (path == handle)
            answerWith(response.get());
    }
    m_early.clear();
}

void Platform::PortalRequest::onResponse(const std::string& path, const Response& response)
{
    if (path == m_expectedHandle || path == m_handle)
        answerWith(response.get());
    else if (!m_handle && m_early.size() < MAX_EARLY_RESPONSES)
        m_early.emplace_back(path, response);
}

void Platform::PortalRequest::answerWith(GVariant* response)
{
    // A portal answers a question once.
    if (!m_isQuestionOpen)
        return;
    m_isQuestionOpen = false;
    Answer answer = answerOf(response);
    if (m_answer && answer)
        m_latePicture = std::move(*answer);
    settle(std::move(answer));
}

// Waits for the portal to return the call, which proves that the portal has read the message before the
// connection is closed. A picture that the portal has sent before arrives in this time, too.
void Platform::PortalRequest::closeQuestion()
{
    const std::shared_ptr<GCancellable> tooLate(g_cancellable_new(), g_object_unref);
    GSource* const timer =
        g_timeout_source_new(static_cast<guint>(std::chrono::milliseconds(CLOSING_TIME).count()));
    const GSourceFunc giveUp = [](gpointer cancellable) noexcept -> gboolean {
        g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
        return G_SOURCE_REMOVE;
    };
    g_source_set_callback(timer, giveUp, tooLate.get(), nullptr);
    watch(timer);
    const GAsyncReadyCallback closed = [](GObject* connection, GAsyncResult* result, gpointer self) noexcept {
        --static_cast<PortalRequest*>(self)->m_pendingCalls;
        GVariant* reply = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr);
        g_clear_pointer(&reply, g_variant_unref);
    };
    ++m_pendingCalls;
    g_dbus_connection_call(m_connection.get(), PORTAL_NAME, m_handle.value_or(m_expectedHandle).c_str(),
                           REQUEST_INTERFACE, "Close", nullptr, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START,
                           NO_TIMEOUT, tooLate.get(), closed, this);
    while (m_pendingCalls > 0)
        g_main_context_iteration(m_context, TRUE);
}

void Platform::PortalRequest::disconnect()
{
    if (m_closedHandler != 0)
        g_signal_handler_disconnect(m_connection.get(), m_closedHandler);
    for (const unsigned subscription : m_subscriptions)
        g_dbus_connection_signal_unsubscribe(m_connection.get(), subscription);
    m_connection.reset();
}

} // namespace Nolvex
