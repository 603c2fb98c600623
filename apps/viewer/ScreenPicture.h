// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Bucket.h"

#include <wx/bitmap.h>

namespace Nolvex::Viewer {

/// What the displays show now, each in its place, in the smallest bitmap that holds them all; transparent
/// where no display is. Invalid without displays or memory, and where
/// the system lets nobody read the screen.
wxBitmap screenPicture(ArrayView<const Bucket> displays);

/// Of all displays.
wxBitmap screenPicture();

} // namespace Nolvex::Viewer
