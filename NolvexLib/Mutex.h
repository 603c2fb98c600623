// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>

namespace Nolvex {

/// Lets one thread at a time in; locking it twice from one thread is a programming error.
using Mutex = std::mutex;

} // namespace Nolvex
