// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLibWx/ScreenCaptureFailure.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace Nolvex::Platform {

/// A picture of all displays, in the pixels of the device.
struct DesktopPicture
{
    Pixel size;
    /// Four bytes for each pixel: blue, green, red, and an unused byte. The top row comes first.
    Array<std::uint8_t> bgrx;
};

using DesktopAnswer = Expected<DesktopPicture, Wx::ScreenCaptureFailure>;

/// A question to the desktop for a picture of all displays. The destructor withdraws the question. When the
/// destructor has returned, no code of the question runs any more.
class DesktopQuestion : private Noncopyable
{
public:
    virtual ~DesktopQuestion() = default;

protected:
    DesktopQuestion() = default;
};

/// Asks the desktop, which may ask the user, and gives up when the limit has passed. Calls `done` once, on a
/// thread of the question. Returns null if no desktop can be asked.
std::unique_ptr<DesktopQuestion> askDesktop(std::chrono::milliseconds limit,
                                            const std::function<void(DesktopAnswer)>& done);

} // namespace Nolvex::Platform
