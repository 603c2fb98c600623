// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

namespace Nolvex::Detail {

/// Empty when it is not set. `name` is ASCII.
String environmentVariable(const char* name);

} // namespace Nolvex::Detail
