// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>

namespace Nolvex {

/// The integers of 32 and 64 bits under all their names, whichever of them a system calls std::int64_t. Not
/// bool and not characters, which are no numbers to a reader.
template<class T>
concept TextInteger = std::same_as<T, int> || std::same_as<T, unsigned int> || std::same_as<T, long> ||
    std::same_as<T, unsigned long> || std::same_as<T, long long> || std::same_as<T, unsigned long long>;

} // namespace Nolvex
