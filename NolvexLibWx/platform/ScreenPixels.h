// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLibWx/ScreenCapture.h"

namespace Nolvex::Platform {

/// Hands over the rows of what the screen shows inside the area, in the toolkit's screen coordinates. Rows
/// that cannot be read are left out.
void readScreen(const Bucket& area, const Wx::Detail::TakeScreenRow& take);

} // namespace Nolvex::Platform
