// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/CharacterHeight.h"

namespace Nolvex {

void Platform::setCharacterHeight(wxFont& font, int pixels)
{
    font.SetPixelSize(wxSize(0, pixels));
}

} // namespace Nolvex
