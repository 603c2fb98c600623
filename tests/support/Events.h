// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class wxWindow;

namespace Nolvex::Tests {

/// Processes the events of wxWidgets for about this time.
void pumpEvents(int milliseconds = 50);

/// Processes events until the condition holds. Returns false if it does not hold within the limit.
bool pumpUntil(const std::function<bool()>& condition, int limitMilliseconds = 5000);

/// Processes events until the condition has held for some time without a break. Returns false if this does
/// not happen within the limit.
bool pumpUntilStable(const std::function<bool()>& condition, int stableMilliseconds,
                     int limitMilliseconds = 5000);

/// Destroys a top-level window, and processes events until wxWidgets has deleted it.
void destroyNow(wxWindow* window);

} // namespace Nolvex::Tests
