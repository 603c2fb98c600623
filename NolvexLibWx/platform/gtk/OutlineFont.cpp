// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OutlineFont.h"

namespace Nolvex {

wxFont Platform::outlineFont(const wxFont& font)
{
    return font;
}

} // namespace Nolvex
