// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>

namespace Nolvex {

/// One thread at a time can lock it, any number of times.
using RecursiveMutex = std::recursive_mutex;

} // namespace Nolvex
