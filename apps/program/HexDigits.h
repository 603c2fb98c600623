// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Nolvex::Program {

enum class HexLetters : int
{
    SMALL,
    CAPITAL,
};

/// Appends the two hexadecimal digits of the byte.
void appendHexByte(std::wstring& text, std::uint8_t byte, HexLetters letters);

/// Reads one digit, which stands for both digits of a byte as in "#fff", or two digits, in capital or small
/// letters. Returns nullopt for every other text.
[[nodiscard]] Optional<std::uint8_t> parseHexByte(std::wstring_view digits);

} // namespace Nolvex::Program
