// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace Nolvex::Tests {

/// Memory the process holds for itself, in bytes.
std::size_t privateMemory();

/// Open descriptors or handles of the process.
std::size_t openHandles();

} // namespace Nolvex::Tests
