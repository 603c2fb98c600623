// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibImage/Image.h"

namespace Nolvex::Viewer {

/// What the displays show now, each in its place, in the smallest image that holds them all; transparent
/// where no display is. Returns nullopt without displays, without memory, and where the system lets no
/// program read the screen.
Optional<Image> captureDisplays(ArrayView<const Bucket> displays);

/// What all displays show now.
Optional<Image> captureDisplays();

} // namespace Nolvex::Viewer
