// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace Nolvex {

/// A view of consecutive elements, which the caller owns and which must outlive the view.
template<class T>
using ArrayView = std::span<T>;

} // namespace Nolvex
