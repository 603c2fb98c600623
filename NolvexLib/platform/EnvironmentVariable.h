// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

namespace Nolvex::Detail {

/// The value of the variable, or an empty text if it is not set. `name` is ASCII.
String environmentVariable(const char* name);

} // namespace Nolvex::Detail
