// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Resources {

/// The bytes of ApplicationIcon.png in little-endian words, written by tools/artwork/application_icon.py.
extern const unsigned APPLICATION_ICON[];

/// The size in bytes. The rest of the last word is padding.
extern const int APPLICATION_ICON_SIZE;

} // namespace Nolvex::Resources
