// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLibWx/Export.h"

#include <wx/font.h>

#include <cstdint>

namespace Nolvex::Wx {

/// How a text is set.
enum class TextFlag : std::uint32_t
{
    BOLD = 1,
    ITALIC = 2,
};

/// The font, a valid one, at the default text height (12 design units) times `factor`, cut to whole pixels,
/// at least one of which must be left.
NOLVEXLIBWX_EXPORT wxFont setDefaultFontSize(wxFont font, float factor);

/// The font's face at the default text height, plain but for the flags: its own weight and style are dropped.
NOLVEXLIBWX_EXPORT wxFont setupStaticTextFont(wxFont font, Flags<TextFlag> flags);

} // namespace Nolvex::Wx
