// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

namespace Nolvex::Detail {

template<class Unit>
constexpr bool isPlainNameStart(Unit unit)
{
    return (unit >= Unit('a') && unit <= Unit('z')) || (unit >= Unit('A') && unit <= Unit('Z')) ||
           unit == Unit('_');
}

template<class Unit>
constexpr bool isPlainNameUnit(Unit unit)
{
    return isPlainNameStart(unit) || (unit >= Unit('0') && unit <= Unit('9')) || unit == Unit('.') ||
           unit == Unit('-');
}

/// True for [A-Za-z_][A-Za-z0-9_.-]*, the names both text forms use: the same units in every encoding.
template<class Unit>
constexpr bool isPlainName(std::basic_string_view<Unit> name)
{
    return !name.empty() && isPlainNameStart(name.front()) &&
           std::all_of(name.begin(), name.end(), isPlainNameUnit<Unit>);
}

} // namespace Nolvex::Detail
