// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex::WinApi {

/// The loaded program or library that holds the address of code or static data: an HMODULE on Windows, the
/// address it is loaded at on Linux. Null when none does. Does not keep it loaded.
NOLVEXLIB_EXPORT void* getModuleHandle(const void* address);

} // namespace Nolvex::WinApi
