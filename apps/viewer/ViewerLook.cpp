// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerLook.h"

#include "apps/viewer/Command.h"
#include "apps/viewer/CommandStates.h"
#include "apps/viewer/LogPanel.h"
#include "apps/viewer/ToolBar.h"
#include "apps/viewer/ViewOptions.h"
#include "apps/viewer/view/ImageView.h"

namespace Nolvex::Viewer {

namespace {

constexpr RgbBytes LIGHT_SURROUND_COLOUR{200, 200, 200};

} // namespace

ViewerLook::ViewerLook(const Parts& parts) : m_parts(parts), m_probe(parts.view)
{
    bindCommand(parts.window, SHOW_TOOLTIPS, [this] { setTooltips(!hasTooltips()); });
    bindCommand(parts.window, LIGHT_SURROUND, [this] { setLightSurround(!hasLightSurround()); });
    bindCommand(parts.window, PIXEL_PROBE, [this] { setPixelProbe(!hasPixelProbe()); });
}

void ViewerLook::describe(const String& description)
{
    m_description = description;
    setTooltips(m_tooltips);
}

void ViewerLook::setTooltips(bool wanted)
{
    m_tooltips = wanted;
    m_parts.states.check(SHOW_TOOLTIPS, wanted);
    m_parts.toolBar.setTooltips(wanted);
    // The tooltip would cover what the probe shows.
    m_parts.view.setTooltip(wanted && !hasPixelProbe() ? m_description : String());
    m_parts.log.setTooltips(wanted);
}

void ViewerLook::setLightSurround(bool light)
{
    m_lightSurround = light;
    m_parts.states.check(LIGHT_SURROUND, light);
    m_parts.view.setSurround(light ? LIGHT_SURROUND_COLOUR : m_parts.options.surround());
}

void ViewerLook::setPixelProbe(bool active)
{
    m_probe.setActive(active);
    m_parts.states.check(PIXEL_PROBE, active);
    setTooltips(m_tooltips);
}

void ViewerLook::setPreferences(const Preferences& preferences)
{
    m_parts.options.setPreferences(preferences);
    setTooltips(preferences.tooltips);
    setLightSurround(preferences.lightSurround);
}

void ViewerLook::storePreferences(Preferences& preferences) const
{
    m_parts.options.storePreferences(preferences);
    preferences.tooltips = m_tooltips;
    preferences.lightSurround = m_lightSurround;
}

} // namespace Nolvex::Viewer
