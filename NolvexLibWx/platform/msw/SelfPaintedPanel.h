// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

namespace Nolvex::Platform {

/// The toolkit's panel does what is wanted here.
using SelfPaintedPanel = wxPanel;

} // namespace Nolvex::Platform
