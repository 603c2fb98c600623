// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>

namespace Nolvex {

/// One thread at a time can lock it. Locking it twice from one thread is a programming error.
using Mutex = std::mutex;

} // namespace Nolvex
