// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ViewTransform.h"

#include <algorithm>
#include <cmath>

namespace Nolvex::Viewer {

namespace {

bool isFinite(const wxRealPoint& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// Keeps a middle of `view` pixels over a picture of `size` pixels that begins at `place`.
double limited(double place, double size, double view)
{
    return std::clamp(place, view / 2.0 - size, view / 2.0);
}

// Moves by a distance, but not away from the edges of the picture.
double scrolled(double place, double distance, double size, double view)
{
    const double lowest = std::min(place, std::min(view - size, 0.0));
    const double highest = std::max(place, 0.0);
    return size <= view ? place : std::clamp(place + distance, lowest, highest);
}

// Rounds down, but up where only the inexactness of floats has made a number smaller than a whole one.
int rounded(double place)
{
    constexpr double INEXACTNESS = 1e-6;
    return static_cast<int>(std::floor(place + INEXACTNESS));
}

} // namespace

void ViewTransform::setViewSize(const wxSize& size)
{
    const wxSize valid(std::max(size.x, 0), std::max(size.y, 0));
    if (valid == m_view)
        return;
    const wxRealPoint before = middle();
    m_view = valid;
    m_place = m_place + (middle() - before);
    arrange();
}

void ViewTransform::setPictureSize(const Pixel& size)
{
    m_picture = {std::max(size.x, 0), std::max(size.y, 0)};
    setMode(Mode::AUTOMATIC);
}

void ViewTransform::replacePictureSize(const Pixel& size)
{
    if (size == m_picture)
        return;
    const wxRealPoint old = shownSize();
    m_picture = {std::max(size.x, 0), std::max(size.y, 0)};
    const wxRealPoint now = shownSize();
    const auto placed = [](double place, double middle, double oldSize, double newSize) {
        const double part = oldSize > 0.0 ? (middle - place) / oldSize : 0.5;
        return middle - part * newSize;
    };
    m_place = {placed(m_place.x, middle().x, old.x, now.x), placed(m_place.y, middle().y, old.y, now.y)};
    arrange();
}

void ViewTransform::setMode(Mode mode)
{
    m_mode = mode;
    arrange();
}

void ViewTransform::zoomAt(const wxRealPoint& point, double factor)
{
    if (!std::isfinite(factor) || factor <= 0.0)
        return;
    const double wanted = m_scale * factor;
    const bool crosses = (m_scale < 1.0 && wanted > 1.0) || (m_scale > 1.0 && wanted < 1.0);
    constexpr double INEXACTNESS = 1e-3; // of several factors that lead back to 1 : 1
    setScale(crosses || std::abs(wanted - 1.0) < INEXACTNESS ? 1.0 : wanted, point);
}

void ViewTransform::setScale(double scale, const wxRealPoint& point)
{
    if (!std::isfinite(scale) || !isFinite(point))
        return;
    const double limitedScale = std::clamp(scale, MIN_SCALE, MAX_SCALE);
    const double factor = limitedScale / m_scale;
    m_mode = Mode::FREE;
    m_scale = limitedScale;
    m_place = {point.x - (point.x - m_place.x) * factor, point.y - (point.y - m_place.y) * factor};
    limitPlace();
}

void ViewTransform::pan(const wxRealPoint& distance)
{
    if (!isFinite(distance))
        return;
    m_mode = Mode::FREE;
    m_place = m_place + distance;
    limitPlace();
}

void ViewTransform::scroll(const wxRealPoint& distance)
{
    if (!isFinite(distance))
        return;
    const wxRealPoint size = shownSize();
    const wxRealPoint place(scrolled(m_place.x, distance.x, size.x, m_view.x),
                            scrolled(m_place.y, distance.y, size.y, m_view.y));
    if (place == m_place)
        return;
    m_mode = Mode::FREE;
    m_place = place;
    limitPlace();
}

wxPoint ViewTransform::origin() const
{
    return {rounded(m_place.x), rounded(m_place.y)};
}

wxRealPoint ViewTransform::shownSize() const
{
    return {m_picture.x * m_scale, m_picture.y * m_scale};
}

wxRealPoint ViewTransform::toPicture(const wxRealPoint& viewPoint) const
{
    const wxPoint from = origin();
    return {(viewPoint.x - from.x) / m_scale, (viewPoint.y - from.y) / m_scale};
}

wxRealPoint ViewTransform::toView(const wxRealPoint& picturePoint) const
{
    const wxPoint from = origin();
    return {from.x + picturePoint.x * m_scale, from.y + picturePoint.y * m_scale};
}

double ViewTransform::fittingScale() const
{
    if (m_picture.x == 0 || m_picture.y == 0)
        return 1.0;
    const double fitting =
        std::min(static_cast<double>(m_view.x) / m_picture.x, static_cast<double>(m_view.y) / m_picture.y);
    return std::clamp(fitting, MIN_SCALE, MAX_SCALE);
}

void ViewTransform::arrange()
{
    if (m_mode == Mode::FREE) {
        limitPlace();
        return;
    }
    m_scale = m_mode == Mode::FIT ? fittingScale() : std::min(fittingScale(), 1.0);
    centre();
}

void ViewTransform::centre()
{
    const wxRealPoint size = shownSize();
    m_place = {(m_view.x - size.x) / 2.0, (m_view.y - size.y) / 2.0};
}

void ViewTransform::limitPlace()
{
    const wxRealPoint size = shownSize();
    m_place = {limited(m_place.x, size.x, m_view.x), limited(m_place.y, size.y, m_view.y)};
}

} // namespace Nolvex::Viewer
