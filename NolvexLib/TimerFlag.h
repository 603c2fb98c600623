// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// How a Timer begins.
enum class TimerFlag
{
    /// It stands at 0 until it is started.
    PAUSED = 1,
};

} // namespace Nolvex
