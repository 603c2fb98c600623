// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include "NolvexLib/Array.h"

#include <cstdint>
#include <memory>

namespace Nolvex::Pixels {

/// Raises `value` to `exponent` by powf and makes a byte of the result.
std::uint8_t encodePower(float value, float exponent);

/// The table that a GammaEncoder uses instead of powf.
struct GammaTable
{
    GammaTable() = default;
    GammaTable(const GammaTable&) = delete;
    GammaTable& operator=(const GammaTable&) = delete;

    /// Returns null if no table can replace powf: the exponent is not between 1/16 and 16, it is an even
    /// integer, or the powf of this system is not monotonic where the byte changes.
    static std::unique_ptr<const GammaTable> make(float exponent);

    Array<std::uint32_t> entries;
    /// Refers to `entries`.
    Detail::GammaLookup lookup{};
};

} // namespace Nolvex::Pixels
