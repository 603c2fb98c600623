// SPDX-License-Identifier: MIT
#include "support/DesktopTheme.h"

#include <gtk/gtk.h>

namespace Nolvex::Tests {

namespace {

constexpr const char* THEME_PROPERTY = "gtk-theme-name";
constexpr const char* DARK_PROPERTY = "gtk-application-prefer-dark-theme";

} // namespace

bool DesktopTheme::canBeSet()
{
    return g_getenv("GTK_THEME") == nullptr;
}

bool DesktopTheme::isDarkPreferred()
{
    gboolean dark = FALSE;
    g_object_get(gtk_settings_get_default(), DARK_PROPERTY, &dark, nullptr);
    return dark != FALSE;
}

DesktopTheme::DesktopTheme(const char* name)
{
    g_object_set(gtk_settings_get_default(), THEME_PROPERTY, name, nullptr);
}

DesktopTheme::~DesktopTheme()
{
    gtk_settings_reset_property(gtk_settings_get_default(), THEME_PROPERTY);
}

} // namespace Nolvex::Tests
