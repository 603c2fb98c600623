// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/SessionBus.h"

#include <gio/gio.h>

#include <filesystem>
#include <memory>
#include <system_error>

namespace Nolvex {

namespace {

std::string environment(const char* variable)
{
    const char* const value = g_getenv(variable);
    return value == nullptr ? std::string() : std::string(value);
}

} // namespace

std::string Platform::sessionBusAddress()
{
    const std::string address = environment("DBUS_SESSION_BUS_ADDRESS");
    if (!address.empty())
        return address.find("autolaunch:") == std::string::npos ? address : std::string();
    const std::filesystem::path folder = environment("XDG_RUNTIME_DIR");
    std::error_code failure;
    if (folder.empty() || !std::filesystem::is_socket(folder / "bus", failure))
        return {};
    const std::unique_ptr<char, void (*)(gpointer)> escaped(
        g_dbus_address_escape_value((folder / "bus").c_str()), g_free);
    return std::string("unix:path=") + escaped.get();
}

} // namespace Nolvex
