// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// The factor by which texts are larger than designed. It is 1 until it is set. Every thread may call this
/// function.
NOLVEXLIB_EXPORT float getFontScale();

/// Sets the factor, which must be finite and above 0. Returns false and changes nothing otherwise.
NOLVEXLIB_EXPORT bool setFontScale(float scale);

} // namespace Nolvex
