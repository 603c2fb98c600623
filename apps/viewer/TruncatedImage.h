// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"

#include <cstddef>

namespace Nolvex::Viewer {

/// True for a JPEG or GIF file that breaks off before its end marker. The toolkit's decoders fill in what is
/// missing and report success; those of the other formats notice it themselves.
bool isTruncatedImage(ArrayView<const std::byte> bytes);

} // namespace Nolvex::Viewer
