// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace Nolvex {

/// A view of consecutive elements owned by somebody else, who must outlive it.
template<class T>
using ArrayView = std::span<T>;

} // namespace Nolvex
