// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace Nolvex {

/// Owns an object, alone.
template<class T, class Deleter = std::default_delete<T>>
using AutoPtr = std::unique_ptr<T, Deleter>;

} // namespace Nolvex
