// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

namespace Nolvex::Platform {

/// On Windows a wxPanel already behaves as described.
using SelfPaintedPanel = wxPanel;

} // namespace Nolvex::Platform
