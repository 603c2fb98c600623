// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLib/StringView.h"

namespace Nolvex::Picker {

/// Reads "#rgb", "#rrggbb" or "#rrggbbaa", with or without "#", in capital or small letters, and with spaces
/// around the text. A text without alpha is opaque. Returns nullopt for every other text.
[[nodiscard]] Optional<Rgb> parseHexColor(StringView text);

/// Returns "#rrggbb" for an opaque colour and "#rrggbbaa" for others. The numbers are rounded to bytes,
/// clamped to the range from 0 to 1, and NaN counts as 0.
[[nodiscard]] String hexColor(const Rgb& color);

} // namespace Nolvex::Picker
