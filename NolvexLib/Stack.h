// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace Nolvex {

/// A growable array used from its end (`push_back`, `back`, `pop_back`); also read in order, first pushed
/// first.
template<class T>
using Stack = std::vector<T>;

} // namespace Nolvex
