// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>

namespace Nolvex {

/// Lets one thread at a time in, as often as that thread likes.
using RecursiveMutex = std::recursive_mutex;

} // namespace Nolvex
