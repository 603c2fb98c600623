// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace Nolvex {

/// A value, or no value.
template<class T>
using Optional = std::optional<T>;

} // namespace Nolvex
