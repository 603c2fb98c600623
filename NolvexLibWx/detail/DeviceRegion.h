// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/ScreenCaptureRequest.h"
#include "NolvexLibWx/detail/ScreenRegion.h"

#include <cstdint>

namespace Nolvex::Wx::Detail {

/// Turns places in the coordinates of wxDisplay into places in the pixels of the device.
class NOLVEXLIBWX_EXPORT DeviceScale
{
public:
    /// Every pixel of wxWidgets is a square of `factor` x `factor` pixels of the device.
    explicit DeviceScale(std::int32_t factor);

    /// Returns the scale of a picture that shows all displays, whose top left corner is the corner of the
    /// smallest rectangle around the displays. Returns nullopt if the picture cannot be such a picture,
    /// because its proportions differ from those of that rectangle.
    static Optional<DeviceScale> ofPicture(Pixel size, ArrayView<const Bucket> displays);

    std::int64_t x(std::int32_t place) const;
    std::int64_t y(std::int32_t place) const;

private:
    DeviceScale(const Bucket& shown, Pixel size);

    Bucket m_shown;
    Pixel m_size;
};

/// Does the work of requestScreenRegion with these displays. `read` is asked for areas in the pixels of the
/// device, and passes on rows whose starts are in the pixels of the device, too. The result is UNAVAILABLE
/// if `read` passes on no row of any display.
NOLVEXLIBWX_EXPORT ScreenCaptureResult composeDeviceRegion(const Bucket& region,
                                                           ArrayView<const Bucket> displays,
                                                           const DeviceScale& scale, const ReadScreen& read);

} // namespace Nolvex::Wx::Detail
