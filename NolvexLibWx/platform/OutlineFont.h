// SPDX-License-Identifier: MIT
#pragma once

#include <wx/font.h>

namespace Nolvex::Platform {

/// The font under the name of the letters that it is drawn with. Fonts of the system may have a name that
/// only stands for another one; a wxGraphicsContext does not know these, and draws nothing.
wxFont outlineFont(const wxFont& font);

} // namespace Nolvex::Platform
