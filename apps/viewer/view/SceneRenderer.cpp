// SPDX-License-Identifier: MIT
#include "apps/viewer/view/SceneRenderer.h"

#include "apps/viewer/view/PixelCanvas.h"

#include <algorithm>
#include <new>

namespace Nolvex::Viewer {

wxRealPoint imagePlace(const Picture& picture, double scale, const wxPoint& frameOrigin)
{
    return {frameOrigin.x + picture.origin().x * scale, frameOrigin.y + picture.origin().y * scale};
}

const wxBitmap& SceneRenderer::bitmap(const Scene& scene)
{
    const bool isSettled = !m_provisional || m_pyramids.isBusy();
    if (m_bitmap.IsOk() && scene == m_scene && isSettled)
        return m_bitmap;
    m_provisional = false;
    try {
        m_bitmap = drawScene(scene);
    } catch (const std::bad_alloc&) {
        m_bitmap = wxBitmap();
    }
    m_scene = scene;
    return m_bitmap;
}

wxBitmap SceneRenderer::drawScene(const Scene& scene)
{
    wxBitmap bitmap = PixelCanvas::makeBitmap(scene.size);
    if (!bitmap.IsOk())
        return {};
    PixelCanvas canvas(bitmap);
    if (!canvas.isOk())
        return {};
    const wxRect all(scene.size);
    fillWith(scene.backdrop.surround, all, canvas);
    const int divider = scene.comparison ? std::clamp(scene.divider, 0, all.width) : all.width;
    if (scene.picture)
        draw(scene, scene.picture, {0, 0, divider, all.height}, canvas);
    if (scene.comparison)
        draw(scene, scene.comparison, {divider, 0, all.width - divider, all.height}, canvas);
    return bitmap;
}

void SceneRenderer::draw(const Scene& scene, const SharedPicture& picture, const wxRect& clip,
                         PixelCanvas& canvas)
{
    std::shared_ptr<const Pyramid> pyramid;
    constexpr double MAX_REDUCED_SCALE = 0.5; // less reduced pictures need no copies
    if (scene.scale <= MAX_REDUCED_SCALE) {
        pyramid = m_pyramids.of(picture);
        m_provisional = m_provisional || !pyramid->isReady();
    }
    drawImage({picture->image(), pyramid.get(), scene.display, scene.scale,
               imagePlace(*picture, scene.scale, scene.origin)},
              scene.backdrop, clip, canvas);
}

} // namespace Nolvex::Viewer
