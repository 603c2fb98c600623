// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class wxTextCtrl;

namespace Nolvex::Tests {

/// Counts from now on how often the system paints the native text control. wxWidgets reports these paintings
/// as events on Windows only.
std::shared_ptr<const int> countPaintings(wxTextCtrl* text);

} // namespace Nolvex::Tests
