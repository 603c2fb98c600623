// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Bucket.h"

namespace Nolvex::Wx::Detail {

/// Returns the place of every display, in the order of wxDisplay. Without an application object wxWidgets
/// knows no display.
Array<Bucket> displayGeometries();

} // namespace Nolvex::Wx::Detail
