// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/Pixel.h"

#include <cstdint>
#include <functional>

namespace Nolvex::Platform {

/// Receives `count` pixels of a row of the screen, beginning at `start`. Each pixel has four bytes: blue,
/// green, red, and an unused byte. The function may overwrite the bytes.
using TakeScreenRow = std::function<void(Pixel start, std::uint8_t* bgrx, std::int32_t count)>;

/// Returns false where the window system lets no program read the screen.
bool isScreenReadable();

/// Returns the number of the screen's pixels for a pixel of wxWidgets in each direction. The number is 1 if
/// the screen cannot be read.
std::int32_t screenScale();

/// Calls the function for the rows that the screen shows inside the area, in the screen coordinates of
/// wxWidgets. Skips rows that cannot be read.
void readScreen(const Bucket& area, const TakeScreenRow& take);

/// Does the same in the screen's own pixels, of which there are more than pixels of wxWidgets on a scaled
/// screen.
void readScreenPixels(const Bucket& area, const TakeScreenRow& take);

} // namespace Nolvex::Platform
