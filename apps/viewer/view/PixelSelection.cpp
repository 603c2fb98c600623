// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PixelSelection.h"

#include <algorithm>
#include <cstdint>

namespace Nolvex::Viewer {

namespace {

int added(int number, int distance, int min, int max)
{
    const std::int64_t sum = std::int64_t(number) + distance;
    return static_cast<int>(std::clamp<std::int64_t>(sum, min, max));
}

} // namespace

wxRect rectOfCorners(const Pixel& one, const Pixel& other, const Pixel& imageSize)
{
    const auto inside = [&](const Pixel& corner) {
        return wxPoint(std::clamp(corner.x, 0, imageSize.x - 1), std::clamp(corner.y, 0, imageSize.y - 1));
    };
    const wxPoint first = inside(one);
    const wxPoint second = inside(other);
    return {wxPoint(std::min(first.x, second.x), std::min(first.y, second.y)),
            wxPoint(std::max(first.x, second.x), std::max(first.y, second.y))};
}

Optional<wxRect> withinImage(const wxRect& rect, const Pixel& imageSize)
{
    const wxRect inside = rect.Intersect(wxRect(0, 0, imageSize.x, imageSize.y));
    return inside.IsEmpty() ? Optional<wxRect>() : inside;
}

wxRect grown(const wxRect& rect, const Pixel& distance, const Pixel& imageSize)
{
    return {rect.x, rect.y, added(rect.width, distance.x, 1, imageSize.x - rect.x),
            added(rect.height, distance.y, 1, imageSize.y - rect.y)};
}

wxRect moved(const wxRect& rect, const Pixel& distance, const Pixel& imageSize)
{
    return {added(rect.x, distance.x, 0, imageSize.x - rect.width),
            added(rect.y, distance.y, 0, imageSize.y - rect.height), rect.width, rect.height};
}

} // namespace Nolvex::Viewer
