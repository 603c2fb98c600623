// SPDX-License-Identifier: MIT
#include "apps/viewer/view/SceneRenderer.h"

#include "NolvexLib/Function.h"

#include <algorithm>
#include <array>
#include <new>

namespace Nolvex::Viewer {

namespace {

// Returns the rectangles above, below and beside an inner one, which together with it make the outer one.
std::array<wxRect, 4> around(const wxRect& inner, const wxRect& outer)
{
    if (inner.IsEmpty())
        return {outer, wxRect(), wxRect(), wxRect()};
    const int right = inner.x + inner.width;
    const int bottom = inner.y + inner.height;
    return {wxRect(outer.x, outer.y, outer.width, inner.y - outer.y),
            wxRect(outer.x, bottom, outer.width, outer.y + outer.height - bottom),
            wxRect(outer.x, inner.y, inner.x - outer.x, inner.height),
            wxRect(right, inner.y, outer.x + outer.width - right, inner.height)};
}

using PyramidOf = Function<std::shared_ptr<const Pyramid>(const SharedPicture&)>;

void drawPicture(const Scene& scene, const SharedPicture& picture, const wxRect& clip,
                 const Platform::PixelRows& rows, const PyramidOf& pyramidOf)
{
    if (clip.IsEmpty())
        return;
    if (!picture) {
        fillWith(scene.backdrop.surround, clip, rows);
        return;
    }
    const std::shared_ptr<const Pyramid> pyramid = pyramidOf(picture);
    const ShownImage shown{picture->image(),
                           pyramid.get(),
                           scene.display,
                           scene.scale,
                           imagePlace(*picture, scene.scale, scene.origin),
                           picture->alpha()};
    for (const wxRect& rect : around(drawnArea(shown, clip), clip))
        fillWith(scene.backdrop.surround, rect, rows);
    drawImage(shown, scene.backdrop, clip, rows);
}

void drawScene(const Scene& scene, const Platform::PixelRows& rows, const PyramidOf& pyramidOf)
{
    const wxRect all(scene.size);
    const int divider = scene.comparison ? std::clamp(scene.divider, 0, all.width) : all.width;
    drawPicture(scene, scene.picture, {0, 0, divider, all.height}, rows, pyramidOf);
    drawPicture(scene, scene.comparison, {divider, 0, all.width - divider, all.height}, rows, pyramidOf);
}

} // namespace

wxRealPoint imagePlace(const Picture& picture, double scale, const wxPoint& frameOrigin)
{
    return {frameOrigin.x + picture.origin().x * scale, frameOrigin.y + picture.origin().y * scale};
}

void drawScene(const Scene& scene, const Platform::PixelRows& rows)
{
    drawScene(scene, rows, [](const SharedPicture&) { return nullptr; });
}

const Platform::PixelCanvas* SceneRenderer::render(const Scene& scene)
{
    const bool isSettled = !canImprove();
    if (!m_drawn || scene != m_scene || !isSettled) {
        m_provisional = false;
        m_scene = scene;
        try {
            m_drawn = draw(scene);
        } catch (const std::bad_alloc&) {
            m_drawn = false;
        }
    }
    return m_drawn ? m_canvas.get() : nullptr;
}

bool SceneRenderer::draw(const Scene& scene)
{
    if (!m_canvas || m_canvas->size() != scene.size) {
        m_canvas.reset();
        m_canvas = std::make_unique<Platform::PixelCanvas>(scene.size);
    }
    if (!m_canvas->isOk())
        return false;
    drawScene(scene, *m_canvas,
              [this, &scene](const SharedPicture& picture) { return pyramidFor(picture, scene.scale); });
    return true;
}

std::shared_ptr<const Pyramid> SceneRenderer::pyramidFor(const SharedPicture& picture, double scale)
{
    constexpr double MAX_REDUCED_SCALE = 0.5; // less reduced pictures need no copies
    if (scale > MAX_REDUCED_SCALE)
        return {};
    std::shared_ptr<const Pyramid> pyramid = m_pyramids.of(picture);
    m_provisional = m_provisional || !pyramid->isReady();
    return pyramid;
}

} // namespace Nolvex::Viewer
