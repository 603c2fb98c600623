// SPDX-License-Identifier: MIT
#pragma once

#include <wx/font.h>

namespace Nolvex::Platform {

/// Returns the font under the name of the family that Windows really draws it with. The name of a system font
/// may only stand for another font; a wxGraphicsContext does not know such names and draws nothing.
wxFont outlineFont(const wxFont& font);

} // namespace Nolvex::Platform
