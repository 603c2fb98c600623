// SPDX-License-Identifier: MIT
#include "apps/program/HexDigits.h"

#include <cstddef>

namespace Nolvex::Program {

namespace {

constexpr std::wstring_view SMALL_DIGITS = L"0123456789abcdef";
constexpr std::wstring_view CAPITAL_DIGITS = L"0123456789ABCDEF";
constexpr std::size_t BASE = 16;

Optional<std::size_t> digit(wchar_t character)
{
    for (const std::wstring_view digits : {SMALL_DIGITS, CAPITAL_DIGITS}) {
        if (const std::size_t place = digits.find(character); place != std::wstring_view::npos)
            return place;
    }
    return {};
}

} // namespace

void appendHexByte(std::wstring& text, std::uint8_t byte, HexLetters letters)
{
    const std::wstring_view digits = letters == HexLetters::SMALL ? SMALL_DIGITS : CAPITAL_DIGITS;
    text += digits[byte / BASE];
    text += digits[byte % BASE];
}

Optional<std::uint8_t> parseHexByte(std::wstring_view digits)
{
    if (digits.empty() || digits.size() > 2)
        return {};
    const Optional<std::size_t> high = digit(digits.front());
    const Optional<std::size_t> low = digit(digits.back());
    if (!high || !low)
        return {};
    return static_cast<std::uint8_t>(*high * BASE + *low);
}

} // namespace Nolvex::Program
