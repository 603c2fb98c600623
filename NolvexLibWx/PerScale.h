// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/DpiScaling.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Nolvex {

/// Values that were found by eye for each scale: the first for 100 %, the second for what rounds to 200 %,
/// the third for everything above.
template<class T>
using PerScale = std::array<T, 3>;

/// The one for the scale of the screen.
template<class T>
const T& atScreenScale(const PerScale<T>& values)
{
    return values[static_cast<std::size_t>(std::clamp(Wx::scaleByDpi(1) - 1, 0, 2))];
}

} // namespace Nolvex
