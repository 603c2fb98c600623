// SPDX-License-Identifier: MIT
#include "apps/program/CapturedPixels.h"

#include <algorithm>

namespace Nolvex::Program {

bool wasRead(const BitmapImpl<Rgb>& captured)
{
    for (int y = 0; y < captured.height(); ++y) {
        const Rgb* const row = captured.row(y);
        if (std::any_of(row, row + captured.width(), [](const Rgb& pixel) { return pixel.a > 0.0f; }))
            return true;
    }
    return false;
}

} // namespace Nolvex::Program
