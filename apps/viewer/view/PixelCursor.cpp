// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PixelCursor.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "apps/viewer/view/ImageView.h"
#include "apps/viewer/view/PixelNumbers.h"

#include <wx/weakref.h>

#include <algorithm>

namespace Nolvex::Viewer {

namespace {

constexpr int EDGE_DISTANCE = 16; // design units, between the pixel and the edge of the view

// Returns how far to move the range from `first` to `end`, so that it lies within a length.
int distanceInto(int first, int end, int length)
{
    const int margin =
        std::clamp(Wx::scaleByDpi(EDGE_DISTANCE), 0, std::max((length - (end - first)) / 2, 0));
    if (first < margin)
        return margin - first;
    return std::min(length - margin - end, 0);
}

Pixel limited(const Pixel& pixel, const Pixel& size)
{
    return {std::clamp(pixel.x, 0, size.x - 1), std::clamp(pixel.y, 0, size.y - 1)};
}

} // namespace

void PixelCursor::set(const Optional<Pixel>& pixel)
{
    const Optional<Pixel> before = m_pixel;
    m_pixel.reset();
    if (pixel && m_view.picture())
        m_pixel = limited(*pixel, m_view.picture()->size());
    if (m_pixel == before)
        return;
    const wxWeakRef<wxWindow> view(&m_view);
    scrollAlong();
    if (view)
        tell();
}

void PixelCursor::move(const Pixel& distance)
{
    if (m_pixel)
        set(*m_pixel + distance);
    else
        set(m_view.nearPixel(wxPoint() + m_view.GetClientSize() / 2));
}

void PixelCursor::followPicture(bool staysInPlace)
{
    if (!staysInPlace || !m_view.picture())
        return set({});
    if (!m_pixel)
        return;
    // The user may have moved the pixel out of sight: the view stays where it is.
    m_pixel = limited(*m_pixel, m_view.picture()->size());
    tell();
}

void PixelCursor::tell()
{
    m_view.Refresh();
    Wx::updateAccessible(m_view);
    const Function<void()> notify = onChanged;
    if (notify)
        notify();
}

void PixelCursor::scrollAlong()
{
    if (!m_pixel)
        return;
    const wxRect pixel = area();
    const wxSize size = m_view.GetClientSize();
    const wxPoint distance(distanceInto(pixel.x, pixel.x + pixel.width, size.x),
                           distanceInto(pixel.y, pixel.y + pixel.height, size.y));
    if (distance != wxPoint())
        m_view.pan(distance);
}

wxRect PixelCursor::area() const
{
    if (!m_pixel || !m_view.picture())
        return {};
    const double dense = std::max(static_cast<int>(m_view.GetContentScaleFactor()), 1);
    const wxRealPoint place = imagePlace(*m_view.picture(), m_view.scale(), m_view.transform().origin());
    const PixelSquares squares{m_view.scale() / dense, {place.x / dense, place.y / dense}};
    const wxRect square = squares.square(*m_pixel);
    return {square.x, square.y, std::max(square.width, 1), std::max(square.height, 1)};
}

Optional<PixelCursor::Shown> PixelCursor::shown() const
{
    if (!m_pixel || !m_view.picture())
        return {};
    const wxRect place = area();
    const SharedPicture& picture = m_view.pictureAt(place.GetTopLeft() + place.GetSize() / 2);
    const Pixel pixel = *m_pixel + m_view.picture()->origin() - picture->origin();
    if (limited(pixel, picture->size()) != pixel)
        return {};
    return Shown{picture, pixel};
}

} // namespace Nolvex::Viewer
