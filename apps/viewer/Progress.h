// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"

namespace Nolvex::Viewer {

/// Called from time to time while something takes long, with the share that is done, from 0 to 1. Returns
/// false to stop the work.
using Progress = Function<bool(float)>;

} // namespace Nolvex::Viewer
