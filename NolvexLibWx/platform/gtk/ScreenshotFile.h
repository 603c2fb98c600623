// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/platform/DesktopQuestion.h"

#include <chrono>
#include <string>

namespace Nolvex::Platform {

/// Reads the PNG file that the portal has made for a question, and removes the file, which would otherwise
/// stay in a folder of the user with everything that was on the screen. A file that is older than the
/// question, or that is no picture, was not made for the question and is not removed.
///
/// The result is FAILED if the address does not name a regular file of this computer that holds a whole
/// picture, and TOO_LARGE for a picture of more than MAX_SCREEN_REGION_PIXELS.
DesktopAnswer takeScreenshotFile(const std::string& uri, std::chrono::system_clock::time_point asked);

} // namespace Nolvex::Platform
