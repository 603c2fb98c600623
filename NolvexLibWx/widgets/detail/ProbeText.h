// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"

namespace Nolvex::Wx::Detail {

// The texts of a PixelProbe. Numbers are written as printf writes them in the C locale.

String positionText(Pixel position);

String originalText(const Rgb& colour);

String toneMappedText(const String& colourSpace, const Rgb& colour);

/// Rounds the colours to bytes half to even and the alpha half up. NaN becomes 0, and other values beyond the
/// range from 0 to 1 become 0 or 255.
String bytesText(const String& colourSpace, const Rgb& colour, float alpha);

} // namespace Nolvex::Wx::Detail
