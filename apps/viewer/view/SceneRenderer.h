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

/// Makes the pixels of scenes. Those of the last one are kept, so that the same scene costs nothing.
class SceneRenderer
{
public:
    /// Returns null if the scene is empty or memory has run out.
    const Platform::PixelCanvas* render(const Scene& scene);

    /// True if pixels of the last scene will look better when the reduced copies of its pictures are there.
    bool isProvisional() const { return m_provisional && !m_pyramids.isBusy(); }

    bool isWaiting() const { return m_provisional; }

private:
    bool draw(const Scene& scene);
    void draw(const Scene& scene, const SharedPicture& picture, const wxRect& clip);

    PyramidCache m_pyramids;
    Scene m_scene;
    std::unique_ptr<Platform::PixelCanvas> m_canvas;
    bool m_drawn = false;
    bool m_provisional = false; // drawn without the reduced copies, which are being made
};

/// Returns the place of a picture's image in a view, whose frame is shown at a place.
wxRealPoint imagePlace(const Picture& picture, double scale, const wxPoint& frameOrigin);

} // namespace Nolvex::Viewer
