// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// How a Timer begins.
enum class TimerFlag
{
    /// The timer stands at 0 until it is started.
    PAUSED = 1,
};

} // namespace Nolvex
