// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex::WinApi {

/// Returns the program or library in which an address of code or static data lies: its HMODULE on Windows,
/// its load address on Linux. Null if the address lies in none. The handle does not keep the library loaded.
NOLVEXLIB_EXPORT void* getModuleHandle(const void* address);

} // namespace Nolvex::WinApi
