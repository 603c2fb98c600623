// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Resources {

// These are files of Windows bitmaps in words of little-endian byte order, made by
// tools/artwork/control_arrows.py. Sizes are in bytes. The rest of the last word is padding.

/// Three pairs of pictures, each 11 x 9 pixels: normal, hovered and pressed. The first picture of a pair
/// points up, the second one down.
extern const unsigned SPINNER_ARROWS[6][95];
extern const int SPINNER_ARROWS_SIZE;

/// A triangle that points down, in the middle of 17 x 41 transparent pixels.
extern const unsigned COMBO_BOX_ARROW[];
extern const int COMBO_BOX_ARROW_SIZE;

/// The same triangle in the highlight colour.
extern const unsigned COMBO_BOX_PRESSED_ARROW[];
extern const int COMBO_BOX_PRESSED_ARROW_SIZE;

} // namespace Nolvex::Resources
