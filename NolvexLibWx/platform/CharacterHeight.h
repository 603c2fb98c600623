// SPDX-License-Identifier: MIT
#pragma once

#include <wx/font.h>

namespace Nolvex::Platform {

/// Gives the font a character height (the height of its em square, not of its lines) in pixels.
void setCharacterHeight(wxFont& font, int pixels);

} // namespace Nolvex::Platform
