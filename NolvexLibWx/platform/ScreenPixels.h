// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/Pixel.h"

#include <cstdint>
#include <functional>

namespace Nolvex::Platform {

/// Takes `count` pixels of a row of the screen, the first of them at `start`. Each has four bytes: blue,
/// green, red, and one without meaning. The callee may overwrite the bytes.
using TakeScreenRow = std::function<void(Pixel start, std::uint8_t* bgrx, std::int32_t count)>;

/// Hands over the rows that the screen shows inside the area, in the screen coordinates of wxWidgets. Leaves
/// out rows that cannot be read.
void readScreen(const Bucket& area, const TakeScreenRow& take);

} // namespace Nolvex::Platform
