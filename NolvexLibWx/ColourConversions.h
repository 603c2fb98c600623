// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Rgb.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/Export.h"

#include <wx/colour.h>

namespace Nolvex::Wx {

/// Bytes times 1/255; alpha is always 1, whatever the colour's own.
NOLVEXLIBWX_EXPORT Rgb toRgb(const wxColour& colour);

/// The three bytes; alpha is dropped.
NOLVEXLIBWX_EXPORT RgbBytes toRgbBytes(const wxColour& colour);

/// Opaque.
NOLVEXLIBWX_EXPORT wxColour toWxColour(const RgbBytes& colour);

/// Opaque, whatever the colour's alpha. Channels are clamped to 0 to 1 and rounded to bytes, ties to even;
/// NaN gives 0.
NOLVEXLIBWX_EXPORT wxColour toWxColour(const Rgb& colour);

} // namespace Nolvex::Wx
