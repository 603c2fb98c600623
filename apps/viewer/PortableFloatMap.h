// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"

#include <cstddef>

namespace Nolvex::Viewer {

/// Returns whether the bytes begin like a Portable Float Map: "PF" for colour or "Pf" for grey.
bool isPortableFloatMap(ArrayView<const std::byte> bytes);

/// Reads a Portable Float Map: floats of linear light, bottom row first. The image gets the gamma 2.2. The
/// error is a sentence without the file's name.
Expected<Image, String> readPortableFloatMap(ArrayView<const std::byte> bytes);

} // namespace Nolvex::Viewer
