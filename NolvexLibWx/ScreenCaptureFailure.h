// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex::Wx {

/// Why there is no picture of the screen.
enum class ScreenCaptureFailure : std::int32_t
{
    /// The user does not want this program to have a picture.
    REFUSED = 0,
    /// The system lets no program read the screen and has no service that could be asked, or the screen is
    /// locked.
    UNAVAILABLE = 1,
    /// The user has not decided within the limit.
    TIMED_OUT = 2,
    /// The service of the desktop has failed, or has answered with something that is no picture of the
    /// desktop. Some desktops also answer in this way, without asking, if the user has refused an earlier
    /// question of this program.
    FAILED = 3,
    /// The image would have more than MAX_SCREEN_REGION_PIXELS, or there is not enough memory.
    TOO_LARGE = 4,
};

} // namespace Nolvex::Wx
