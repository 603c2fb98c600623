// SPDX-License-Identifier: MIT
#pragma once

class wxDC;

namespace Nolvex::Tests {

/// Makes sure that copying from a screen DC gives what the screen shows now.
void refreshScreenSource(wxDC& screen);

} // namespace Nolvex::Tests
