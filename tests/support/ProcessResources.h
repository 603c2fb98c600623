// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace Nolvex::Tests {

/// Returns how many bytes of memory the process uses for itself.
std::size_t privateMemory();

/// Returns the same with the free memory that the process keeps for later use.
std::size_t heldMemory();

/// Returns the number of the process's open descriptors or handles.
std::size_t openHandles();

} // namespace Nolvex::Tests
