// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/TaskbarProgress.h"

namespace Nolvex::Tests {

/// Calls every function, with fractions within and beyond the limits.
inline void showEverything(Wx::TaskbarProgress& progress)
{
    for (const float fraction : {0.0f, 0.5f, 1.0f, 1.5f, -1.0f})
        progress.setProgress(fraction);
    progress.setIndeterminate();
    progress.setIdle();
    progress.setProgress(0.75f);
}

} // namespace Nolvex::Tests
