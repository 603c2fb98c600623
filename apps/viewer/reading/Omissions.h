// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"

#include <cstdint>

namespace Nolvex::Viewer {

/// Returns what is not shown of a file with so many frames.
Array<String> omittedFrames(std::uint64_t count);

/// Returns what is not shown of a picture with so many channels more than the image has.
Array<String> omittedChannels(int count);

} // namespace Nolvex::Viewer
