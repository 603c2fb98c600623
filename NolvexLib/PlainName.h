// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
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

/// The answers of isPlainNameUnit for all bytes, since a table is faster.
inline constexpr std::array<bool, 256> PLAIN_NAME_BYTES = [] {
    std::array<bool, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = isPlainNameUnit(static_cast<char>(i));
    return table;
}();

inline bool isPlainNameByte(char byte)
{
    return PLAIN_NAME_BYTES[static_cast<unsigned char>(byte)];
}

/// True for [A-Za-z_][A-Za-z0-9_.-]*, which are the names of both text forms.
template<class Unit>
constexpr bool isPlainName(std::basic_string_view<Unit> name)
{
    return !name.empty() && isPlainNameStart(name.front()) &&
           std::all_of(name.begin(), name.end(), isPlainNameUnit<Unit>);
}

} // namespace Nolvex::Detail
