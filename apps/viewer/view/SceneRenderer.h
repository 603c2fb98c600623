// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/RgbBytes.h"
#include "apps/viewer/DisplaySettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/platform/PixelCanvas.h"
#include "apps/viewer/view/PictureRenderer.h"
#include "apps/viewer/view/PyramidCache.h"

#include <wx/gdicmn.h>

#include <memory>

namespace Nolvex::Viewer {

/// What a view shows. Lengths are counted in pixels of the device.
struct Scene
{
    wxSize size{};
    double scale = 1.0;
    wxPoint origin{}; ///< of the frame in which the pictures lie
    SharedPicture picture{};
    /// Shown from the divider on. Null: the first picture takes the whole view.
    SharedPicture comparison{};
    int divider = 0;
    DisplaySettings display{};
    Backdrop backdrop{};

    friend bool operator==(const Scene&, const Scene&) = default;
};

/// Makes the pixels of a scene without reduced copies of its pictures, which a scale below 1/2 would need.
/// Any thread may call the function. Throws std::bad_alloc if memory has run out.
void drawScene(const Scene& scene, const Platform::PixelRows& rows);

/// Makes the pixels of scenes. Those of the last one are kept, so that the same scene costs nothing.
class SceneRenderer
{
public:
    /// Returns null if the scene is empty or memory has run out.
    const Platform::PixelCanvas* render(const Scene& scene);

    /// True if the last scene was drawn without the reduced copies of its pictures, which are being made.
    bool isProvisional() const { return m_provisional; }

    /// True if those copies are there now, so that the same scene would look better.
    bool canImprove() const { return m_provisional && !m_pyramids.isBusy(); }

private:
    bool draw(const Scene& scene);
    std::shared_ptr<const Pyramid> pyramidFor(const SharedPicture& picture, double scale);

    PyramidCache m_pyramids;
    Scene m_scene;
    std::unique_ptr<Platform::PixelCanvas> m_canvas;
    bool m_drawn = false;
    bool m_provisional = false;
};

/// Returns the place of a picture's image in a view, whose frame is shown at a place.
wxRealPoint imagePlace(const Picture& picture, double scale, const wxPoint& frameOrigin);

} // namespace Nolvex::Viewer
