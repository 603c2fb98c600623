// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace Nolvex {

/// A value or none.
template<class T>
using Optional = std::optional<T>;

} // namespace Nolvex
