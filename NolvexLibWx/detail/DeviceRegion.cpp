// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/DeviceRegion.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/Monitors.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <limits>

namespace Nolvex {

namespace {

constexpr std::int32_t MAX_COORDINATE = std::numeric_limits<std::int32_t>::max();

std::int64_t floorOfQuotient(std::int64_t dividend, std::int64_t divisor)
{
    const std::int64_t quotient = dividend / divisor;
    return quotient * divisor > dividend ? quotient - 1 : quotient;
}

// The nearest place, so that a boundary between two displays is the same for both of them.
std::int64_t scaled(std::int64_t distance, std::int64_t size, std::int64_t from)
{
    return floorOfQuotient(2 * distance * size + from, 2 * from);
}

// The region in the pixels of the device. The coordinates need 64 bits.
class DeviceBounds
{
public:
    DeviceBounds(const Bucket& region, const Wx::Detail::DeviceScale& scale)
        : minX(scale.x(region.min.x)),
          minY(scale.y(region.min.y)),
          maxX(scale.x(region.max.x)),
          maxY(scale.y(region.max.y))
    {}

    /// Returns these bounds seen from the corner of others. A place that is too far away for 32 bits is moved
    /// nearer, but stays outside of every region that can be captured.
    Bucket seenFrom(const DeviceBounds& other) const
    {
        return {{narrow(minX - other.minX), narrow(minY - other.minY)},
                {narrow(maxX - other.minX), narrow(maxY - other.minY)}};
    }

    /// A region can become empty where the device has fewer pixels than wxWidgets.
    bool isEmpty() const { return maxX <= minX || maxY <= minY; }

    const std::int64_t minX;
    const std::int64_t minY;
    const std::int64_t maxX;
    const std::int64_t maxY;

private:
    static std::int32_t narrow(std::int64_t place)
    {
        return static_cast<std::int32_t>(
            std::clamp<std::int64_t>(place, -std::int64_t(MAX_COORDINATE), MAX_COORDINATE));
    }
};

// Passes on the rows of one region, whose corner is the origin, and notes whether there were any.
class RegionReader
{
public:
    RegionReader(const DeviceBounds& bounds, const Wx::Detail::ReadScreen& read)
        : m_bounds(bounds), m_read(read)
    {}

    void operator()(const Bucket& area, const Platform::TakeScreenRow& take)
    {
        m_isAsked = true;
        // The area lies on a display, so that its place on the device has 32 bits.
        const Pixel corner{static_cast<std::int32_t>(m_bounds.minX + area.min.x),
                           static_cast<std::int32_t>(m_bounds.minY + area.min.y)};
        m_read({corner, corner + area.size()}, [&](Pixel start, std::uint8_t* bgrx, std::int32_t count) {
            m_wasRead = true;
            take(area.min + (start - corner), bgrx, count);
        });
    }

    bool hasFailed() const { return m_isAsked && !m_wasRead; }

private:
    const DeviceBounds& m_bounds;
    const Wx::Detail::ReadScreen& m_read;
    bool m_isAsked = false;
    bool m_wasRead = false;
};

} // namespace

Wx::Detail::DeviceScale::DeviceScale(const Bucket& shown, Pixel size) : m_shown(shown), m_size(size) {}

Wx::Detail::DeviceScale::DeviceScale(std::int32_t factor) : DeviceScale({{0, 0}, {1, 1}}, {factor, factor}) {}

Optional<Wx::Detail::DeviceScale> Wx::Detail::DeviceScale::ofPicture(Pixel size,
                                                                     ArrayView<const Bucket> displays)
{
    const Bucket shown = regionAround(displays);
    if (shown.isEmpty() || size.x <= 0 || size.y <= 0)
        return {};
    // With a scale such as 1.25 each side of the picture is rounded to whole pixels.
    const std::int64_t difference =
        std::int64_t(size.x) * shown.height() - std::int64_t(size.y) * shown.width();
    if (std::abs(difference) > std::int64_t(shown.width()) + shown.height())
        return {};
    return DeviceScale(shown, size);
}

std::int64_t Wx::Detail::DeviceScale::x(std::int32_t place) const
{
    return scaled(std::int64_t(place) - m_shown.min.x, m_size.x, m_shown.width());
}

std::int64_t Wx::Detail::DeviceScale::y(std::int32_t place) const
{
    return scaled(std::int64_t(place) - m_shown.min.y, m_size.y, m_shown.height());
}

Wx::ScreenCaptureResult Wx::Detail::composeDeviceRegion(const Bucket& region,
                                                        ArrayView<const Bucket> displays,
                                                        const DeviceScale& scale, const ReadScreen& read)
{
    const DeviceBounds bounds(region, scale);
    if (bounds.isEmpty())
        return BitmapImpl<Rgb>();
    Array<Bucket> seen;
    for (const Bucket& display : displays)
        seen.push_back(DeviceBounds(display, scale).seenFrom(bounds));
    RegionReader reader(bounds, read);
    BitmapImpl<Rgb> image = composeScreenRegion(bounds.seenFrom(bounds), seen, std::ref(reader));
    if (image.isEmpty())
        return Unexpected{ScreenCaptureFailure::TOO_LARGE};
    if (reader.hasFailed())
        return Unexpected{ScreenCaptureFailure::UNAVAILABLE};
    return image;
}

} // namespace Nolvex
