// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <charconv>
#include <string>

namespace Nolvex::Viewer {

/// Returns the shortest text that stands for the number, with a point in every language.
template<class Number>
std::string numberText(Number number)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

} // namespace Nolvex::Viewer
