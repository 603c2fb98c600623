// SPDX-License-Identifier: MIT
#include "apps/viewer/HalfFloat.h"

#include <bit>
#include <cmath>

namespace Nolvex::Viewer {

std::uint16_t toHalf(float value)
{
    constexpr std::uint32_t INFINITE_HALF = 0x7c00;
    constexpr std::uint32_t QUIET_BIT = 0x0200;
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const std::uint32_t sign = (bits >> 16) & 0x8000u;
    const float magnitude = std::fabs(value);
    std::uint32_t half = 0;
    if (std::isnan(value)) {
        half = INFINITE_HALF | QUIET_BIT;
    } else if (magnitude >= 65520.0f) {
        half = INFINITE_HALF; // half way from the largest half float to the next step
    } else if (magnitude < 0x1p-14f) {
        half = static_cast<std::uint32_t>(std::lrint(magnitude * 0x1p24f)); // a multiple of 2^-24
    } else {
        // The exponent is biased by 127 in a float and by 15 in a half float. The sum rounds to the nearest
        // of the ten bits that stay, to even in a tie, and carries into the exponent.
        constexpr std::uint32_t BIAS_DIFFERENCE = (127u - 15u) << 23;
        const std::uint32_t rebiased = (bits & 0x7fff'ffffu) - BIAS_DIFFERENCE;
        half = (rebiased + 0xfffu + ((rebiased >> 13) & 1u)) >> 13;
    }
    return static_cast<std::uint16_t>(sign | half);
}

} // namespace Nolvex::Viewer
