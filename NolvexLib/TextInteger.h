// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>

namespace Nolvex {

/// The integer types of 32 and 64 bits under all their names: int64_t is long on Linux and long long on
/// Windows. bool and the character types are not among them, because readers do not take their values for
/// numbers.
template<class T>
concept TextInteger = std::same_as<T, int> || std::same_as<T, unsigned int> || std::same_as<T, long> ||
    std::same_as<T, unsigned long> || std::same_as<T, long long> || std::same_as<T, unsigned long long>;

} // namespace Nolvex
