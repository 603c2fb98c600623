// SPDX-License-Identifier: MIT
#pragma once

class wxWindow;

namespace Nolvex::Tests {

/// True when the mouse is a hand over the window.
bool hasHandCursor(const wxWindow* window);

} // namespace Nolvex::Tests
