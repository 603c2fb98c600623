// SPDX-License-Identifier: MIT
#include "apps/viewer/view/SceneRenderer.h"

#include "NolvexLib/Function.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

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

constexpr double MAX_REDUCED_SCALE = 0.5; // less reduced pictures need no copies

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

// A picture and the part of the view that shows it.
struct Side
{
    SharedPicture picture;
    wxRect area;
};

std::array<Side, 2> sidesOf(const Scene& scene)
{
    const wxRect all(scene.size);
    const int divider = scene.comparison ? std::clamp(scene.divider, 0, all.width) : all.width;
    return {Side{scene.picture, {0, 0, divider, all.height}},
            Side{scene.comparison, {divider, 0, all.width - divider, all.height}}};
}

void drawScene(const Scene& scene, const Platform::PixelRows& rows, const PyramidOf& pyramidOf)
{
    for (const Side& side : sidesOf(scene))
        drawPicture(scene, side.picture, side.area, rows, pyramidOf);
}

bool isTransparent(const SharedPicture& picture)
{
    return picture && Image::getPixelFormatChannelCount(picture->image().descriptor().format) == 4;
}

// The pattern behind transparent pixels stays where it is when the picture moves.
bool isMoved(const Scene& scene, const Scene& before)
{
    Scene moved = before;
    moved.origin = scene.origin;
    const bool hasPattern =
        scene.display.checkerboard && (isTransparent(scene.picture) || isTransparent(scene.comparison));
    return moved == scene && !hasPattern;
}

// Moves the pixels of an area as far as they stay within the area. Returns the rectangles whose pixels are
// not there now, which may be empty.
std::array<wxRect, 2> moveWithin(const Platform::PixelRows& rows, const wxRect& area, const wxPoint& distance)
{
    const wxRect kept = area.Intersect(wxRect(area.GetPosition() + distance, area.GetSize()));
    if (kept.IsEmpty())
        return {area, wxRect()};
    for (int i = 0; i < kept.height; ++i) {
        // A row is moved before its place is taken by another one.
        const int y = distance.y > 0 ? kept.y + kept.height - 1 - i : kept.y + i;
        std::memmove(rows.row(y) + kept.x, rows.row(y - distance.y) + (kept.x - distance.x),
                     static_cast<std::size_t>(kept.width) * sizeof(std::uint32_t));
    }
    const int missingAcross = area.width - kept.width;
    const int missingDown = area.height - kept.height;
    return {wxRect(area.x, distance.y > 0 ? area.y : kept.y + kept.height, area.width, missingDown),
            wxRect(distance.x > 0 ? area.x : kept.x + kept.width, kept.y, missingAcross, kept.height)};
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
    if (!m_drawn || scene != m_scene || canImprove()) {
        const Scene before = std::exchange(m_scene, scene);
        try {
            m_drawn = draw(before);
        } catch (const std::bad_alloc&) {
            m_drawn = false;
        }
    }
    return m_drawn ? m_canvas.get() : nullptr;
}

bool SceneRenderer::canImprove() const
{
    return m_provisional && !m_pyramids.isBusy() && Clock::now() >= m_draftEnd;
}

bool SceneRenderer::draw(const Scene& before)
{
    if (!m_canvas || m_canvas->size() != m_scene.size) {
        m_drawn = false;
        m_canvas.reset();
        m_canvas = std::make_unique<Platform::PixelCanvas>(m_scene.size);
    }
    if (!m_canvas->isOk())
        return false;
    m_drafting = false;
    if (m_drawn && !m_provisional && isMoved(m_scene, before)) {
        drawMoved(m_scene.origin - before.origin);
        return true;
    }
    m_drafting = m_drawn && wantsDraft(before);
    m_provisional = false;
    drawScene(m_scene, *m_canvas, [this](const SharedPicture& picture) { return pyramidOf(picture); });
    return true;
}

void SceneRenderer::drawMoved(const wxPoint& distance)
{
    for (const Side& side : sidesOf(m_scene)) {
        for (const wxRect& missing : moveWithin(*m_canvas, side.area, distance)) {
            drawPicture(m_scene, side.picture, missing, *m_canvas,
                        [this](const SharedPicture& picture) { return pyramidOf(picture); });
        }
    }
}

bool SceneRenderer::wantsDraft(const Scene& before) const
{
    const bool isBetween = m_scene.scale > MAX_REDUCED_SCALE && m_scene.scale < 1.0;
    const bool hasMoved = m_scene.scale != before.scale || m_scene.origin != before.origin;
    return isBetween && m_scene.picture == before.picture && (hasMoved || Clock::now() < m_draftEnd);
}

// Returns the copies that are to be used, or null to use the picture itself.
std::shared_ptr<const Pyramid> SceneRenderer::pyramidOf(const SharedPicture& picture)
{
    if (m_scene.scale <= MAX_REDUCED_SCALE) {
        std::shared_ptr<const Pyramid> pyramid = m_pyramids.of(picture);
        m_provisional = m_provisional || !pyramid->isReady();
        return pyramid;
    }
    const Pixel size = picture->size();
    const bool isLarge = std::int64_t(size.x) * size.y > std::int64_t(Pyramid::MAX_PIXELS_AT_ONCE);
    if (!m_drafting || !isLarge)
        return {};
    std::shared_ptr<const Pyramid> pyramid = m_pyramids.of(picture);
    if (!pyramid->isReady())
        return {}; // for the next step
    m_provisional = true;
    m_draftEnd = Clock::now() + DRAFT_TIME;
    return pyramid;
}

} // namespace Nolvex::Viewer
