// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace Nolvex {

/// A growable array.
template<class T>
using Array = std::vector<T>;

} // namespace Nolvex
