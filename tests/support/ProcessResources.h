// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace Nolvex::Tests {

/// Memory the process holds for itself, in bytes.
std::size_t privateMemory();

/// The same with the memory that is free for later use by the process only.
std::size_t heldMemory();

/// Open descriptors or handles of the process.
std::size_t openHandles();

} // namespace Nolvex::Tests
