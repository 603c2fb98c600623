// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Resources {

/// ApplicationIcon.png, in words of little-endian byte order; made by tools/artwork/application_icon.py.
extern const unsigned APPLICATION_ICON[];

/// In bytes; what remains of the last word is padding.
extern const int APPLICATION_ICON_SIZE;

} // namespace Nolvex::Resources
