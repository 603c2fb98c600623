// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex {

/// An 8-bit colour without alpha.
struct RgbBytes
{
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;

    friend constexpr bool operator==(const RgbBytes&, const RgbBytes&) = default;
};

} // namespace Nolvex
