// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Preferences.h"
#include "apps/viewer/ProbeTool.h"

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

class CommandStates;
class ImageView;
class LogPanel;
class ToolBar;
class ViewOptions;

/// The commands for the look of the viewer's window: tooltips, the surround of the picture, and the pixel
/// probe, which takes the place of the picture's tooltip.
class ViewerLook : private Noncopyable
{
public:
    /// All of them must outlive the look.
    struct Parts
    {
        wxWindow& window;
        ImageView& view;
        ToolBar& toolBar;
        LogPanel& log;
        ViewOptions& options;
        CommandStates& states;
    };

    explicit ViewerLook(const Parts& parts);

    /// Sets the tooltip of the picture.
    void describe(const String& description);

    void setTooltips(bool wanted);

    bool hasTooltips() const { return m_tooltips; }

    /// Surrounds the picture with a light grey, by which dark pictures can be judged, or with the colour of
    /// the view options.
    void setLightSurround(bool light);

    bool hasLightSurround() const { return m_lightSurround; }

    /// Switches the frame that shows the values of the pixel under the mouse.
    void setPixelProbe(bool active);

    bool hasPixelProbe() const { return m_probe.isActive(); }

    void setPreferences(const Preferences& preferences);

    /// Writes what is this object's matter.
    void storePreferences(Preferences& preferences) const;

private:
    Parts m_parts;
    ProbeTool m_probe;
    String m_description;
    bool m_tooltips = true;
    bool m_lightSurround = false;
};

} // namespace Nolvex::Viewer
