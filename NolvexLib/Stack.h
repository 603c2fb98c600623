// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace Nolvex {

/// A growable array that is used at its end (`push_back`, `back`, `pop_back`). Iteration begins with the
/// element that was pushed first.
template<class T>
using Stack = std::vector<T>;

} // namespace Nolvex
