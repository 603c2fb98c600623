// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibImage/Image.h"

namespace Nolvex::Viewer {

/// Captures all displays, each in its place, in the smallest image that holds them all. The image is
/// transparent where no display is. Returns nullopt if there is no display or no memory, or if the system
/// lets no program read the screen.
Optional<Image> captureDisplays(ArrayView<const Bucket> displays);

/// Captures every display of the system.
Optional<Image> captureDisplays();

} // namespace Nolvex::Viewer
