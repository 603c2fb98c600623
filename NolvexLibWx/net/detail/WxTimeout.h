// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// A time-out in seconds, cut to what wxWidgets can count in milliseconds on every system.
inline long wxTimeoutOf(std::int64_t seconds)
{
    constexpr std::int64_t MAX_SECONDS = 2'000'000;
    return static_cast<long>(std::clamp<std::int64_t>(seconds, 0, MAX_SECONDS));
}

} // namespace Nolvex::Wx::Legacy::Detail
