// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLibWx/Export.h"

#include <wx/font.h>

#include <cstdint>

namespace Nolvex::Wx {

/// Variants of the plain font.
enum class TextFlag : std::uint32_t
{
    BOLD = 1,
    ITALIC = 2,
};

/// Returns the font with a character height of 12 design units times `factor`, cut to whole pixels. The font
/// must be valid, and at least one pixel must be left.
NOLVEXLIBWX_EXPORT wxFont setDefaultFontSize(wxFont font, float factor);

/// Returns a font of the same face with a character height of 12 design units. The flags alone decide whether
/// the font is bold or italic: the weight, the style and the lines of the font passed in are dropped.
NOLVEXLIBWX_EXPORT wxFont setupStaticTextFont(wxFont font, Flags<TextFlag> flags);

} // namespace Nolvex::Wx
