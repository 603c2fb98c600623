// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex::Viewer::Platform {

/// Returns how many bytes of memory the system still has for this program, swap space included, or the
/// largest number if the system does not tell. An allocation of more may succeed on Linux; the system then
/// ends the program when the memory is used.
std::uint64_t availableMemory();

} // namespace Nolvex::Viewer::Platform
