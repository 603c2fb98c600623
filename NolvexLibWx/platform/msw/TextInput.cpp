// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextInput.h"

namespace Nolvex {

// On Windows the control is a single window, which needs no preparation.

void Platform::prepareCapture(wxTextCtrl& /*text*/) {}

void Platform::directCapture(wxTextCtrl& /*text*/) {}

} // namespace Nolvex
