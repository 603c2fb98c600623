// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"

namespace Nolvex::Viewer {

/// Called from time to time while a picture is written, with the share of its rows that is done, from 0 to 1.
/// Returns false to stop the writing.
using WritingProgress = Function<bool(float)>;

} // namespace Nolvex::Viewer
