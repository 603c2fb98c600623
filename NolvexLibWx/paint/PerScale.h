// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/DpiScaling.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Nolvex {

/// Values that were found by eye for the scales 1, 2 and 3. The scale is the number of pixels that one design
/// unit becomes: 1 at 125 %, 2 at 150 %.
template<class T>
using PerScale = std::array<T, 3>;

/// Returns the value for a scale. Smaller scales have the first value, larger ones the last.
template<class T>
constexpr const T& atScale(const PerScale<T>& values, int scale)
{
    return values[static_cast<std::size_t>(std::clamp(scale, 1, 3)) - 1];
}

/// Returns the value for the scale of the screen.
template<class T>
const T& atScreenScale(const PerScale<T>& values)
{
    return atScale(values, Wx::scaleByDpi(1));
}

} // namespace Nolvex
