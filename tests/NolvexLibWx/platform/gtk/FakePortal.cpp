// SPDX-License-Identifier: MIT
#include "FakePortal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace Nolvex {

namespace {

constexpr char CONFIGURATION[] = R"(<!DOCTYPE busconfig PUBLIC
  "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN" "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>)";

constexpr char INTERFACES[] = R"(<node>
  <interface name="org.freedesktop.portal.Screenshot">
    <method name="Screenshot">
      <arg type="s" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.portal.Request">
    <method name="Close"/>
  </interface>
</node>)";

} // namespace

Tests::PrivateBus::PrivateBus()
{
    const std::string configuration = m_folder.file(L"bus.conf", CONFIGURATION).native().string();
    const char* const command[] = {"dbus-daemon",         "--nofork", "--print-address", "--config-file",
                                   configuration.c_str(), nullptr};
    m_daemon = g_subprocess_newv(
        command,
        static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_PIPE | G_SUBPROCESS_FLAGS_STDERR_SILENCE),
        nullptr);
    GDataInputStream* output = g_data_input_stream_new(g_subprocess_get_stdout_pipe(m_daemon));
    char* line = g_data_input_stream_read_line(output, nullptr, nullptr, nullptr);
    m_address = line;
    g_free(line);
    g_object_unref(output);
}

Tests::PrivateBus::~PrivateBus()
{
    kill();
    g_object_unref(m_daemon);
}

void Tests::PrivateBus::kill()
{
    g_subprocess_force_exit(m_daemon);
    g_subprocess_wait(m_daemon, nullptr, nullptr);
}

std::string Tests::FakePortal::otherHandle(int number)
{
    std::string handle = PATH;
    handle.append("/request/old/").append(std::to_string(number));
    return handle;
}

std::string Tests::FakePortal::Call::handle() const
{
    GVariant* options = nullptr;
    const char* token = "";
    g_variant_get_child(g_dbus_method_invocation_get_parameters(m_invocation), 1, "@a{sv}", &options);
    EXPECT_TRUE(g_variant_lookup(options, "handle_token", "&s", &token));
    std::string sender = caller().substr(1);
    std::ranges::replace(sender, '.', '_');
    std::string handle = PATH;
    handle.append("/request/").append(sender).append("/").append(token);
    g_variant_unref(options);
    return handle;
}

std::string Tests::FakePortal::Call::caller() const
{
    return g_dbus_method_invocation_get_sender(m_invocation);
}

bool Tests::FakePortal::Call::isPlain() const
{
    GVariant* options = nullptr;
    gboolean isInteractive = TRUE;
    g_variant_get_child(g_dbus_method_invocation_get_parameters(m_invocation), 1, "@a{sv}", &options);
    const bool isSet = g_variant_lookup(options, "interactive", "b", &isInteractive) != FALSE;
    g_variant_unref(options);
    return isSet && isInteractive == FALSE;
}

void Tests::FakePortal::Call::giveHandle(const std::string& handle)
{
    m_portal.registerObject(
        handle, g_dbus_node_info_lookup_interface(m_portal.m_interfaces, "org.freedesktop.portal.Request"));
    g_dbus_method_invocation_return_value(m_invocation, g_variant_new("(o)", handle.c_str()));
}

void Tests::FakePortal::Call::fail(const char* error)
{
    g_dbus_method_invocation_return_dbus_error(m_invocation, error, "as the test wants");
}

void Tests::FakePortal::Call::waitUntilRead()
{
    GVariant* pong =
        g_dbus_connection_call_sync(m_portal.m_connection, caller().c_str(), "/", "org.freedesktop.DBus.Peer",
                                    "Ping", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    EXPECT_NE(pong, nullptr);
    g_clear_pointer(&pong, g_variant_unref);
}

void Tests::FakePortal::Call::respond(const std::string& handle, const std::string& values)
{
    m_portal.respond(caller(), handle, values);
}

void Tests::FakePortal::Call::respondWithUri(const std::string& uri)
{
    const std::string own = handle();
    giveHandle(own);
    respond(own, "(uint32 0, {'uri': <'" + uri + "'>})");
}

void Tests::FakePortal::respond(const std::string& caller, const std::string& handle,
                                const std::string& values)
{
    GVariant* const parsed = g_variant_parse(nullptr, values.c_str(), nullptr, nullptr, nullptr);
    ASSERT_NE(parsed, nullptr) << values;
    g_dbus_connection_emit_signal(m_connection, caller.c_str(), handle.c_str(),
                                  "org.freedesktop.portal.Request", "Response", parsed, nullptr);
    g_variant_unref(parsed);
}

Tests::FakePortal::FakePortal(const std::string& busAddress, Answer answer, const char* name)
    : m_answer(std::move(answer)),
      m_context(g_main_context_new()),
      m_loop(g_main_loop_new(m_context, FALSE)),
      m_interfaces(g_dbus_node_info_new_for_xml(INTERFACES, nullptr))
{
    std::promise<void> ready;
    m_thread = std::thread([&] { run(busAddress, name, ready); });
    ready.get_future().wait();
}

Tests::FakePortal::~FakePortal()
{
    g_main_context_invoke(
        m_context,
        [](gpointer loop) -> gboolean {
            g_main_loop_quit(static_cast<GMainLoop*>(loop));
            return G_SOURCE_REMOVE;
        },
        m_loop);
    m_thread.join();
    g_dbus_connection_close_sync(m_connection, nullptr, nullptr);
    g_object_unref(m_connection);
    g_dbus_node_info_unref(m_interfaces);
    g_main_loop_unref(m_loop);
    g_main_context_unref(m_context);
}

void Tests::FakePortal::whenClosing(std::function<void()> closing)
{
    const std::lock_guard lock(m_mutex);
    m_closing = std::move(closing);
}

Array<std::string> Tests::FakePortal::closed() const
{
    const std::lock_guard lock(m_mutex);
    return m_closed;
}

void Tests::FakePortal::onMethod(GDBusConnection* /*connection*/, const char* /*sender*/, const char* path,
                                 const char* /*interface*/, const char* method, GVariant* /*parameters*/,
                                 GDBusMethodInvocation* invocation, gpointer self)
{
    auto& portal = *static_cast<FakePortal*>(self);
    if (std::string_view(method) == "Screenshot") {
        ++portal.m_calls;
        portal.m_answer(Call(portal, invocation));
        return;
    }
    std::function<void()> closing;
    {
        const std::lock_guard lock(portal.m_mutex);
        portal.m_closed.emplace_back(path);
        closing = portal.m_closing;
    }
    if (closing)
        closing();
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

void Tests::FakePortal::run(const std::string& busAddress, const std::string& name, std::promise<void>& ready)
{
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    g_main_context_push_thread_default(m_context);
    m_connection =
        g_dbus_connection_new_for_address_sync(busAddress.c_str(), FLAGS, nullptr, nullptr, nullptr);
    registerObject(PATH,
                   g_dbus_node_info_lookup_interface(m_interfaces, "org.freedesktop.portal.Screenshot"));
    GVariant* owner = g_dbus_connection_call_sync(
        m_connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", name.c_str(), 0), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    g_clear_pointer(&owner, g_variant_unref);
    ready.set_value();
    g_main_loop_run(m_loop);
    g_main_context_pop_thread_default(m_context);
}

void Tests::FakePortal::registerObject(const std::string& path, GDBusInterfaceInfo* interface)
{
    const GDBusInterfaceVTable functions{onMethod, nullptr, nullptr, {}};
    g_dbus_connection_register_object(m_connection, path.c_str(), interface, &functions, this, nullptr,
                                      nullptr);
}

} // namespace Nolvex
