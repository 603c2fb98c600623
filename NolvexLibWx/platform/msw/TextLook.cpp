// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextLook.h"

namespace Nolvex {

// The edit control of Windows does all of this by itself.
void Platform::adaptTextLook(const wxTextCtrl& /*text*/) {}

} // namespace Nolvex
