// SPDX-License-Identifier: MIT
#pragma once

class wxWindow;

namespace Nolvex::Tests {

/// Returns whether the mouse has the shape of a hand over the window.
bool hasHandCursor(const wxWindow* window);

} // namespace Nolvex::Tests
