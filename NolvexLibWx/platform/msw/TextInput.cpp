// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextInput.h"

namespace Nolvex {

// The control is one window.

void Platform::prepareCapture(wxTextCtrl& /*text*/) {}

void Platform::directCapture(wxTextCtrl& /*text*/) {}

} // namespace Nolvex
