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

/// Returns "#rrggbb" for an opaque colour and "#rrggbbaa" for others. The numbers become bytes as in
/// Wx::toWxColour, so that the text names the bytes that a control shows.
[[nodiscard]] String hexColor(const Rgb& color);

} // namespace Nolvex::Picker
