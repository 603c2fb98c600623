// SPDX-License-Identifier: MIT
#include "apps/program/platform/DarkParts.h"

#include <gtk/gtk.h>

#include <memory>

namespace Nolvex {

namespace {

constexpr const char* DARK_PROPERTY = "gtk-application-prefer-dark-theme";
constexpr const char* THEME_PROPERTY = "gtk-theme-name";

} // namespace

bool Program::hasHighContrast()
{
    // The variable overrides the setting.
    if (const char* theme = g_getenv("GTK_THEME"))
        return g_str_has_prefix(theme, "HighContrast") != 0;
    char* theme = nullptr;
    g_object_get(gtk_settings_get_default(), THEME_PROPERTY, &theme, nullptr);
    const std::unique_ptr<char, decltype(&g_free)> owned(theme, g_free);
    return theme != nullptr && g_str_has_prefix(theme, "HighContrast") != 0;
}

void Program::requestDarkParts(bool dark)
{
    GtkSettings* settings = gtk_settings_get_default();
    if (dark)
        g_object_set(settings, DARK_PROPERTY, TRUE, nullptr);
    else
        gtk_settings_reset_property(settings, DARK_PROPERTY); // The user may prefer dark programs.
    // wxWidgets forgets the colours of the former theme only when the name of the theme changes.
    g_object_notify(G_OBJECT(settings), THEME_PROPERTY);
}

} // namespace Nolvex
