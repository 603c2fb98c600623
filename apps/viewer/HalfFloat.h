// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex::Viewer {

/// Returns the bits of the nearest half float. Ties go to the even number, and what is too large to infinity.
std::uint16_t toHalf(float value);

} // namespace Nolvex::Viewer
