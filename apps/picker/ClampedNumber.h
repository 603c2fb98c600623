// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

namespace Nolvex::Picker {

/// Returns the number that controls show for a channel: at least 0 and at most the maximum. NaN counts as 0.
inline float clampedNumber(float number, float maximum = 1.0f)
{
    return number > 0.0f ? std::min(number, maximum) : 0.0f;
}

} // namespace Nolvex::Picker
