// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/Export.h"

#include <wx/colour.h>

namespace Nolvex::Wx {

/// Returns the channels as fractions of 255. The alpha of the colour is ignored: the result is opaque.
NOLVEXLIBWX_EXPORT Rgb toRgb(const wxColour& colour);

/// Returns the three bytes without the alpha.
NOLVEXLIBWX_EXPORT RgbBytes toRgbBytes(const wxColour& colour);

/// Returns an opaque colour.
NOLVEXLIBWX_EXPORT wxColour toWxColour(const RgbBytes& colour);

/// Returns an opaque colour, whatever the alpha. Channels are clamped to the range from 0 to 1 and rounded to
/// bytes, ties to even. NaN becomes 0.
NOLVEXLIBWX_EXPORT wxColour toWxColour(const Rgb& colour);

} // namespace Nolvex::Wx
