// SPDX-License-Identifier: MIT
#include "support/DesktopTheme.h"

#include <gtk/gtk.h>

namespace Nolvex::Tests {

namespace {

constexpr const char* THEME_PROPERTY = "gtk-theme-name";

} // namespace

bool DesktopTheme::canBeSet()
{
    return g_getenv("GTK_THEME") == nullptr;
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
