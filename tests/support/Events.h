// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class wxWindow;

namespace Nolvex::Tests {

/// Lets the toolkit's events run for about that long.
void pumpEvents(int milliseconds = 50);

/// Lets events run until the condition holds; false when it does not within the limit.
bool pumpUntil(const std::function<bool()>& condition, int limitMilliseconds = 5000);

/// Destroys a top-level window and lets the toolkit finish it.
void destroyNow(wxWindow* window);

} // namespace Nolvex::Tests
