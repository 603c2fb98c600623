// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Nolvex::Platform {

/// Returns the address of the session bus, or an empty text if there is no bus. GIO itself would start a bus.
std::string sessionBusAddress();

} // namespace Nolvex::Platform
