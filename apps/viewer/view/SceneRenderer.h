// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/RgbBytes.h"
#include "apps/viewer/DisplaySettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/platform/PixelCanvas.h"
#include "apps/viewer/view/PictureRenderer.h"
#include "apps/viewer/view/PyramidCache.h"

#include <wx/gdicmn.h>

#include <chrono>
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

/// Makes the pixels of scenes. Those of the last one are kept: the same scene costs nothing, and a scene that
/// has moved costs what has come into sight.
///
/// While the user zooms between 1/2 and 1 : 1, where most of the memory of a picture has to be read, large
/// pictures are drafted from their reduced copies. So are transparent ones that move over the pattern.
class SceneRenderer
{
public:
    /// A draft is replaced when nothing has moved for so long.
    static constexpr std::chrono::milliseconds DRAFT_TIME{100};

    /// Returns null if the scene is empty or memory has run out.
    const Platform::PixelCanvas* render(const Scene& scene);

    /// True if the last scene is a draft, or was drawn without the reduced copies of its pictures, which are
    /// being made.
    bool isProvisional() const { return m_provisional; }

    /// True if the same scene would look better now.
    bool canImprove() const;

private:
    using Clock = std::chrono::steady_clock;

    bool draw(const Scene& before);
    void drawMoved(const wxPoint& distance);
    bool wantsDraft(const Scene& before) const;
    std::shared_ptr<const Pyramid> pyramidOf(const SharedPicture& picture);

    PyramidCache m_pyramids;
    Scene m_scene;
    std::unique_ptr<Platform::PixelCanvas> m_canvas;
    bool m_drawn = false;
    bool m_provisional = false;
    bool m_drafting = false;
    Clock::time_point m_draftEnd;
};

/// Returns the place of a picture's image in a view, whose frame is shown at a place.
wxRealPoint imagePlace(const Picture& picture, double scale, const wxPoint& frameOrigin);

} // namespace Nolvex::Viewer
